#include "tests/support/addresses.h"

#include <array>
#include <cstdio>

namespace {

// Escapes all characters with a percent sign and two digits, except those that both types of
// addresses allow and those in `more`.
std::string Escaped(const std::string& text, std::string_view more) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_/.";
  std::string escaped;
  for (const char c : text) {
    if (kPlain.find(c) != std::string_view::npos || more.find(c) != std::string_view::npos) {
      escaped += c;
    } else {
      std::array<char, 4> code;
      std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned char>(c));
      escaped += code.data();
    }
  }
  return escaped;
}

}  // namespace

std::string BusAddress(const std::string& path) { return "unix:path=" + Escaped(path, {}); }

std::string FileUrl(const std::string& path, std::string_view parts) {
  return "file://" + Escaped(path, "~" + std::string(parts));
}
