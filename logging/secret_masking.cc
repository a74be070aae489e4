#include "logging/secret_masking.h"

#include <algorithm>
#include <cstring>

#include "utils/ascii_case.h"

namespace tarn {
namespace {

constexpr char kMask[] = "****";

// `name` is in lower case.
bool BeginsWithTag(std::string_view text, std::string_view name) {
  if (text.size() <= name.size() || text[name.size()] != '>') return false;
  return std::equal(name.begin(), name.end(), text.begin(),
                    [](char wanted, char c) { return wanted == TarnUtils::ToLowerAscii(c); });
}

}  // namespace

const char kTokenNotice[] = "Found access/device token. Log skipped.";

const std::vector<std::string>& SecretElementNames() {
  static const std::vector<std::string> names{"proxyusername", "proxy-user", "proxyuser",
                                              "user",          "username",   "proxy-password",
                                              "proxypassword", "password"};
  return names;
}

bool HoldsToken(std::string_view message) {
  constexpr std::string_view kSecondPart = ".eyJ";
  // Searches for the rarest letter first, because memmem() prepares a table for each search.
  if (message.find(kSecondPart.back()) == std::string_view::npos) return false;
  return memmem(message.data(), message.size(), kSecondPart.data(), kSecondPart.size());
}

bool HoldsOpeningTag(std::string_view message, const std::vector<std::string>& names) {
  for (std::size_t at = message.find('<'); at != std::string_view::npos;
       at = message.find('<', at + 1)) {
    const std::string_view tag = message.substr(at + 1);
    if (std::any_of(names.begin(), names.end(),
                    [tag](const std::string& name) { return BeginsWithTag(tag, name); })) {
      return true;
    }
  }
  return false;
}

void MaskBetween(std::string& text, std::size_t openPos, std::size_t closePos,
                 std::size_t openLen) {
  const std::string_view all = text;
  std::string masked(all.substr(0, openPos + openLen));
  masked += kMask;
  masked += all.substr(std::min(closePos, all.size()));
  text.swap(masked);
}

void MaskElements(std::string_view message, const std::vector<std::string>& names,
                  std::string& masked) {
  std::string lower = TarnUtils::ToLowerAscii(std::string(message));
  for (const std::string& name : names) {
    const std::string open = "<" + name + ">";
    const std::size_t open_at = lower.find(open);
    if (open_at == std::string::npos) continue;
    const std::size_t close_at = lower.find("</" + name + ">");
    if (close_at == std::string::npos || close_at == open_at + open.size()) continue;
    MaskBetween(masked, open_at, close_at, open.size());
    MaskBetween(lower, open_at, close_at, open.size());
  }
}

std::string_view MaskSecrets(std::string_view message, const std::vector<std::string>& names,
                             std::string& scratch) {
  if (HoldsToken(message)) return kTokenNotice;
  if (!HoldsOpeningTag(message, names)) return message;
  scratch.assign(message);
  MaskElements(message, names, scratch);
  return scratch;
}

}  // namespace tarn
