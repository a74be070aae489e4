#pragma once

#include <string>
#include <vector>

// Read and write whole files. A file that cannot be opened reads as empty. WriteFile() aborts when
// it cannot write.
std::string ReadFile(const std::string& path);
std::vector<std::string> ReadLines(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);

// Returns the permission bits of a file, or -1 when it does not exist. Does not follow links.
int ModeOf(const std::string& path);
