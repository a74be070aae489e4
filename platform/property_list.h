#pragma once

#include <cstddef>
#include <string>

namespace platform {

// A larger property list, in bytes, is not looked at: those of bundles have a few kilobytes, and
// the limit bounds the stack that a deeply nested one takes.
constexpr std::size_t kLargestPropertyList = std::size_t{256} << 10;

// Looks up `key` in the dictionary that is the top of a property list, in XML or binary form.
// `value`, the text of its entry, is UTF-8. False, with `value` as it was, when the bytes are no
// property list or too many, when its top is no dictionary, and when there is no such key or its
// entry is no text. Of a key that occurs twice, either entry counts; whether damage elsewhere in
// the list makes all of it invalid is the system's choice. Bytes of any origin do no harm. Any
// thread may call it.
bool FindPropertyListText(const std::string& bytes, const std::string& key, std::string& value);

// The same for a file; false also when it is no regular file or cannot be read.
bool ReadPropertyListText(const std::string& path, const std::string& key, std::string& value);

}  // namespace platform
