// The one reference of the library's object that each object of the binding owns. A new class is
// one more type in the list below.

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <typeinfo>

#include "include/cef_client.h"
#include "include/cef_command_line.h"
#include "include/cef_cookie.h"
#include "include/cef_v8.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

using cef_binding::Adopt;
using cef_binding::Pass;
using fake_cef::Make;
using fake_cef::Own;
using fake_cef::PlainObject;

using LibraryClasses =
    testing::Types<CefBinaryValue, CefBrowser, CefBrowserHost, CefCommandLine, CefCookieManager,
                   CefDictionaryValue, CefFrame, CefListValue, CefProcessMessage, CefRequest,
                   CefV8Context, CefV8Value, CefValue>;

// Names the tests of a type by it.
struct TypeName {
  template <class Type>
  static std::string GetName(int) {
    const std::string name = typeid(Type).name();  // begins with its length
    return name.substr(name.find_first_not_of("0123456789"));
  }
};

template <class Class>
class LibraryObjectTest : public fake_cef::FakeCefTest {
 protected:
  using Struct = typename Class::StructType;
  using Fake = PlainObject<Struct>;

  void TearDown() override {
    EXPECT_EQ(fake_->references(), 1);
    fake_ = nullptr;
    FakeCefTest::TearDown();
  }

  Own<Fake> fake_ = Make<Fake>();
};
TYPED_TEST_SUITE(LibraryObjectTest, LibraryClasses, TypeName);

TYPED_TEST(LibraryObjectTest, AdoptTakesOverTheOneReference) {
  auto object = Adopt<TypeParam>(this->fake_.Give());
  EXPECT_EQ(this->fake_->references(), 2);
  object = nullptr;
  EXPECT_EQ(this->fake_->references(), 1);
}

TYPED_TEST(LibraryObjectTest, CopiesTakeNoReferenceFromTheLibrary) {
  auto object = Adopt<TypeParam>(this->fake_.Give());
  EXPECT_TRUE(object->HasOneRef());
  auto copy = object;
  EXPECT_FALSE(object->HasOneRef());
  EXPECT_EQ(this->fake_->references(), 2);
  object = nullptr;
  EXPECT_EQ(this->fake_->references(), 2);
  EXPECT_TRUE(copy->HasOneRef());
  copy = nullptr;
  EXPECT_EQ(this->fake_->references(), 1);
}

TYPED_TEST(LibraryObjectTest, PassGivesTheCalleeAReferenceThatOutlivesOurs) {
  auto object = Adopt<TypeParam>(this->fake_.Give());
  auto callee = Own<typename TestFixture::Struct>::Take(Pass(object));
  EXPECT_EQ(callee.get(), this->fake_.get());
  EXPECT_EQ(this->fake_->references(), 3);
  object = nullptr;
  EXPECT_EQ(this->fake_->references(), 2);
  callee = nullptr;
  EXPECT_EQ(this->fake_->references(), 1);
}

TYPED_TEST(LibraryObjectTest, NullStaysNull) {
  EXPECT_EQ(Adopt<TypeParam>(nullptr), nullptr);
  EXPECT_EQ(Pass(CefRefPtr<TypeParam>()), nullptr);
}

TYPED_TEST(LibraryObjectTest, TwoAdoptionsOfOneObjectAreIndependent) {
  auto first = Adopt<TypeParam>(this->fake_.Give());
  const auto second = Adopt<TypeParam>(this->fake_.Give());
  EXPECT_NE(first, second);
  EXPECT_EQ(this->fake_->references(), 3);
  first = nullptr;
  EXPECT_EQ(this->fake_->references(), 2);
}

TYPED_TEST(LibraryObjectTest, TheLastReferenceMayGoOnAnotherThread) {
  auto object = Adopt<TypeParam>(this->fake_.Give());
  auto copy = object;
  std::thread other([moved = std::move(object)]() mutable { moved = nullptr; });
  copy = nullptr;
  other.join();
  EXPECT_EQ(this->fake_->references(), 1);
}

}  // namespace
