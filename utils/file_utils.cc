#include "utils/file_utils.h"

#include <sys/stat.h>
#include <cstdio>
#include <optional>

#include "platform/console_user.h"
#include "platform/effective_user.h"
#include "platform/home_folder.h"
#include "platform/program_path.h"
#include "platform/property_list.h"
#include "platform/standard_folder.h"
#include "platform/text_file.h"

namespace TarnUtils {
namespace {

using platform::FolderDomain;
using platform::FolderType;

enum class Identity { kOwn, kConsoleUser };

// The meaning of a kind's result.
enum class Result { kOfLookUp, kAlwaysTrue };

// A folder of the system and the suffix that a kind appends.
struct Directory {
  FileUtils::PathType kind;
  FolderDomain domain;
  FolderType type;
  Identity identity;
  const char* suffix;
  Result result;
};

constexpr Directory Local(FileUtils::PathType kind, FolderType type, const char* suffix,
                          Result result) {
  return {kind, FolderDomain::kLocal, type, Identity::kOwn, suffix, result};
}

constexpr Directory OfConsoleUser(FileUtils::PathType kind, FolderType type, const char* suffix) {
  return {kind, FolderDomain::kUser, type, Identity::kConsoleUser, suffix, Result::kAlwaysTrue};
}

constexpr FolderType kSupport = FolderType::kApplicationSupport;
constexpr FolderType kShared = FolderType::kSharedUserData;
constexpr FolderType kUtilities = FolderType::kUtilities;
constexpr Result kTrue = Result::kAlwaysTrue;

constexpr Directory kDirectories[] = {
    Local(FileUtils::LocalApplications, FolderType::kApplications, "", Result::kOfLookUp),
    Local(FileUtils::LocalApplicationSupport, kSupport, "", Result::kOfLookUp),
    Local(FileUtils::LocalApplicationSupportShared, kSupport, "", Result::kOfLookUp),
    OfConsoleUser(FileUtils::ConsoleUserDocuments, FolderType::kDocuments, ""),
    OfConsoleUser(FileUtils::ConsoleUserApplicationSupport, kSupport, ""),
    Local(FileUtils::SharedUserData, kShared, "", kTrue),
    Local(FileUtils::VelmoraLocalSupport, kSupport, "/Velmora", kTrue),
    OfConsoleUser(FileUtils::VelmoraUserSupport, kSupport, "/Velmora"),
    Local(FileUtils::VelmoraSharedData, kShared, "/Velmora", kTrue),
    Local(FileUtils::TarnLocalSupport, kSupport, "/Velmora/TARN", kTrue),
    OfConsoleUser(FileUtils::TarnUserSupport, kSupport, "/Velmora/TARN"),
    Local(FileUtils::TarnSharedData, kShared, "/Velmora/TARN", kTrue),
    Local(FileUtils::PackageKeeperUtilities, kUtilities, "/Velmora Package Keeper/", kTrue),
    Local(FileUtils::SprigLocalSupport, kSupport, "/Velmora/TARN/Sprig", kTrue),
    OfConsoleUser(FileUtils::SprigUserSupport, kSupport, "/Velmora/TARN/Sprig"),
    Local(FileUtils::PackageKeeperRefs, kSupport, "/Velmora/VelmoraPackageKeeper/VPKRefs", kTrue),
    Local(FileUtils::SharedRuntimeRefs, kSupport, "/Velmora/VSRRefs", kTrue),
    Local(FileUtils::SharedRuntime, kSupport, "/Velmora/Velmora Shared Runtime", kTrue),
    Local(FileUtils::CirraneUtilities, kUtilities, "/Velmora Cirrane/", kTrue),
    Local(FileUtils::LocalPreferences, FolderType::kPreferences, "", Result::kOfLookUp),
};

// Takes the identity of the console user. The process's own identity stays when there is no such
// user, or when the process may not take that user's identity.
void ActAsConsoleUser(std::optional<platform::EffectiveUser>& scope) {
  uid_t user = 0;
  gid_t group = 0;
  if (platform::GetConsoleUser(user, group)) scope.emplace(user);
}

bool LookUp(const Directory& directory, std::string& path) {
  std::optional<platform::EffectiveUser> scope;
  if (directory.identity == Identity::kConsoleUser) ActAsConsoleUser(scope);
  return platform::GetStandardFolder(directory.domain, directory.type, path);
}

bool GetStandardDirectory(FileUtils::PathType kind, std::string& path) {
  for (const Directory& directory : kDirectories) {
    if (directory.kind != kind) continue;
    const bool found = LookUp(directory, path);
    path += directory.suffix;
    return found || directory.result == Result::kAlwaysTrue;
  }
  return false;
}

// Creates a folder with access for the user alone. Returns true if the folder already exists.
bool CreateFolder(const char* path) {
  if (mkdir(path, 0700) == 0) return true;
  struct stat attributes {};
  return stat(path, &attributes) == 0 && S_ISDIR(attributes.st_mode);
}

// Refuses a path that does not fit: truncated, it would be that of another folder.
bool GetConsoleUserLogs(std::string& path) {
  std::optional<platform::EffectiveUser> scope;
  ActAsConsoleUser(scope);
  std::string home;
  if (!platform::GetHomeFolder(home)) return false;
  if (home == "/") home.clear();
  for (const char* const folder : {"/Library", "/Library/Logs"}) {
    char text[512];
    const int size = std::snprintf(text, sizeof text, "%s%s", home.c_str(), folder);
    if (size < 0 || static_cast<std::size_t>(size) >= sizeof text || !CreateFolder(text)) {
      return false;
    }
  }
  path = home + "/Library/Logs";
  return true;
}

// Removes the last component of an absolute path, which has no slash at its end.
std::string ParentFolder(const std::string& path) {
  const std::size_t end = path.find_last_not_of('/', path.rfind('/'));
  return end == std::string::npos ? "/" : path.substr(0, end + 1);
}

// For a program outside of any bundle, the system reports the program's folder as its bundle.
bool GetProgramLocation(std::string& path) {
  platform::ProgramPath program;
  if (!platform::GetProgramPath(program)) return false;
  path = program.bundle == program.folder ? program.executable : program.bundle;
  return true;
}

bool GetProgramParent(std::string& path) {
  std::string location;
  if (!GetProgramLocation(location)) return false;
  path = ParentFolder(location);
  return true;
}

}  // namespace

bool FileUtils::GetDirectoryPath(PathType kind, std::string& path, void* /*context*/) {
  switch (kind) {
    case UserHome:
      platform::GetHomeFolder(path);
      return true;
    case Temporary:
      path = "/tmp";
      return true;
    case ProgramLocation:
      GetProgramLocation(path);
      return true;
    case ProgramParent:
      GetProgramParent(path);
      return true;
    case ConsoleUserLogs:
      return GetConsoleUserLogs(path);
    default:
      return GetStandardDirectory(kind, path);
  }
}

bool FileUtils::AppendPath(std::string& path, const std::string& component, void* /*context*/) {
  if (path.empty() || component.empty()) return false;
  const std::size_t first = component.find_first_not_of('/');
  // Copies the rest, because `path` and `component` may be the same object.
  const std::string rest = first == std::string::npos ? "" : component.substr(first);
  if (path.back() != '/') path += '/';
  path += rest;
  return true;
}

bool FileUtils::PathExists(const std::string& path, void* /*context*/) {
  struct stat attributes {};
  return stat(path.c_str(), &attributes) == 0;
}

bool FileUtils::LoadContentOfFileAtPath(const std::string& path, std::string& content,
                                        void* context) {
  return PathExists(path, context) && platform::ReadTextFile(path, content);
}

bool FileUtils::getApplicationVersion(std::string applicationPath, std::string& version) {
  return AppendPath(applicationPath, "/Contents/Info.plist", nullptr) &&
         PathExists(applicationPath, nullptr) &&
         platform::ReadPropertyListText(applicationPath, "CFBundleShortVersionString", version);
}

}  // namespace TarnUtils
