#pragma once

#include <string>

namespace platform {

// Returns whether `bytes` begins like a property list in binary form, of any version.
bool IsBinaryPropertyList(const std::string& bytes);

// Does what FindPropertyListText() does for a list in binary form, without its size limit. Reads
// only the dictionary at the top; containers below it may be deeply nested or contain each other.
bool FindInBinaryPropertyList(const std::string& bytes, const std::string& key, std::string& value);

}  // namespace platform
