// Tests the reference to the library's object that each wrapper owns. All classes share one
// template, so one class stands for all of them.

#include <gtest/gtest.h>
#include <thread>
#include <utility>

#include "include/cef_browser.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

using cef_binding::Adopt;
using cef_binding::Pass;
using fake_cef::Make;
using fake_cef::Own;
using fake_cef::PlainObject;

class LibraryObjectTest : public fake_cef::FakeCefTest {
 protected:
  using Fake = PlainObject<cef_browser_t>;

  void TearDown() override {
    EXPECT_EQ(fake_->references(), 1);
    fake_ = nullptr;
    FakeCefTest::TearDown();
  }

  Own<Fake> fake_ = Make<Fake>();
};

TEST_F(LibraryObjectTest, AdoptTakesOverReference) {
  auto object = Adopt<CefBrowser>(fake_.Give());
  EXPECT_EQ(fake_->references(), 2);
  object = nullptr;
  EXPECT_EQ(fake_->references(), 1);
}

TEST_F(LibraryObjectTest, CopiesAddNoLibraryReference) {
  auto object = Adopt<CefBrowser>(fake_.Give());
  EXPECT_TRUE(object->HasOneRef());
  auto copy = object;
  EXPECT_FALSE(object->HasOneRef());
  EXPECT_EQ(fake_->references(), 2);
  object = nullptr;
  EXPECT_EQ(fake_->references(), 2);
  EXPECT_TRUE(copy->HasOneRef());
  copy = nullptr;
  EXPECT_EQ(fake_->references(), 1);
}

TEST_F(LibraryObjectTest, PassedReferenceOutlivesWrapper) {
  auto object = Adopt<CefBrowser>(fake_.Give());
  auto callee = Own<cef_browser_t>::Take(Pass(object));
  EXPECT_EQ(callee.get(), fake_.get());
  EXPECT_EQ(fake_->references(), 3);
  object = nullptr;
  EXPECT_EQ(fake_->references(), 2);
  callee = nullptr;
  EXPECT_EQ(fake_->references(), 1);
}

TEST_F(LibraryObjectTest, KeepsNull) {
  EXPECT_EQ(Adopt<CefBrowser>(nullptr), nullptr);
  EXPECT_EQ(Pass(CefRefPtr<CefBrowser>()), nullptr);
}

TEST_F(LibraryObjectTest, AdoptsSameObjectTwiceIndependently) {
  auto first = Adopt<CefBrowser>(fake_.Give());
  const auto second = Adopt<CefBrowser>(fake_.Give());
  EXPECT_NE(first, second);
  EXPECT_EQ(fake_->references(), 3);
  first = nullptr;
  EXPECT_EQ(fake_->references(), 2);
}

TEST_F(LibraryObjectTest, SupportsLastReleaseOnOtherThread) {
  auto object = Adopt<CefBrowser>(fake_.Give());
  auto copy = object;
  std::thread other([moved = std::move(object)]() mutable { moved = nullptr; });
  copy = nullptr;
  other.join();
  EXPECT_EQ(fake_->references(), 1);
}

}  // namespace
