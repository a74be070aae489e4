#include "tests/logging/plain_masking.h"

#include <cctype>

std::string MaskPlainly(const std::string& message) {
  if (message.find("eyJ") != std::string::npos && message.find(".eyJ") != std::string::npos) {
    return "Found access/device token. Log skipped.";
  }
  std::string lower;
  for (const char c : message)
    lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::string masked = message;
  for (const char* const name : {"proxyusername", "proxy-user", "proxyuser", "user", "username",
                                 "proxy-password", "proxypassword", "password"}) {
    const std::string open = std::string("<") + name + ">";
    const std::string close = std::string("</") + name + ">";
    const std::size_t opens = lower.find(open);
    if (opens == std::string::npos) continue;
    const std::size_t closes = lower.find(close);
    if (closes == std::string::npos) continue;
    if (closes == opens + open.length()) continue;
    masked = masked.substr(0, opens + open.length()) + "****" + masked.substr(closes);
    lower = lower.substr(0, opens + open.length()) + "****" + lower.substr(closes);
  }
  return masked;
}
