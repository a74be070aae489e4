#pragma once

#include <string>

#include "fuzz/require.h"
#include "platform/text_file.h"

// Requires that `text` is valid UTF-8. DecodeText() removes one byte order mark, and would decode
// other bytes as UTF-16, which changes them.
inline void RequireUtf8(const std::string& text) {
  std::string decoded;
  Require(platform::DecodeText("\xEF\xBB\xBF" + text, decoded) && decoded == text);
}
