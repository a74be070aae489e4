#pragma once

#include <string>

namespace TarnUtils {

// Finds the suite's folders on this machine, and reads its files. Paths and texts are UTF-8, except
// that on Linux the paths of the user's home and of the program can have any encoding. No operation
// logs, or throws anything but std::bad_alloc. The parameter `context` is unused; callers pass
// null.
//
// Any thread may call the operations while no thread changes the process's environment, with one
// exception: the kinds of folders of the console user, which are 10, 12, 19, 22, 26 and 32, give
// that user's identity to the whole process during the look-up. No two of these look-ups may run at
// once, and other threads act under that identity during a look-up. If the process cannot return to
// its own identity, it aborts, after a line to standard error.
class FileUtils {
 public:
  // Kinds of folders. Numbers that are missing here belong to unused kinds, which
  // GetDirectoryPath() rejects. "Local" folders are shared by all users: on a standard system,
  // LocalApplicationSupport is "/Library/Application Support".
  enum PathType : int {
    LocalApplications = 0,
    LocalApplicationSupport = 2,
    LocalApplicationSupportShared = 3,  // the same as 2
    UserHome = 9,
    ConsoleUserDocuments = 10,
    ConsoleUserApplicationSupport = 12,
    SharedUserData = 13,
    Temporary = 15,
    ProgramLocation = 16,  // the program's bundle, or its executable outside of a bundle
    ProgramParent = 17,    // the folder that contains ProgramLocation
    VelmoraLocalSupport = 18,
    VelmoraUserSupport = 19,
    VelmoraSharedData = 20,
    TarnLocalSupport = 21,
    TarnUserSupport = 22,
    TarnSharedData = 23,
    PackageKeeperUtilities = 24,  // ends in a slash
    SprigLocalSupport = 25,
    SprigUserSupport = 26,
    PackageKeeperRefs = 27,
    SharedRuntimeRefs = 28,
    SharedRuntime = 29,
    CirraneUtilities = 30,  // ends in a slash
    LocalPreferences = 31,
    ConsoleUserLogs = 32,
  };

  // Reports the folder of a kind. Creates the system's folders if they are missing. Creates the
  // folder of kind 32, with mode 0700, but only if the home folder exists. Creates neither the
  // suite's own folders nor a missing home folder. On Linux, the other kinds of the console user
  // create a missing home folder.
  //
  // The return value depends on the kind, and callers rely on it:
  // - Kinds 0, 2, 3, 31 and 32 return whether the folder was found or created. A failure leaves
  //   `path` unchanged.
  // - All other kinds always return true. When the folder can be neither found nor created, the
  //   kind's suffix, if any, such as "/Velmora", is appended to the old content of `path`.
  // - A number without a kind returns false and leaves `path` unchanged.
  //
  // Folders of the console user are those of the process's own user when nobody is at the console
  // or when the process may not take the console user's identity.
  static bool GetDirectoryPath(PathType kind, std::string& path, void* context);

  // Appends `component`, without its leading slashes, to `path`, and adds a "/" between them unless
  // `path` ends in one. Returns false, and leaves `path` unchanged, when either is empty. A
  // component that consists of slashes adds at most one "/".
  static bool AppendPath(std::string& path, const std::string& component, void* context);

  // Returns whether a file or a folder exists at `path`. Follows links. Also returns false when the
  // process may not search a folder of the path.
  static bool PathExists(const std::string& path, void* context);

  // Reads a whole text file, in UTF-8 or otherwise in UTF-16. Returns false, and leaves `content`
  // unchanged, when the file cannot be read or decoded, or is larger than
  // platform::kMaxTextFileSize.
  static bool LoadContentOfFileAtPath(const std::string& path, std::string& content, void* context);

  // Reports the short version of an application bundle, from its property list. Returns false, and
  // leaves `version` unchanged, when the list contains no version or cannot be read.
  static bool getApplicationVersion(std::string applicationPath, std::string& version);
};

}  // namespace TarnUtils
