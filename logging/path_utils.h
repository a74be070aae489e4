#pragma once

#include <string>

// Functions for paths as strings. Paths are UTF-8. Slashes at the end of a path are ignored. A
// leading "." in a file name does not begin an extension, except for getFileExtension(). Any thread
// may call the functions. One that fails returns false and does not change its output, unless its
// comment says otherwise.
namespace tarn {

// Joins `path` and `component` with exactly one "/". If one is empty, the result is the other one.
// Returns false when both are empty.
bool appendPath(std::string& path, const std::string& component);

// Removes the last component and its "/": "/a/b" becomes "/a", "/a" becomes "/", and "a" becomes
// the empty path. "/" does not change. Returns false for the empty path.
bool removeLastPathComponent(std::string& path);

// Replace, add or remove the extension, which begins after the last "." of the last component.
// `ext` does not include the ".". changeFileExtension() adds a missing extension. The first two
// return false when `path` is empty or consists of slashes; removeFileExtension() always returns
// true.
bool changeFileExtension(std::string& path, const std::string& ext);
bool addFileExtension(std::string& path, const std::string& ext);
bool removeFileExtension(std::string& path);

// Sets `ext` to everything after the last "." anywhere in the path, for example "b/c" for "/a.b/c".
// Returns false when the path has no ".".
bool getFileExtension(const std::string& path, std::string& ext);

// Sets `name` to the last component, as basename() does. Returns false and clears `name` for the
// empty path.
bool getFilePathBaseName(const std::string& path, std::string& name);

// Returns whether `name` is its own last component, so that it contains no folder. Also returns
// true for "", "/", "." and "..".
bool isFileName(const std::string& name);

// Inserts a space and getDatetime() before the extension: "CRN 2026-11-15 21-05-07.log". The
// extension is that of getFileExtension(), so a "." in the name of a folder counts. Returns false
// when the path has no ".".
bool appendTimeStampToFile(std::string& path);

}  // namespace tarn
