#include <gtest/gtest.h>
#include <cstdlib>

#include "include/cef_app.h"
#include "support/fake_cef/fake_cef_test.h"

namespace {

class ApiHashTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    // Exits with a status that no test expects.
    fake_cef::library().child_process = [](const cef_main_args_t&, cef_app_t&) {
      std::_Exit(77);
      return 0;
    };
  }

  const CefMainArgs arguments_{0, nullptr};
};
using ApiHashDeathTest = ApiHashTest;

TEST_F(ApiHashDeathTest, ChildProcessExitsWithOtherLibrary) {
  fake_cef::library().api_hash = "b0a24e3e202f3d8b72f2fbc1ebc5864f96ec16ae";
  EXPECT_EXIT(CefExecuteProcess(arguments_, nullptr, nullptr), testing::ExitedWithCode(1),
              "branch 2987.*b0a24e3e202f3d8b72f2fbc1ebc5864f96ec16ae.*"
              "1f9f9e15bf7cf13de2557ddd411dfc9f694503b0");
}

TEST_F(ApiHashDeathTest, BrowserProcessExitsWithOtherLibrary) {
  fake_cef::library().api_hash = "1f9f9e15bf7cf13de2557ddd411dfc9f694503b";
  EXPECT_EXIT(CefInitialize(arguments_, CefSettings(), nullptr, nullptr),
              testing::ExitedWithCode(1), "branch 2987");
}

TEST_F(ApiHashDeathTest, ChildProcessExitsWhenLibraryHasNoHash) {
  fake_cef::library().api_hash = nullptr;
  EXPECT_EXIT(CefExecuteProcess(arguments_, nullptr, nullptr), testing::ExitedWithCode(1),
              "missing");
}

}  // namespace
