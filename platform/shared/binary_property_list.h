#pragma once

#include <string>

namespace platform {

// Returns whether `bytes` begins like a property list in binary form.
bool IsBinaryPropertyList(const std::string& bytes);

// Does what FindPropertyListText() does for a list in binary form, without its size limit. Reads
// the dictionary at the top and nothing below it, so that neither depth nor objects that contain
// each other matter.
bool FindInBinaryPropertyList(const std::string& bytes, const std::string& key, std::string& value);

}  // namespace platform
