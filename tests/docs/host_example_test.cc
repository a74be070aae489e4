// What README.md shows of a suite's browser process, as it stands there.

#include <gtest/gtest.h>

#include "include/cef_app.h"
#include "include/cef_command_line.h"

namespace {

class ExampleApp : public CefApp {
 public:
  void OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                     CefRefPtr<CefCommandLine> command_line) override {
#include "host_switch.inc"
  }

 private:
  IMPLEMENT_REFCOUNTING(ExampleApp)
};

TEST(HostExampleTest, SettingsNameTheHelperAndTheResources) {
#include "host_settings.inc"
  EXPECT_EQ(settings.no_sandbox, 1);
  EXPECT_EQ(CefString(&settings.browser_subprocess_path).ToString(), "/opt/suite/bin/HexHelper");
  EXPECT_EQ(CefString(&settings.resources_dir_path).ToString(), "/opt/suite/CEF");
  EXPECT_EQ(CefString(&settings.locales_dir_path).ToString(), "/opt/suite/CEF/locales");
}

TEST(HostExampleTest, SwitchReachesChromiumsCommandLine) {
  CefRefPtr<CefCommandLine> command_line = CefCommandLine::CreateCommandLine();
  CefRefPtr<CefApp> application(new ExampleApp);
  application->OnBeforeCommandLineProcessing("", command_line);
  EXPECT_TRUE(command_line->HasSwitch("no-zygote"));
}

}  // namespace
