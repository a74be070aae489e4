#include "examples/suite_host/page_url.h"

#include <unistd.h>
#include <string_view>

#include "examples/suite_host/paths.h"

namespace {

std::string FileUrl(const std::string& path) {
  std::string url = "file://";
  for (const char c : path) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/-_.~";
    if (kPlain.find(c) != std::string_view::npos) {
      url += c;
    } else {
      constexpr char kDigits[] = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      url += '%';
      url += kDigits[byte >> 4];
      url += kDigits[byte & 15];
    }
  }
  return url;
}

// A scheme has at least two characters, which rules out most file names with a colon.
bool IsUrl(const std::string& page) {
  const auto colon = page.find(':');
  if (colon == std::string::npos || colon < 2) return false;
  return page.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ+-.") ==
             colon &&
         access(page.c_str(), F_OK) != 0;
}

}  // namespace

std::string PageUrl(const std::string& page) {
  if (IsUrl(page)) return page;
  const std::string path = AbsolutePath(page);
  return path.empty() ? std::string() : FileUrl(path);
}
