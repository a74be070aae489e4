#pragma once

#include <string>

#include "fuzz/require.h"
#include "platform/text_file.h"

// Requires that `text` is valid UTF-8. Adds a byte order mark, because DecodeText() removes one.
// DecodeText() would decode invalid UTF-8 as UTF-16, which changes the bytes.
inline void RequireUtf8(const std::string& text) {
  std::string decoded;
  Require(platform::DecodeText("\xEF\xBB\xBF" + text, decoded) && decoded == text);
}
