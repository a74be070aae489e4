#pragma once

#include <string>

// Returns the absolute path of an existing file, without symbolic links. Returns an empty string
// when the file does not exist.
std::string AbsolutePath(const std::string& path);

// Returns the folder part of an absolute path.
std::string FolderOf(const std::string& path);

// Returns true when `path` is a regular file that this process may execute.
bool IsProgram(const std::string& path);
