#include "examples/suite_host/event_printer.h"

#include <cstddef>
#include <iostream>
#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace {

Json ListAsArray(const CefRefPtr<CefListValue>& list) {
  Json array = Json::array();
  const std::size_t size = list ? list->GetSize() : 0;
  for (std::size_t i = 0; i < size; ++i) {
    switch (list->GetType(i)) {
      case VTYPE_BOOL:
        array.push_back(list->GetBool(i));
        break;
      case VTYPE_INT:
        array.push_back(list->GetInt(i));
        break;
      case VTYPE_DOUBLE:
        array.push_back(list->GetDouble(i));
        break;
      case VTYPE_STRING:
        array.push_back(list->GetString(i).ToString());
        break;
      case VTYPE_LIST:
        array.push_back(ListAsArray(list->GetList(i)));
        break;
      default:
        array.push_back(nullptr);
    }
  }
  return array;
}

void Print(const Json& event) {
  std::cout << event.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
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

void PrintConsole(int browser, const std::string& text) {
  Print({{"event", "console"}, {"browser", browser}, {"text", text}});
}

void PrintGone(int browser, int status) {
  Print({{"event", "gone"}, {"browser", browser}, {"status", status}});
}

void PrintQuit(int code) { Print({{"event", "quit"}, {"code", code}}); }
