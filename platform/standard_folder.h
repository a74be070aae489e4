#pragma once

#include <string>

namespace platform {

// The users of a folder: all users of the machine, or only the effective user of the process.
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
// Returns false, and leaves `path` unchanged, for a blank cell of the table, when the folder cannot
// be created or is not a folder, when the system does not report the user's home, and when the path
// has 1024 bytes or more or is not UTF-8. Any thread and several processes may call it at once,
// while no thread changes the process's environment.
//
// On Linux, <home> is the path of GetHomeFolder(), which must be absolute. A missing home is
// created with mode 0700, but its parents are not.
bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path);

}  // namespace platform
