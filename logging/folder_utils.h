#pragma once

#include <string>

// Finds and creates folders. Paths are UTF-8. The functions print nothing; one that fails returns
// false and does not change its output.
//
// Any thread may call the functions while no thread changes the process's environment, with one
// exception: getUserFolder(), getTempPath() and findLogFolder() can give the console user's
// identity to the whole process during the call. No two such calls may run at once, and other
// threads act under that identity during a call. If the process cannot return to its own identity,
// it aborts, after a line to standard error.
namespace tarn {

// Sets `out` to the home folder of the process's effective user and creates the folder if it is
// missing. Always returns true; `out` does not change if the system has no home folder for the
// user.
bool getUserFolderPath(std::string& out);

// Sets `out` to the home folder of the console user. Borrows the console user's identity for the
// call, so that the result is the folder that this user's own processes find. Without a console
// user, or when the process already has that identity, does the same as getUserFolderPath().
// Returns false when the identity cannot be changed.
bool getUserFolder(std::string& out);

// Sets `out` to the user's log folder, "Library/Logs" in getUserFolder(). Creates both folders if
// they are missing, with access for the process's effective user alone. Returns false when the home
// folder is not available or a folder cannot be created. Despite the name, this is not the system's
// folder for temporary files.
bool getTempPath(std::string& out);

// Sets `out` to the path that getTempPath() returns, but creates nothing: the folder may be
// missing. Returns false when the identity cannot be changed or the system has no home folder for
// the user.
bool findLogFolder(std::string& out);

// Creates a folder and its missing parents with mode 0777, limited by the umask. Returns true if
// the folder already exists. Returns false for the empty path.
bool createDirectoryPath(const std::string& path);

}  // namespace tarn
