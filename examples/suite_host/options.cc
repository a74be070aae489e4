#include "examples/suite_host/options.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <string_view>

namespace {

constexpr char kUsage[] =
    "usage: suite_host [--helper=PATH] [--timeout=SECONDS] [--size=WxH] [--screenshot=FILE.png] "
    "[--zygote] [--sandbox] [--switch=NAME[=VALUE]]... PAGE";
constexpr int kMaximumPixels = 16384;  // of one side; a bitmap of more would not fit in memory
constexpr int kMaximumTimeout = 86400;

bool ParseNumber(std::string_view text, int maximum, int& number) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  if (failure != std::errc() || stop != end || value < 1 || value > maximum) return false;
  number = value;
  return true;
}

bool ParseSize(std::string_view text, Options& options) {
  const auto x = text.find('x');
  return x != std::string_view::npos &&
         ParseNumber(text.substr(0, x), kMaximumPixels, options.width) &&
         ParseNumber(text.substr(x + 1), kMaximumPixels, options.height);
}

bool ParseSwitch(std::string_view text, Options& options) {
  const auto equals = text.find('=');
  const std::string name(text.substr(0, equals));
  if (name.empty()) return false;
  options.switches.emplace_back(name, equals == std::string_view::npos
                                          ? std::string()
                                          : std::string(text.substr(equals + 1)));
  return true;
}

// Empty when there is no such file.
std::string AbsolutePath(const std::string& path) {
  char* resolved = realpath(path.c_str(), nullptr);
  if (!resolved) return {};
  std::string result(resolved);
  std::free(resolved);
  return result;
}

bool IsProgram(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

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

// A scheme is two characters at least, so that no file name with a colon passes for one too easily.
bool IsUrl(const std::string& page) {
  const auto colon = page.find(':');
  if (colon == std::string::npos || colon < 2) return false;
  return page.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ+-.") ==
             colon &&
         access(page.c_str(), F_OK) != 0;
}

bool ResolvePage(const std::string& page, Options& options, std::string& error) {
  if (!options.page.empty()) {
    error = std::string("more than one PAGE; ") + kUsage;
    return false;
  }
  if (IsUrl(page)) {
    options.page = page;
    return true;
  }
  const std::string path = AbsolutePath(page);
  if (path.empty()) {
    error = "there is no page " + page;
    return false;
  }
  options.page = FileUrl(path);
  return true;
}

// Creates the file where there is none: better a complaint now than no picture at the end.
bool CanWrite(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0666);
  return file >= 0 && close(file) == 0;
}

// The value when `argument` is "--name=value"; null otherwise.
const char* ValueOf(std::string_view argument, std::string_view name) {
  if (argument.substr(0, 2) != "--" || argument.substr(2, name.size()) != name) return nullptr;
  if (argument.substr(2 + name.size(), 1) != "=") return nullptr;
  return argument.data() + 3 + name.size();
}

bool ParseArgument(const char* argument, Options& options, std::string& error) {
  bool good = true;
  if (const char* helper = ValueOf(argument, "helper")) {
    options.helper = AbsolutePath(helper);
    good = IsProgram(options.helper);
  } else if (const char* timeout = ValueOf(argument, "timeout")) {
    good = ParseNumber(timeout, kMaximumTimeout, options.timeout_seconds);
  } else if (const char* size = ValueOf(argument, "size")) {
    good = ParseSize(size, options);
  } else if (const char* screenshot = ValueOf(argument, "screenshot")) {
    options.screenshot = screenshot;
    good = CanWrite(options.screenshot);
  } else if (const char* added = ValueOf(argument, "switch")) {
    good = ParseSwitch(added, options);
  } else if (std::string_view(argument) == "--zygote") {
    options.zygote = true;
  } else if (std::string_view(argument) == "--sandbox") {
    options.sandbox = options.zygote = true;  // Chromium refuses the one without the other
  } else if (argument[0] == '-') {
    error = std::string("unknown option ") + argument + "; " + kUsage;
    return false;
  } else {
    return ResolvePage(argument, options, error);
  }
  if (!good) error = std::string("cannot use ") + argument + "; " + kUsage;
  return good;
}

}  // namespace

bool ParseOptions(int argc, const char* const* argv, Options& options, std::string& error) {
  const std::string executable = AbsolutePath("/proc/self/exe");
  const std::string folder = executable.substr(0, executable.rfind('/'));
  options.cef_dir = AbsolutePath(folder + "/../CEF");
  for (int i = 1; i < argc; ++i) {
    if (!ParseArgument(argv[i], options, error)) return false;
  }
  if (options.page.empty()) {
    error = kUsage;
    return false;
  }
  if (options.cef_dir.empty()) {
    error = "there is no folder CEF beside " + folder;
    return false;
  }
  if (options.helper.empty()) options.helper = AbsolutePath(folder + "/HexHelper");
  if (options.helper.empty()) {
    error = "there is no HexHelper in " + folder;
    return false;
  }
  return true;
}
