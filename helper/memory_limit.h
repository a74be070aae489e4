#pragma once

#include <string>

// The memory limit of a helper, in bytes: 500 MiB.
constexpr unsigned long long kMemoryLimit = 524288000;

// Returns whether `bytes` is the limit or more.
constexpr bool IsTooMuchMemory(unsigned long long bytes) { return bytes >= kMemoryLimit; }

// Returns `bytes` in whole mebibytes, rounded down: "699 MB".
std::string FormatMemory(unsigned long long bytes);
