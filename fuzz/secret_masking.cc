// One input is a message.
#include "logging/secret_masking.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "utils/ascii_case.h"

namespace {

constexpr std::string_view kMask = "****";
constexpr std::string_view kSecondPart = ".eyJ";  // of a JSON web token

std::string Mask(const std::string& message, const std::vector<std::string>& names) {
  std::string buffer;
  return std::string(tarn::MaskSecrets(message, names, buffer));
}

bool Contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// Requires that the log shows no token, and that only a token suppresses a message.
void CheckToken(const std::string& message) {
  const std::string masked = Mask(message, tarn::SecretElementNames());
  Require(!Contains(masked, kSecondPart));
  Require(Contains(message, kSecondPart) || message == tarn::kTokenNotice ||
          masked != tarn::kTokenNotice);
}

// Checks the first element called `name` in a message that contains no token.
void CheckElement(const std::string& message, const std::string& name) {
  const std::string open = "<" + name + ">";
  const std::string close = "</" + name + ">";
  const std::string masked = Mask(message, {name});

  const std::string lower = TarnUtils::ToLowerAscii(message);
  const std::size_t open_at = lower.find(open);
  const std::size_t close_at = lower.find(close);
  if (open_at == std::string::npos || close_at == std::string::npos) {
    Require(masked == message);
    return;
  }
  // Only the mask or the closing tag of an empty element follows the opening tag.
  const std::size_t value_at = open_at + open.size();
  const std::string value = TarnUtils::ToLowerAscii(masked.substr(value_at));
  Require(value.rfind(kMask, 0) == 0 || value.rfind(close, 0) == 0);
  Require(masked.size() <= 2 * message.size() + kMask.size());
  if (close_at <= value_at) return;

  // The value does not influence the result, and masking the result changes nothing.
  std::string other = message;
  other.replace(value_at, close_at - value_at, "another value");
  Require(Mask(other, {name}) == masked);
  Require(Mask(masked, {name}) == masked);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string message(reinterpret_cast<const char*>(data), size);
  CheckToken(message);
  if (Contains(message, kSecondPart)) return 0;
  for (const std::string& name : tarn::SecretElementNames())
    CheckElement(message, name);
  return 0;
}
