#include "examples/suite_host/options.h"

#include <fcntl.h>
#include <unistd.h>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "examples/suite_host/page_url.h"
#include "examples/suite_host/paths.h"

namespace {

constexpr int kMaxPixels = 16384;  // of one side; a larger bitmap would not fit in memory
constexpr int kMaxTimeout = 86400;
constexpr int kFirstUnprivilegedPort = 1024;  // CEF ignores lower ports
constexpr int kLastPort = 65535;

struct Option {
  std::string_view name;
  std::string_view value;  // as in the usage, with "="; empty: the option has no value
  bool repeated;
  const char* meaning;
  bool (*take)(std::string_view value, Options& options);  // false if invalid
};

bool ParseNumber(std::string_view text, int minimum, int maximum, int& number) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  if (failure != std::errc() || stop != end || value < minimum || value > maximum) return false;
  number = value;
  return true;
}

bool TakeHelper(std::string_view value, Options& options) {
  options.helper = AbsolutePath(std::string(value));
  return IsProgram(options.helper);
}

bool TakeTimeout(std::string_view value, Options& options) {
  return ParseNumber(value, 0, kMaxTimeout, options.timeout_seconds);
}

bool TakeSize(std::string_view value, Options& options) {
  const auto x = value.find('x');
  return x != std::string_view::npos &&
         ParseNumber(value.substr(0, x), 1, kMaxPixels, options.width) &&
         ParseNumber(value.substr(x + 1), 1, kMaxPixels, options.height);
}

// Creates the file if it does not exist, so that a wrong path is reported before the run.
bool TakeScreenshot(std::string_view value, Options& options) {
  options.screenshot = value;
  const int file = open(options.screenshot.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  return file >= 0 && close(file) == 0;
}

bool TakeWindow(std::string_view /*value*/, Options& options) { return options.window = true; }

bool TakeDevtools(std::string_view value, Options& options) {
  int port = 0;
  if (!ParseNumber(value, 0, kLastPort, port) || (port > 0 && port < kFirstUnprivilegedPort)) {
    return false;
  }
  options.devtools_port = port;
  return true;
}

bool TakeInput(std::string_view /*value*/, Options& options) {
  options.read_input = true;
  return fcntl(STDIN_FILENO, F_GETFD) >= 0;
}

bool TakeZygote(std::string_view /*value*/, Options& options) { return options.zygote = true; }

bool TakeSandbox(std::string_view /*value*/, Options& options) {
  return options.sandbox = options.zygote = true;  // Chromium's sandbox requires the zygote
}

bool TakeSwitch(std::string_view value, Options& options) {
  const auto equals = value.find('=');
  const std::string name(value.substr(0, equals));
  if (name.empty()) return false;
  options.switches.emplace_back(name, equals == std::string_view::npos
                                          ? std::string()
                                          : std::string(value.substr(equals + 1)));
  return true;
}

constexpr Option kOptions[] = {
    {"helper", "=PATH", false,
     "the executable for child processes; default: HexHelper beside this one", TakeHelper},
    {"timeout", "=SECONDS", false, "end the run after that time; default: 30; 0: no limit",
     TakeTimeout},
    {"size", "=WxH", false, "size of the view in pixels; default: 800x600", TakeSize},
    {"screenshot", "=FILE.png", false, "write a picture of the first browser at the end",
     TakeScreenshot},
    {"window", "", false, "show pages in windows instead of off-screen", TakeWindow},
    {"devtools", "=PORT", false, "serve Chromium's DevTools on that port; 0: any free one",
     TakeDevtools},
    {"stdin", "", false, "carry out commands from standard input, one JSON object per line",
     TakeInput},
    {"zygote", "", false, "fork renderers from one helper instead of executing it for each",
     TakeZygote},
    {"sandbox", "", false, "leave Chromium's sandbox on; includes --zygote", TakeSandbox},
    {"switch", "=NAME[=VALUE]", true, "add a Chromium switch", TakeSwitch},
};

std::string Form(const Option& option) {
  return "--" + std::string(option.name) + std::string(option.value);
}

std::string Usage() {
  std::string usage = "usage: suite_host ";
  for (const Option& option : kOptions) {
    usage += "[" + Form(option) + (option.repeated ? "]... " : "] ");
  }
  return usage + "PAGE";
}

// Returns null when no option has that name, or when only one of the option and the argument has a
// value.
const Option* FindOption(std::string_view name, bool has_value) {
  for (const Option& option : kOptions) {
    if (option.name == name && option.value.empty() != has_value) return &option;
  }
  return nullptr;
}

bool TakeArgument(std::string_view argument, Options& options, std::string& error) {
  const auto equals = argument.find('=');
  const bool has_value = equals != std::string_view::npos;
  const Option* const option = argument.substr(0, 2) == "--"
                                   ? FindOption(argument.substr(2, equals - 2), has_value)
                                   : nullptr;
  if (!option) {
    error = "unknown option " + std::string(argument) + "; " + Usage();
    return false;
  }
  if (option->take(has_value ? argument.substr(equals + 1) : std::string_view(), options))
    return true;
  error = "cannot use " + std::string(argument) + "; " + Usage();
  return false;
}

bool TakePage(const std::string& page, Options& options, std::string& error) {
  if (!options.page.empty()) {
    error = "more than one PAGE; " + Usage();
    return false;
  }
  options.page = PageUrl(page);
  if (options.page.empty()) error = "there is no page " + page;
  return !options.page.empty();
}

}  // namespace

bool ParseOptions(int argc, const char* const* argv, Options& options, std::string& error) {
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    options.help = argument == "--help";
    options.version = argument == "--version";
    if (options.help || options.version) return true;
    const bool is_option = !argument.empty() && argument[0] == '-';
    if (!(is_option ? TakeArgument(argument, options, error)
                    : TakePage(argument, options, error))) {
      return false;
    }
  }
  if (options.page.empty()) {
    error = Usage();
  } else if (options.window && !options.screenshot.empty()) {
    error = "--screenshot needs a view that is off-screen; omit it or --window";
  }
  return error.empty();
}

std::string HelpText() {
  constexpr std::size_t kColumn = 25;
  const auto row = [](const std::string& form, const char* meaning) {
    return "  " + form + std::string(kColumn - form.size(), ' ') + meaning + "\n";
  };
  std::string text = Usage() +
                     "\n\nShows PAGE, a path or a URL, in a browser that stands in for the " +
                     "suite, and writes\none JSON object per event to standard output.\n\n";
  for (const Option& option : kOptions)
    text += row(Form(option), option.meaning);
  return text + row("--help", "print this text") + row("--version", "print the version");
}
