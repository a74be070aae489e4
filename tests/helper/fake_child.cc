// Forms, with the helper's own main() and the fake CEF, a helper that main_test.cc controls by
// environment variables. The fake CEF requests switches, as in every child process, prints each of
// them on a line, and returns FAKE_CEF_RESULT. FAKE_APPLICATION_SUPPORT is the machine's folder for
// application support.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "include/internal/cef_string.h"
#include "platform/standard_folder.h"
#include "support/fake_cef/fake_library.h"

namespace platform {

// Replaces the system's function. There are no other folders, and therefore no installed suite.
bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path) {
  const char* const folder = std::getenv("FAKE_APPLICATION_SUPPORT");
  if (!folder || domain != FolderDomain::kLocal || type != FolderType::kApplicationSupport) {
    return false;
  }
  path = folder;
  return true;
}

}  // namespace platform

namespace {

int RunChild(const cef_main_args_t& /*arguments*/, cef_app_t& application) {
  const auto line = fake_cef::Make<fake_cef::FakeCommandLine>();
  const CefString process_type;
  application.on_before_command_line_processing(&application, process_type.GetStruct(),
                                                line.Give());
  for (const std::string& name : line->switches)
    std::printf("%s\n", name.c_str());
  const char* const result = std::getenv("FAKE_CEF_RESULT");
  return result ? static_cast<int>(std::strtol(result, nullptr, 10)) : -1;
}

[[maybe_unused]] const bool g_has_child = [] {
  fake_cef::library().child_process = RunChild;
  return true;
}();

}  // namespace
