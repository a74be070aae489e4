#include "logging/folder_utils.h"

#include <sys/stat.h>

#include "logging/file_utils.h"
#include "logging/path_utils.h"
#include "platform/console_user.h"
#include "platform/effective_user.h"
#include "platform/home_folder.h"

namespace tarn {
namespace {

// Returns true if the folder already exists.
bool CreateFolder(const std::string& path, mode_t mode) {
  if (mkdir(path.c_str(), mode) == 0) return true;
  return folderExitsAtPath(path);
}

// Calls `find` with the identity of the user at the console, or with that of this process when no
// user is at the console. Returns false if `find` fails or the identity cannot be changed.
bool AsConsoleUser(bool (*find)(std::string&), std::string& out) {
  uid_t user = 0;
  gid_t group = 0;
  if (!platform::GetConsoleUser(user, group)) return find(out);
  const platform::EffectiveUser console_user(user);
  return console_user.borrowed() && find(out);
}

}  // namespace

bool getUserFolderPath(std::string& out) {
  if (platform::GetHomeFolder(out)) CreateFolder(out, 0700);
  return true;
}

bool getUserFolder(std::string& out) { return AsConsoleUser(getUserFolderPath, out); }

bool getTempPath(std::string& out) {
  std::string library;
  // An empty home folder would lead to the folders of the whole system.
  if (!getUserFolder(library) || library.empty()) return false;
  appendPath(library, "Library");
  const std::string logs = library + "/Logs";
  if (!CreateFolder(library, 0700) || !CreateFolder(logs, 0700)) return false;
  out = logs;
  return true;
}

bool findLogFolder(std::string& out) {
  std::string path;
  if (!AsConsoleUser(platform::GetHomeFolder, path)) return false;
  appendPath(path, "Library");
  appendPath(path, "Logs");
  out = path;
  return true;
}

bool createDirectoryPath(const std::string& path) {
  if (path.empty()) return false;
  for (std::size_t end = path.find('/', 1); end != std::string::npos;
       end = path.find('/', end + 1)) {
    if (!CreateFolder(path.substr(0, end), 0777)) return false;
  }
  return CreateFolder(path, 0777);
}

}  // namespace tarn
