#include "support/fake_cef/fake_cef_test.h"

#include <gmock/gmock.h>

#include "include/internal/cef_object_count.h"

namespace fake_cef {
namespace {

// Returns the number of live objects of the binding if the build counts them.
long BindingObjects() {
#if defined(CEF_BINDING_COUNT_OBJECTS)
  return cef_binding::live_objects;
#else
  return 0;
#endif
}

}  // namespace

void FakeCefTest::SetUp() {
  library() = Library();
  client_objects_ = BindingObjects();
  strings_ = LiveStrings();
}

void FakeCefTest::TearDown() {
  library() = Library();
  EXPECT_THAT(Misuse(), testing::IsEmpty());
  EXPECT_THAT(LiveObjects(), testing::IsEmpty());
  EXPECT_EQ(LiveStrings(), strings_);
  EXPECT_EQ(BindingObjects(), client_objects_);
  ForgetObjects();
}

}  // namespace fake_cef
