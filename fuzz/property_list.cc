// One input is the content of a file.
#include "platform/property_list.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "platform/text_file.h"

namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  // The second one is short, for a key that is easily invented.
  for (const char* const key : {"CFBundleShortVersionString", "k"}) {
    std::string value = "before";
    if (platform::FindPropertyListText(bytes, key, value)) {
      std::string same;
      Require(platform::DecodeText(kMark + value, same) && same == value);
    } else {
      Require(value == "before");
    }
  }
  return 0;
}
