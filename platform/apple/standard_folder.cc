#include "platform/standard_folder.h"

#include <CoreServices/CoreServices.h>

#include "platform/shared/text_encoding.h"

namespace platform {
namespace {

// The size of the buffer for a path and its NUL.
constexpr std::size_t kPathBufferSize = 1024;

struct Folder {
  FolderDomain domain;
  FolderType type;
  FSVolumeRefNum system_domain;
  OSType system_type;
};

constexpr Folder kFolders[] = {
    {FolderDomain::kLocal, FolderType::kApplications, kLocalDomain, kApplicationsFolderType},
    {FolderDomain::kLocal, FolderType::kApplicationSupport, kLocalDomain,
     kApplicationSupportFolderType},
    {FolderDomain::kLocal, FolderType::kSharedUserData, kLocalDomain, kSharedUserDataFolderType},
    {FolderDomain::kLocal, FolderType::kPreferences, kLocalDomain, kPreferencesFolderType},
    {FolderDomain::kLocal, FolderType::kUtilities, kLocalDomain, kUtilitiesFolderType},
    {FolderDomain::kUser, FolderType::kApplicationSupport, kUserDomain,
     kApplicationSupportFolderType},
    {FolderDomain::kUser, FolderType::kDocuments, kUserDomain, kDocumentsFolderType},
};

const Folder* Find(FolderDomain domain, FolderType type) {
  for (const Folder& folder : kFolders) {
    if (folder.domain == domain && folder.type == type) return &folder;
  }
  return nullptr;
}

}  // namespace

bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path) {
  const Folder* const folder = Find(domain, type);
  if (!folder) return false;
  FSRef reference;
  if (FSFindFolder(folder->system_domain, folder->system_type, kCreateFolder, &reference) !=
      noErr) {
    return false;
  }
  UInt8 text[kPathBufferSize];
  if (FSRefMakePath(&reference, text, kPathBufferSize) != noErr) return false;
  const std::string found = reinterpret_cast<const char*>(text);
  if (!IsUtf8(found)) return false;
  path = found;
  return true;
}

}  // namespace platform
