// Tests the faults that the fixture of these tests detects.

#include "support/fake_cef/fake_cef_test.h"

#include <gmock/gmock.h>

#include "include/capi/cef_string_capi.h"

namespace fake_cef {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Inspects the records without FakeCefTest, and clears them.
class FakeObjectTest : public testing::Test {
 protected:
  void TearDown() override { ForgetObjects(); }
};

using Frame = PlainObject<cef_frame_t>;

TEST_F(FakeObjectTest, ReferencedObjectIsLive) {
  const auto frame = Make<Frame>();
  EXPECT_THAT(LiveObjects(), ElementsAre(HasSubstr("cef_frame_t")));
  EXPECT_EQ(frame->base.size, sizeof(cef_frame_t));
  EXPECT_EQ(frame->base.has_one_ref(&frame->base), 1);
}

TEST_F(FakeObjectTest, ObjectEndsWithLastReference) {
  auto* const frame = new Frame;
  frame->base.add_ref(&frame->base);
  EXPECT_EQ(frame->base.release(&frame->base), 0);
  EXPECT_EQ(frame->base.release(&frame->base), 1);
  EXPECT_THAT(LiveObjects(), IsEmpty());
  EXPECT_THAT(EndedObjects(), ElementsAre(frame));
  EXPECT_THAT(Misuse(), IsEmpty());
}

TEST_F(FakeObjectTest, ReleaseAfterEndIsMisuse) {
  auto* const frame = new Frame;
  frame->base.release(&frame->base);
  EXPECT_EQ(frame->base.release(&frame->base), 0);
  EXPECT_THAT(Misuse(), ElementsAre(HasSubstr("cef_frame_t released after its end")));
}

TEST_F(FakeObjectTest, AddRefAfterEndIsMisuse) {
  auto* const frame = new Frame;
  frame->base.release(&frame->base);
  frame->base.add_ref(&frame->base);
  EXPECT_THAT(Misuse(), ElementsAre(HasSubstr("referenced after its end")));
}

TEST_F(FakeObjectTest, CallAfterEndIsMisuse) {
  auto* const list = new FakeList;
  list->base.release(&list->base);
  list->get_size(list);
  EXPECT_THAT(Misuse(), ElementsAre(HasSubstr("cef_list_value_t used after its end")));
}

TEST_F(FakeObjectTest, CallOfUnfilledSlotIsMisuse) {
  const auto list = Make<FakeList>();
  list->clear();
  EXPECT_THAT(Misuse(), ElementsAre(HasSubstr("does not fill")));
}

TEST_F(FakeObjectTest, CountsStrings) {
  const long before = LiveStrings();
  cef_string_utf16_t* const text = NewUserFree(u"text");
  EXPECT_EQ(LiveStrings(), before + 2);
  cef_string_userfree_utf16_free(text);
  EXPECT_EQ(LiveStrings(), before);
}

}  // namespace
}  // namespace fake_cef
