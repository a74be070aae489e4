#pragma once

#include <string>

// Returns the absolute path of an existing file or folder, without symbolic links. Returns an empty
// string when the path cannot be resolved.
std::string AbsolutePath(const std::string& path);

// Returns the folder part of an absolute path, without a slash at the end. Returns an empty string
// for a file in the root folder.
std::string FolderOf(const std::string& path);

// Returns true when `path` is a regular file that this process may execute.
bool IsProgram(const std::string& path);
