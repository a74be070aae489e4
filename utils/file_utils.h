#pragma once

#include <string>

namespace TarnUtils {

// Where the suite keeps its files on this machine, and what it does with them. Paths and texts are
// UTF-8. Nothing is logged or thrown. The `context` of an operation is not read; callers give null.
//
// Any thread may call the operations, with one exception: the kinds of folders of the user at the
// console lend that user's identity to the whole process for the time of the look-up, so no two of
// them may run at once, and other threads act under that identity meanwhile.
class FileUtils {
 public:
  // A kind of folder. Numbers between these are of kinds that are no longer used; they resolve to
  // nothing. On a standard system "local" is what all users share: LocalApplicationSupport is
  // "/Library/Application Support".
  enum PathType : int {
    LocalApplications = 0,
    LocalApplicationSupport = 2,
    LocalApplicationSupportShared = 3,  // the same as 2
    UserHome = 9,
    ConsoleUserDocuments = 10,
    ConsoleUserApplicationSupport = 12,
    SharedUserData = 13,
    Temporary = 15,
    ProgramLocation = 16,  // the program's bundle, or its executable when it is in none
    ProgramParent = 17,    // the folder that holds the former
    VelmoraLocalSupport = 18,
    VelmoraUserSupport = 19,
    VelmoraSharedData = 20,
    TarnLocalSupport = 21,
    TarnUserSupport = 22,
    TarnSharedData = 23,
    PackageKeeperUtilities = 24,  // with a slash at its end
    SprigLocalSupport = 25,
    SprigUserSupport = 26,
    PackageKeeperRefs = 27,
    SharedRuntimeRefs = 28,
    SharedRuntime = 29,
    CirraneUtilities = 30,  // with a slash at its end
    LocalPreferences = 31,
    ConsoleUserLogs = 32,
  };

  // Resolves a kind. Creates the system's folders if they are missing. Creates the folder of kind
  // 32 with access for the user alone, but only if the home folder exists. Does not create the
  // suite's own folders, nor the home folder of kinds 9 and 32.
  //
  // The result tells less than it seems to, and callers rely on it as it is:
  // - Of kinds 0, 2, 3, 31 and 32 it is whether the folder is there. A failure leaves `path` as it
  //   was.
  // - All other kinds are always true. Where the system knows no such folder, `path` stays as it
  //   was, and what the kind has behind the system's folder, as "/Velmora", is added to that.
  // - A number without a kind is false, and `path` stays as it was.
  //
  // Folders of the user at the console are those of the process's own user when nobody is there or
  // the process has no right to that identity.
  static bool GetDirectoryPath(PathType kind, std::string& path, void* context);

  // Joins with exactly one "/" between; of slashes alone, one is added. False, with `path` as it
  // was, when one of them is empty.
  static bool AppendPath(std::string& path, const std::string& component, void* context);

  // Whether there is a file or a folder. A link counts as what it leads to.
  static bool PathExists(const std::string& path, void* context);

  // Reads a whole text file, in UTF-8 or, when it is not, in UTF-16. False, with `content` as it
  // was, when it cannot be read or is no text.
  static bool LoadContentOfFileAtPath(const std::string& path, std::string& content, void* context);

  // The short version of an application bundle, as its property list tells it. False, with
  // `version` as it was, when there is none.
  static bool getApplicationVersion(std::string applicationPath, std::string& version);
};

}  // namespace TarnUtils
