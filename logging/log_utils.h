#pragma once

#include <sys/time.h>
#include <cstdarg>
#include <string>

// The library's own helpers for time, folders, paths and files. Paths are UTF-8. None throws or
// prints; one that fails returns false and leaves its output as it was, unless said otherwise. Any
// thread may call them. Their bodies are in time_utils.cc, folder_utils.cc, path_utils.cc and
// file_utils.cc.
namespace tarn {

// Time

// Seconds and microseconds since the epoch. Returns what gettimeofday() does, 0 for success.
int getCurrentTime(timeval& tv);

// The local date `days` times 86400 seconds from now, as "2026-11-15".
bool getOffSetDate(std::string& out, int days);

// The local date and time, as "2026-11-15 21-05-07": fit to be a part of a file name.
bool getDatetime(std::string& out);

// Text

// Formats like vsnprintf() into the first `size` - 1 bytes of `buffer`, so that the last one stays
// unused, and returns its result, which is negative when a conversion fails. Without arguments (a
// null list), 0, and the buffer as it was.
int getLogMessage(char* buffer, unsigned long size, const char* format, va_list args)
    __attribute__((format(printf, 3, 0)));

std::string getStringFromInt(int number);

// The three numbers of the running system; always true. They stay as they were where the system
// does not tell.
bool utilGetCurrentOSVersion(int& major, int& minor, int& bugfix);

// Folders

// The home folder of the user whose identity the process has at the moment, created if missing.
// Always true; `out` stays as it was where the system knows none.
bool getUserFolderPath(std::string& out);

// The home folder of the user at the console, whose identity is borrowed for the look-up, so that
// it is found as that user's own processes find it. Without such a user, or when the process has
// that identity anyway, getUserFolderPath(). False when the identity cannot be changed.
bool getUserFolder(std::string& out);

// The user's log folder, "Library/Logs" in getUserFolder(); both are created if missing, for the
// user alone. It is no folder of the system for temporary files.
bool getTempPath(std::string& out);

// Sets `out` to the path that getTempPath() gives, but creates nothing: the folder may be missing.
// False when the identity cannot be changed or the system knows no home folder.
bool findLogFolder(std::string& out);

// Paths. Slashes at the end of a path do not count, nor does a "." that begins a file's name begin
// an extension.

// Joins with exactly one "/".
bool appendPath(std::string& path, const std::string& component);

// Drops the last component and its "/": "/a/b" becomes "/a", "/a" becomes "/", "a" the empty path.
// False for the empty path.
bool removeLastPathComponent(std::string& path);

// Sets, adds or removes what follows the last "." of the last component. The first two fail when
// there is no component that could have one.
bool changeFileExtension(std::string& path, const std::string& ext);
bool addFileExtension(std::string& path, const std::string& ext);
bool removeFileExtension(std::string& path);

// What follows the last "." anywhere in the path, so "b/c" for "/a.b/c"; false when there is none.
bool getFileExtension(const std::string& path, std::string& ext);

// The last component, as basename(). `name` is empty when there is none.
bool getFilePathBaseName(const std::string& path, std::string& name);

// Whether a name is its own last component, that is, no path to somewhere else.
bool isFileName(const std::string& name);

// Files

// Creates a folder with all its missing parents. True also when it was there.
bool createDirectoryPath(const std::string& path);

// Whether there is something other than a folder. The path is not changed.
bool fileExistsAtPath(std::string& path);

// Whether there is a folder.
bool folderExitsAtPath(const std::string& path);

// In bytes.
bool getFileSize(const std::string& path, long long& size);

// Copies the contents; `to` is created, or emptied first. False when one of the files cannot be
// opened, read or written; `to` can be incomplete then.
bool copyContentOfFileToFile(const std::string& from, const std::string& to);

// Puts a space and getDatetime() between the name and its extension: "CRN 2026-11-15 21-05-07.log".
bool appendTimeStampToFile(std::string& path);

}  // namespace tarn
