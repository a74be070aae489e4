#pragma once

#include <cstddef>
#include <string>

namespace platform {

// The size, in bytes, above which a property list is rejected without being parsed. A bundle's list
// has only a few kilobytes, and the limit bounds the stack that a deeply nested list needs.
constexpr std::size_t kMaxPropertyListSize = std::size_t{256} << 10;

// Looks up the string of `key` in the dictionary at the top of a property list, in XML or binary
// form. `value` is UTF-8. Returns false, and leaves `value` unchanged, when `bytes` exceeds
// kMaxPropertyListSize or is not a property list, when the top is not a dictionary, and when the
// key is missing or its entry is not a string. If a key occurs twice, either entry may be returned.
// The system decides whether damage elsewhere in the list makes all of it invalid. Safe for
// untrusted bytes. Any thread may call it.
bool FindPropertyListText(const std::string& bytes, const std::string& key, std::string& value);

// Does the same for the file at `path`. Also returns false when the file cannot be read or is not a
// regular file; a pipe without a writer does not block the call.
bool ReadPropertyListText(const std::string& path, const std::string& key, std::string& value);

}  // namespace platform
