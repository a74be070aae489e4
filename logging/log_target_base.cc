#include "logging/log_target_base.h"

#include <sys/stat.h>
#include <unistd.h>

#include "logging/file_utils.h"
#include "logging/folder_utils.h"
#include "logging/path_utils.h"
#include "platform/console_user.h"

namespace tarn {
namespace {

// Gives the folder to the console user, although another user's process created it, and opens it to
// every process of the suite. Ignores failures, because the folder still serves its creator.
void ShareFolder(const std::string& path, uid_t user, gid_t group) {
  const bool given = chown(path.c_str(), user, group) == 0;
  const bool opened = chmod(path.c_str(), 0777) == 0;
  static_cast<void>(given && opened);
}

void CreateSharedLogFolder(const std::string& parent, const std::string& folder) {
  if (!createDirectoryPath(folder)) return;  // opening the file reports the failure
  uid_t user = 0;
  gid_t group = 0;
  if (!platform::GetConsoleUser(user, group)) return;
  ShareFolder(parent, user, group);
  ShareFolder(folder, user, group);
}

// Sets `level` to the level that the marker file NAME.trace or NAME.debug selects. `path` is the
// path of either marker or of the log itself. Returns false when there is no marker or the path
// cannot be built.
bool LevelOfMarkers(std::string path, Log_Level requested, Log_Level& level) {
  if (!changeFileExtension(path, "trace")) return false;
  if (fileExistsAtPath(path)) {
    level = TRACE;
    return true;
  }
  if (!changeFileExtension(path, "debug") || !fileExistsAtPath(path)) return false;
  level = requested > DEBUG ? DEBUG : requested;
  return true;
}

}  // namespace

LogTargetBase::LogTargetBase() { setLogLevel(kDefaultLogLevel); }

LogTargetBase::~LogTargetBase() { ref_count_ = 0; }

bool LogTargetBase::setIdentifier(const char* id) {
  if (!id) return false;
  identifier_ = id;
  return true;
}

void LogTargetBase::setLogLevel(Log_Level level) {
  level_ = level;
  // A missing folder has no markers. A target with a folder of its own must not create the folder
  // in the home.
  std::string folder;
  if (!findLogFolder(folder)) return;
  std::string own = folder;
  std::string shared = folder;
  if (!appendPath(own, file_name_) || !appendPath(shared, "pvx.trace")) return;
  if (!LevelOfMarkers(own, level, level_)) LevelOfMarkers(shared, level, level_);
}

bool LogTargetBase::setLogFile(const char* fileName, const char* folder) {
  valid_ = false;
  std::string path;
  if (!FindLogFolder(folder, path)) return false;
  const bool named = fileName && *fileName;
  if (named && !isFileName(fileName)) return false;
  if (!appendPath(path, named ? fileName : file_name_)) return false;
  file_path_ = path;
  getFilePathBaseName(path, file_name_);
  if (registered_) {
    valid_ = SetStreamHandle(stream_);
  } else {
    std::fstream probe;  // only checks that the file can be created
    valid_ = SetStreamHandle(probe);
  }
  return valid_;
}

bool LogTargetBase::FindLogFolder(const char* folder, std::string& path) const {
  if (folder && *folder) {
    path = folder;
    return true;
  }
  std::string logs;
  if (!getTempPath(logs)) return false;
  path = logs + "/Cirrane/CRN";
  if (!folderExitsAtPath(path)) CreateSharedLogFolder(logs + "/Cirrane", path);
  return true;
}

void LogTargetBase::incrementRefCount() {
  const platform::MutexLock lock(ref_mutex_);
  ++ref_count_;
}

void LogTargetBase::decrementRefCount() {
  const platform::MutexLock lock(ref_mutex_);
  --ref_count_;
}

}  // namespace tarn
