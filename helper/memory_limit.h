#pragma once

#include <string>

// How much memory a helper may use, in bytes: 500 MiB.
constexpr unsigned long long kMemoryLimit = 524288000;

// The limit itself is too much already.
constexpr bool IsTooMuchMemory(unsigned long long bytes) { return bytes >= kMemoryLimit; }

// In whole mebibytes, the rest cut off: "699 MB".
std::string MemoryText(unsigned long long bytes);
