#include "examples/suite_host/installation.h"

#include <unistd.h>

#include "examples/suite_host/paths.h"

namespace {

// Chromium looks for these in the folder of each executable.
constexpr const char* kBesideExecutables[] = {"icudtl.dat", "natives_blob.bin",
                                              "snapshot_blob.bin"};
constexpr const char* kResources[] = {"cef.pak", "cef_100_percent.pak", "cef_200_percent.pak",
                                      "cef_extensions.pak", "locales/en-US.pak"};
constexpr const char* kDevtoolsResources = "devtools_resources.pak";

bool CanRead(const std::string& folder, const char* file, std::string& error) {
  if (access((folder + "/" + file).c_str(), R_OK) == 0) return true;
  error = "cannot read " + std::string(file) + ", which is expected in " + folder;
  return false;
}

bool HasDataFiles(const std::string& folder, std::string& error) {
  for (const char* file : kBesideExecutables) {
    if (!CanRead(folder, file, error)) return false;
  }
  return true;
}

bool HasResources(const std::string& folder, const Options& options, std::string& error) {
  for (const char* file : kResources) {
    if (!CanRead(folder, file, error)) return false;
  }
  return !options.devtools_port || CanRead(folder, kDevtoolsResources, error);
}

}  // namespace

bool FindInstallation(const Options& options, Installation& installation, std::string& error) {
  const std::string folder = FolderOf(AbsolutePath("/proc/self/exe"));
  installation.cef_folder = AbsolutePath(folder + "/../CEF");
  installation.helper =
      options.helper.empty() ? AbsolutePath(folder + "/HexHelper") : options.helper;
  if (installation.cef_folder.empty()) {
    error = "cannot find the folder CEF, which is expected in " + FolderOf(folder);
  } else if (!IsProgram(installation.helper)) {
    error = "cannot execute HexHelper, which is expected in " + folder;
  }
  // A helper from the command line can be a script that starts another helper.
  const bool is_default = options.helper.empty();
  return error.empty() && HasDataFiles(folder, error) &&
         (!is_default || HasDataFiles(FolderOf(installation.helper), error)) &&
         HasResources(installation.cef_folder, options, error);
}
