#pragma once

#include <cstddef>
#include <string>

namespace platform {

// A text file that is larger, in bytes, is not read: the suite's are a few kilobytes, and a
// mistaken path must not cost the process its memory.
constexpr std::size_t kLargestTextFile = std::size_t{16} << 20;

// Reads bytes as UTF-8 or, when they are not valid UTF-8, as UTF-16: in the byte order that a mark
// at the beginning gives, big-endian without a mark. `text` is UTF-8; NUL characters are kept.
// The mark, also one of UTF-8, is not a part of the text; a second one is.
//
// Note that nearly every even number of bytes is UTF-16 of some sort, so success does not mean that
// the bytes were meant as text. False, with `text` as it was, for an odd number of bytes and for
// surrogates without their other half. Any thread may call it.
bool DecodeText(const std::string& bytes, std::string& text);

// Decodes a whole file. One that changes meanwhile is read as far as it goes at that moment. False,
// with `text` as it was, when it cannot be opened or read, is no regular file (a pipe without a
// writer makes nobody wait), is too large, or cannot be decoded. Any thread may call it.
bool ReadTextFile(const std::string& path, std::string& text);

}  // namespace platform
