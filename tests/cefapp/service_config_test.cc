#include <gmock/gmock.h>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "cefapp/cef_app_handler.h"
#include "platform/standard_folder.h"
#include "support/fake_cef/fake_cef_test.h"
#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

// Stands for the machine's folder for application support. The system has no such folder if empty.
std::string g_application_support;

}  // namespace

namespace platform {

// Replaces the system's function in all tests of this program.
bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path) {
  EXPECT_EQ(domain, FolderDomain::kLocal);
  EXPECT_EQ(type, FolderType::kApplicationSupport);
  if (g_application_support.empty()) return false;
  path = g_application_support;
  return true;
}

}  // namespace platform

namespace {

using fake_cef::FakeCommandLine;
using fake_cef::library;
using fake_cef::Make;
using testing::ElementsAre;
using testing::Pair;

class ServiceConfigTest : public fake_cef::FakeCefTest {
 protected:
  void SetUp() override {
    FakeCefTest::SetUp();
    g_application_support = folder_.path();
    std::filesystem::create_directories(folder_.path() + "/Velmora/TARN/Configs");
  }
  void TearDown() override {
    g_application_support.clear();
    FakeCefTest::TearDown();
  }

  void Configure(const std::string& content) const { WriteFile(file_, content); }

  // Writes a configuration with `elements` inside config/CEF.
  void ConfigureWith(const std::string& elements) const {
    Configure("<config><CEF>" + elements + "</CEF></config>");
  }

  // Returns the switches that a process of `type` adds to its command line.
  static std::vector<std::string> Switches(const char* type = "renderer") {
    const auto line = Make<FakeCommandLine>();
    const CefString process_type(type);
    library().child_process = [&](const cef_main_args_t&, cef_app_t& app) {
      app.on_before_command_line_processing(&app, process_type.GetStruct(), line.Give());
      return 0;
    };
    CefExecuteProcess(CefMainArgs(0, nullptr), new CEFAppHandler, nullptr);
    library().child_process = nullptr;
    return line->switches;
  }

  const TemporaryFolder folder_;
  const std::string file_ = folder_.path() + "/Velmora/TARN/Configs/ServiceConfig.xml";
};

TEST_F(ServiceConfigTest, DisablesOnlyPinchWithoutFile) {
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch"));
  g_application_support.clear();
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch"));
}

TEST_F(ServiceConfigTest, AddsBothListsAfterPinchInEveryProcess) {
  ConfigureWith(
      "<AuthNegotiateDelegateWhitelist>*.b.example</AuthNegotiateDelegateWhitelist>"
      "<AuthServerWhitelist>*.a.example,\n c</AuthServerWhitelist>");
  for (const char* const type : {"", "renderer", "gpu-process", "utility"}) {
    EXPECT_THAT(Switches(type),
                ElementsAre("disable-pinch", "auth-server-whitelist=*.a.example,\n c",
                            "auth-negotiate-delegate-whitelist=*.b.example"));
  }
}

TEST_F(ServiceConfigTest, AddsOneListIfOtherIsMissing) {
  ConfigureWith("<AuthNegotiateDelegateWhitelist>b</AuthNegotiateDelegateWhitelist>");
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch", "auth-negotiate-delegate-whitelist=b"));
  ConfigureWith("<AuthServerWhitelist>a</AuthServerWhitelist>");
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch", "auth-server-whitelist=a"));
}

TEST_F(ServiceConfigTest, IgnoresEmptyElements) {
  ConfigureWith(
      "<AuthServerWhitelist/><AuthNegotiateDelegateWhitelist>"
      "</AuthNegotiateDelegateWhitelist>");
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch"));
}

TEST_F(ServiceConfigTest, KeepsWhitespace) {
  ConfigureWith("<AuthServerWhitelist> </AuthServerWhitelist>");
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch", "auth-server-whitelist= "));
}

TEST_F(ServiceConfigTest, KeepsUnicode) {
  ConfigureWith("<AuthServerWhitelist>b\u00fccher.example</AuthServerWhitelist>");
  EXPECT_THAT(Switches(),
              ElementsAre("disable-pinch", "auth-server-whitelist=b\u00fccher.example"));
}

TEST_F(ServiceConfigTest, IgnoresElementsElsewhere) {
  Configure(
      "<config><AuthServerWhitelist>a</AuthServerWhitelist><cef>"
      "<AuthServerWhitelist>b</AuthServerWhitelist></cef></config>");
  EXPECT_THAT(Switches(), ElementsAre("disable-pinch"));
}

TEST_F(ServiceConfigTest, IgnoresInvalidXml) {
  for (const char* const content : {"", "no XML", "<config><CEF>", "\xff\xfe\xff"}) {
    Configure(content);
    EXPECT_THAT(Switches(), ElementsAre("disable-pinch")) << content;
  }
}

TEST_F(ServiceConfigTest, KeepsSettingsWithoutFile) {
  std::map<std::string, std::string> settings = {{"AuthServerWhitelist", "before"}, {"x", "y"}};
  CEFAppHandler::readServiceConfig(settings);
  EXPECT_THAT(settings, ElementsAre(Pair("AuthServerWhitelist", "before"), Pair("x", "y")));
}

TEST_F(ServiceConfigTest, ErasesSettingsMissingInFile) {
  ConfigureWith("<AuthNegotiateDelegateWhitelist/>");
  std::map<std::string, std::string> settings = {{"AuthServerWhitelist", "before"}, {"x", "y"}};
  CEFAppHandler::readServiceConfig(settings);
  EXPECT_THAT(settings, ElementsAre(Pair("AuthNegotiateDelegateWhitelist", ""), Pair("x", "y")));
}

}  // namespace
