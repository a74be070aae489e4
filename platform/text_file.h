#pragma once

#include <cstddef>
#include <string>

namespace platform {

// The size, in bytes, above which a text file is rejected. The suite's files have a few kilobytes,
// and a wrong path must not exhaust the process's memory.
constexpr std::size_t kMaxTextFileSize = std::size_t{16} << 20;

// Decodes bytes as UTF-8 or, when they are not valid UTF-8, as UTF-16: in the byte order of the
// byte order mark, or big-endian without a mark. `text` is UTF-8 and keeps NUL characters. A byte
// order mark, including that of UTF-8, is not part of the text; a second mark is.
//
// Nearly every even number of bytes is valid UTF-16, so success does not mean that the bytes were
// text. Returns false, and leaves `text` unchanged, for an odd number of bytes and for unpaired
// surrogates. Any thread may call it.
bool DecodeText(const std::string& bytes, std::string& text);

// Decodes a whole file. If the file grows during the call, the added bytes are read as well.
// Returns false, and leaves `text` unchanged, when the file cannot be opened or read, is not a
// regular file (a pipe without a writer does not block the call), is larger than kMaxTextFileSize,
// or cannot be decoded. Any thread may call it.
bool ReadTextFile(const std::string& path, std::string& text);

}  // namespace platform
