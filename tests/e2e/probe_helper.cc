// A variant of the helper that answers these messages of tests with a message of the same name:
//   "probe.objects" []: the number of live objects of the CEF binding; 0 if they are not counted
//   "probe.process" []: the process identifier
//   "probe.switch" [name]: whether Chromium's command line contains the switch
//   "probe.echo" [...]: the same list, with elements of the same kinds
// Two messages have no answer:
//   "probe.kinds" [name, count]: the page receives a message `name` with `count` elements of all
//       kinds, some of which no host can send
//   "probe.levels" [name, levels, count]: the same with nested lists, `count` doubles in each
// Each process appends a line to the file "switches" in the home folder: its type and the switches
// that the service configuration can set. Before the helper's own extension, it registers one that
// defines `app`.

#include <unistd.h>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "cefapp/cef_app_handler.h"
#include "include/cef_command_line.h"
#if defined(CEF_BINDING_COUNT_OBJECTS)
#include "include/internal/cef_object_count.h"
#endif

namespace {

int LivingObjects() {
#if defined(CEF_BINDING_COUNT_OBJECTS)
  return static_cast<int>(cef_binding::live_objects.load());
#else
  return 0;
#endif
}

// Appends the line in one write because several processes share the file.
void NoteSwitches(const std::string& type, CefRefPtr<CefCommandLine> command_line) {
  const char* const home = std::getenv("HOME");
  std::string line = type;
  for (const char* const name : {"auth-server-whitelist", "auth-negotiate-delegate-whitelist"}) {
    if (command_line->HasSwitch(name)) {
      line += std::string(" ") + name + "=[" + command_line->GetSwitchValue(name).ToString() + "]";
    }
  }
  std::ofstream file(std::string(home ? home : "") + "/switches", std::ios::app);
  file << line + "\n" << std::flush;
}

CefRefPtr<CefListValue> NestedKinds() {
  CefRefPtr<CefListValue> inner = CefListValue::Create();
  inner->SetDictionary(0, CefDictionaryValue::Create());
  inner->SetDouble(1, 1.0);
  CefRefPtr<CefListValue> list = CefListValue::Create();
  list->SetString(0, "{");
  list->SetList(1, inner);
  list->SetBinary(2, CefBinaryValue::Create("\x00", 1));
  return list;
}

// Cycles through elements of 16 kinds.
void SetKind(const CefRefPtr<CefListValue>& list, std::size_t index) {
  static const std::vector<std::function<void(const CefRefPtr<CefListValue>&, std::size_t)>> kinds =
      {
          [](const auto& target, auto i) { target->SetInt(i, static_cast<int>(i)); },
          [](const auto& target, auto i) { target->SetDouble(i, static_cast<double>(i)); },
          [](const auto& target, auto i) { target->SetDouble(i, -0.0); },
          [](const auto& target, auto i) { target->SetDouble(i, std::nan("")); },
          [](const auto& target, auto i) { target->SetDouble(i, -HUGE_VAL); },
          [](const auto& target, auto i) { target->SetInt(i, INT_MIN); },
          [](const auto& target, auto i) { target->SetBool(i, i % 32 != 0); },
          [](const auto& target, auto i) { target->SetNull(i); },
          [](const auto& target, auto i) { target->SetString(i, "{\"[" + std::to_string(i)); },
          [](const auto& target, auto i) { target->SetString(i, std::string("x\0\u2028", 5)); },
          [](const auto& target, auto i) { target->SetString(i, "\uffff\U0010ffff"); },
          [](const auto& target, auto i) { target->SetString(i, ""); },
          [](const auto& target, auto i) { target->SetList(i, CefListValue::Create()); },
          [](const auto& target, auto i) { target->SetList(i, NestedKinds()); },
          [](const auto& target, auto i) {
            target->SetDictionary(i, CefDictionaryValue::Create());
          },
          [](const auto& target, auto i) {
            target->SetBinary(i, CefBinaryValue::Create("\x01\x02", 2));
          },
      };
  kinds[index % kinds.size()](list, index);
}

CefRefPtr<CefProcessMessage> MessageOfKinds(const CefRefPtr<CefListValue>& request) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(request->GetString(0));
  CefRefPtr<CefListValue> list = message->GetArgumentList();
  for (int i = 0; i < request->GetInt(1); ++i)
    SetKind(list, static_cast<std::size_t>(i));
  return message;
}

CefRefPtr<CefProcessMessage> MessageOfLevels(const CefRefPtr<CefListValue>& request) {
  CefRefPtr<CefListValue> list = CefListValue::Create();
  for (int level = 1; level < request->GetInt(1); ++level) {
    CefRefPtr<CefListValue> outer = CefListValue::Create();
    for (int i = 0; i < request->GetInt(2); ++i)
      outer->SetDouble(outer->GetSize(), i + 0.5);
    outer->SetList(outer->GetSize(), list);
    list = outer;
  }
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(request->GetString(0));
  for (std::size_t i = 0; i < list->GetSize(); ++i)
    message->GetArgumentList()->SetValue(i, list->GetValue(i));
  return message;
}

// Returns the break-even that the file "packing" in the home folder contains, else the default.
ArrayPacking::BreakEven BreakEven() {
  const char* const home = std::getenv("HOME");
  std::ifstream file(std::string(home ? home : "") + "/packing");
  std::size_t elements = 0;
  return file >> elements ? ArrayPacking::BreakEven{elements, elements} : ArrayPacking::BreakEven();
}

class ProbeHandler : public CEFAppHandler {
 public:
  ProbeHandler() : CEFAppHandler(nullptr, BreakEven()) {}

  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    CEFAppHandler::OnBeforeCommandLineProcessing(process_type, command_line);
    NoteSwitches(process_type.ToString(), command_line);
  }

  void OnWebKitInitialized() override {
    CefRegisterExtension("v8/earlier", "var app = {earlier: 'kept', sendMessage: 'replaced'};",
                         nullptr);
    CEFAppHandler::OnWebKitInitialized();
  }

  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser, CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override {
    const std::string name = message->GetName().ToString();
    CefRefPtr<CefProcessMessage> answer = CefProcessMessage::Create(name);
    if (name == "probe.objects") {
      answer->GetArgumentList()->SetInt(0, LivingObjects());
    } else if (name == "probe.process") {
      answer->GetArgumentList()->SetInt(0, getpid());
    } else if (name == "probe.switch") {
      const CefString asked = message->GetArgumentList()->GetString(0);
      const bool given = CefCommandLine::GetGlobalCommandLine()->HasSwitch(asked);
      answer->GetArgumentList()->SetBool(0, given);
    } else if (name == "probe.echo") {
      CefRefPtr<CefListValue> list = message->GetArgumentList();
      for (std::size_t i = 0; i < list->GetSize(); ++i)
        answer->GetArgumentList()->SetValue(i, list->GetValue(i));
    } else if (name == "probe.kinds") {
      return CEFAppHandler::OnProcessMessageReceived(browser, source_process,
                                                     MessageOfKinds(message->GetArgumentList()));
    } else if (name == "probe.levels") {
      return CEFAppHandler::OnProcessMessageReceived(browser, source_process,
                                                     MessageOfLevels(message->GetArgumentList()));
    } else {
      return CEFAppHandler::OnProcessMessageReceived(browser, source_process, message);
    }
    return browser->SendProcessMessage(PID_BROWSER, answer);
  }
};

}  // namespace

int main(int argc, char** argv) {
  CefExecuteProcess(CefMainArgs(argc, argv), new ProbeHandler, nullptr);
  return 0;
}
