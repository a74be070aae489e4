#include "examples/suite_host/event_printer.h"

#include <iostream>

#include "examples/suite_host/json_list.h"

namespace {

void Print(const Json& event) {
  std::cout << event.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

const char* LevelName(cef_log_severity_t level) {
  switch (level) {
    case LOGSEVERITY_VERBOSE:
      return "debug";
    case LOGSEVERITY_WARNING:
      return "warning";
    case LOGSEVERITY_ERROR:
      return "error";
    default:
      return "info";
  }
}

}  // namespace

void PrintLoad(int browser, const std::string& url, int status) {
  Print({{"event", "load"}, {"browser", browser}, {"url", url}, {"status", status}});
}

void PrintMessage(int browser, const std::string& name, const CefRefPtr<CefListValue>& arguments) {
  Print({{"event", "message"},
         {"browser", browser},
         {"name", name},
         {"args", ListAsArray(arguments)}});
}

void PrintConsole(int browser, const ConsoleMessage& message) {
  Json event = {{"event", "console"}, {"browser", browser}, {"text", message.text}};
  if (message.level) event["level"] = LevelName(*message.level);
  if (!message.file.empty()) {
    event["file"] = message.file;
    event["line"] = message.line;
  }
  Print(event);
}

void PrintGone(int browser, int status) {
  Print({{"event", "gone"}, {"browser", browser}, {"status", status}});
}

void PrintError(const std::string& text) { Print({{"event", "error"}, {"text", text}}); }

void PrintDevtools(const std::string& url) { Print({{"event", "devtools"}, {"url", url}}); }

void PrintScreenshot(int browser, const std::string& file) {
  Print({{"event", "screenshot"}, {"browser", browser}, {"file", file}});
}

void PrintQuit(int code) { Print({{"event", "quit"}, {"code", code}}); }
