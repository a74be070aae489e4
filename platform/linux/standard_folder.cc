#include "platform/standard_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/home_folder.h"
#include "platform/shared/text_encoding.h"

namespace platform {
namespace {

// The same limit as on macOS: the size of a path's buffer, including the NUL.
constexpr std::size_t kPathBufferSize = 1024;

struct Folder {
  FolderDomain domain;
  FolderType type;
  // Relative to the root, or to a user's home.
  const char* parent;  // null when `path` has one component
  const char* path;
  mode_t mode;
};

constexpr Folder kFolders[] = {
    {FolderDomain::kLocal, FolderType::kApplications, nullptr, "/Applications", 0755},
    {FolderDomain::kLocal, FolderType::kApplicationSupport, "/Library",
     "/Library/Application Support", 0755},
    {FolderDomain::kLocal, FolderType::kSharedUserData, "/Users", "/Users/Shared", 01777},
    {FolderDomain::kLocal, FolderType::kPreferences, "/Library", "/Library/Preferences", 0755},
    {FolderDomain::kLocal, FolderType::kUtilities, "/Applications", "/Applications/Utilities",
     0755},
    {FolderDomain::kUser, FolderType::kApplicationSupport, "/Library",
     "/Library/Application Support", 0700},
    {FolderDomain::kUser, FolderType::kDocuments, nullptr, "/Documents", 0700},
};

const Folder* Find(FolderDomain domain, FolderType type) {
  for (const Folder& folder : kFolders) {
    if (folder.domain == domain && folder.type == type) return &folder;
  }
  return nullptr;
}

bool IsFolder(const std::string& path) {
  struct stat attributes {};
  return stat(path.c_str(), &attributes) == 0 && S_ISDIR(attributes.st_mode);
}

// Restores the bits that the file mode mask removed from the new folder at `path`. Touches nothing
// else that may have replaced that folder, and follows no link.
void SetMode(const std::string& path, mode_t mode) {
  const FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat attributes {};
  if (folder.is_open() && fstat(folder.number(), &attributes) == 0 &&
      attributes.st_uid == geteuid()) {
    fchmod(folder.number(), mode);
  }
}

bool Create(const std::string& path, mode_t mode) {
  if (mkdir(path.c_str(), mode) != 0) return IsFolder(path);
  SetMode(path, mode);
  return true;
}

// Reports the prefix of a domain's paths: empty for the root, or the user's home.
bool GetBase(FolderDomain domain, std::string& base) {
  base.clear();
  if (domain == FolderDomain::kLocal) return true;
  if (!GetHomeFolder(base) || base.front() != '/') return false;
  if (base == "/") base.clear();
  return true;
}

}  // namespace

bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path) {
  const Folder* const folder = Find(domain, type);
  std::string base;
  if (!folder || !GetBase(domain, base)) return false;
  const std::string found = base + folder->path;
  if (found.size() >= kPathBufferSize || !IsUtf8(found)) return false;
  if (!base.empty() && !Create(base, 0700)) return false;  // the home itself
  const mode_t parent_mode = domain == FolderDomain::kLocal ? 0755 : 0700;
  if (folder->parent && !Create(base + folder->parent, parent_mode)) return false;
  if (!Create(found, folder->mode)) return false;
  path = found;
  return true;
}

}  // namespace platform
