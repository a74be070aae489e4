#pragma once

#include <string>

namespace platform {

// The owner of a folder: all users of the machine, or the effective user of the process.
enum class FolderDomain { kLocal, kUser };

enum class FolderType {
  kApplications,
  kApplicationSupport,
  kDocuments,
  kSharedUserData,
  kPreferences,
  kUtilities,
};

// Reports the folder of a type in a domain, and creates its missing parts. On a standard system:
//
//   type                | local                        | user
//   kApplications       | /Applications                |
//   kApplicationSupport | /Library/Application Support | <home>/Library/Application Support
//   kDocuments          |                              | <home>/Documents
//   kSharedUserData     | /Users/Shared                |
//   kPreferences        | /Library/Preferences         |
//   kUtilities          | /Applications/Utilities      |
//
// `path` is absolute, in UTF-8 and without a slash at its end. Created folders have these modes,
// regardless of the file mode mask: 0755 for local folders, 1777 for the folder of shared user
// data, 0700 for folders in a home. Existing folders keep their mode.
//
// Returns false, and leaves `path` unchanged, for a pair without a folder, when the folder cannot
// be created or is not a folder, when the user has no home, and when the path has 1024 bytes or
// more or is not UTF-8. Any thread and several processes may call it at once.
bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path);

}  // namespace platform
