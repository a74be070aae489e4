// One input is the content of a file.
#include "platform/text_file.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/require.h"

namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::string text = "before";
  if (!platform::DecodeText(bytes, text)) {
    Require(text == "before");
    return 0;
  }
  // What comes out is UTF-8, of which a mark in front is one that stood behind another.
  std::string again;
  Require(platform::DecodeText(kMark + text, again) && again == text);
  return 0;
}
