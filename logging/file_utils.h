#pragma once

#include <string>

// Functions for files. Paths are UTF-8, and symbolic links are followed. Any thread may call the
// functions. They print nothing; one that fails returns false and does not change its output.
namespace tarn {

// Returns whether `path` leads to something other than a folder. Does not change `path`.
bool fileExistsAtPath(std::string& path);

// Returns whether `path` leads to a folder.
bool folderExitsAtPath(const std::string& path);

// Sets `size` to the size of the file in bytes.
bool getFileSize(const std::string& path, long long& size);

// Copies the content of `from` to `to`, which is created or emptied first. The paths must lead to
// different files. Returns false when a file cannot be opened, read or written; `to` may then be
// incomplete.
bool copyContentOfFileToFile(const std::string& from, const std::string& to);

}  // namespace tarn
