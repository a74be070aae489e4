// One input is a message.
#include "logging/secret_masking.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "fuzz/require.h"
#include "tests/logging/plain_masking.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string message(reinterpret_cast<const char*>(data), size);
  std::string room;
  const std::string_view masked = tarn::MaskSecrets(message, tarn::SecretElementNames(), room);
  Require(masked == MaskPlainly(message));
  return 0;
}
