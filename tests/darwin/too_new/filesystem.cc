#include <filesystem>

bool IsThere(const char* path) { return std::filesystem::exists(path); }
