// One input is the content of a file.
#include "platform/property_list.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "fuzz/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  // The fuzzer finds the short key more easily.
  for (const char* const key : {"CFBundleShortVersionString", "k"}) {
    std::string value = "before";
    if (platform::FindPropertyListText(bytes, key, value)) {
      RequireUtf8(value);
    } else {
      Require(value == "before");
    }
  }
  return 0;
}
