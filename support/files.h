#pragma once

#include <string>
#include <vector>

// Whole files for tests; a file that cannot be opened is empty, or a failure of the test to write.
std::string ReadFile(const std::string& path);
std::vector<std::string> ReadLines(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);

// The permission bits; -1 when there is no such file.
int ModeOf(const std::string& path);
