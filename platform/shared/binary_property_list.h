#pragma once

#include <string>

namespace platform {

// Whether the bytes claim to be a property list in binary form.
bool IsBinaryPropertyList(const std::string& bytes);

// What FindPropertyListText() does, for one in binary form. Reads the dictionary at the top and
// nothing below it, so that neither depth nor objects that contain each other matter.
bool FindInBinaryPropertyList(const std::string& bytes, const std::string& key, std::string& value);

}  // namespace platform
