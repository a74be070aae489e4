// One input is the content of a file.
#include "platform/text_file.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "fuzz/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::string text = "before";
  if (platform::DecodeText(bytes, text)) {
    RequireUtf8(text);
  } else {
    Require(text == "before");
  }
  return 0;
}
