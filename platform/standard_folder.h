#pragma once

#include <string>

namespace platform {

// Whose folder: the one that all users of the machine share, or the one of the user whose identity
// the process has at the moment (the effective user).
enum class FolderDomain { kLocal, kUser };

enum class FolderType {
  kApplications,
  kApplicationSupport,
  kDocuments,
  kSharedUserData,
  kPreferences,
  kUtilities,
};

// Where a standard system keeps the folder of a type:
//
//   type                | local                        | user
//   kApplications       | /Applications                |
//   kApplicationSupport | /Library/Application Support | <home>/Library/Application Support
//   kDocuments          |                              | <home>/Documents
//   kSharedUserData     | /Users/Shared                |
//   kPreferences        | /Library/Preferences         |
//   kUtilities          | /Applications/Utilities      |
//
// `path` is absolute, in UTF-8 and without a slash at its end. What is missing of it is created,
// whatever the file mode mask: local folders are open for everyone to look (0755), of those the one
// of shared user data for everyone to write, with the sticky bit (1777); those in a home are the
// user's alone (0700). What exists keeps its mode.
//
// False, with `path` as it was, for a pair without a folder, when the folder cannot be created or
// is none, when the user has no home, and for a path of 1024 bytes or more or not in UTF-8. Any
// thread may call it, and so may several processes at once.
bool GetStandardFolder(FolderDomain domain, FolderType type, std::string& path);

}  // namespace platform
