#include "examples/suite_host/page_commands.h"

#include <functional>
#include <iostream>
#include <map>

#include "examples/suite_host/suite_client.h"

namespace {

struct Call {
  SuiteClient& client;
  const CefRefPtr<CefBrowser>& browser;
  const CefRefPtr<CefListValue>& arguments;

  std::string Text(std::size_t index) const { return arguments->GetString(index); }
};

struct Command {
  std::vector<CefValueType> parameters;
  std::function<void(const Call&)> run;
};

// Sends a message whose list has the elements of `list`. `name` must not be empty.
void Send(const CefRefPtr<CefBrowser>& browser, const CefString& name,
          const CefRefPtr<CefListValue>& list) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(name);
  CefRefPtr<CefListValue> target = message ? message->GetArgumentList() : nullptr;
  if (!target || !list) return;
  for (std::size_t i = 0; i < list->GetSize(); ++i) {
    if (CefRefPtr<CefValue> value = list->GetValue(i)) target->SetValue(i, value);
  }
  browser->SendProcessMessage(PID_RENDERER, message);
}

void SendKinds(const Call& call) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(call.arguments->GetString(0));
  CefRefPtr<CefListValue> list = message ? message->GetArgumentList() : nullptr;
  CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  CefRefPtr<CefBinaryValue> binary = CefBinaryValue::Create("\x01\x02", 2);
  CefRefPtr<CefListValue> empty = CefListValue::Create();
  if (!list || !dictionary || !binary || !empty) return;
  dictionary->SetInt("k", 1);
  list->SetInt(0, 7);
  list->SetNull(1);
  list->SetDictionary(2, dictionary);
  list->SetBinary(3, binary);
  list->SetList(4, empty);
  list->SetDouble(5, 2.5);
  list->SetString(6, "ä€𝄞");
  list->SetBool(7, true);
  call.browser->SendProcessMessage(PID_RENDERER, message);
}

void Resend(const Call& call) {
  const int identifier = call.arguments->GetInt(0);
  if (CefRefPtr<CefBrowser> browser = call.client.FindBrowser(identifier)) {
    Send(browser, call.arguments->GetString(1), call.arguments->GetList(2));
  } else {
    std::cerr << "suite_host: host.resend: there is no browser " << identifier << std::endl;
  }
}

void Quit(const Call& call) {
  const int code = call.arguments->GetInt(0);
  if (code < 0 || code > 255) {
    std::cerr << "suite_host: host.quit: " << code << " is no exit status" << std::endl;
  } else {
    call.client.Quit(code);
  }
}

const std::map<std::string, Command>& Commands() {
  static const std::map<std::string, Command> commands = {
      {"host.send",
       {{VTYPE_STRING, VTYPE_LIST},
        [](const Call& call) {
          Send(call.browser, call.arguments->GetString(0), call.arguments->GetList(1));
        }}},
      {"host.sendKinds", {{VTYPE_STRING}, SendKinds}},
      {"host.resend", {{VTYPE_INT, VTYPE_STRING, VTYPE_LIST}, Resend}},
      {"host.load",
       {{VTYPE_STRING}, [](const Call& call) { call.client.Load(call.browser, call.Text(0)); }}},
      {"host.back", {{}, [](const Call& call) { call.browser->GoBack(); }}},
      {"host.forward", {{}, [](const Call& call) { call.browser->GoForward(); }}},
      {"host.reload", {{}, [](const Call& call) { call.browser->Reload(); }}},
      {"host.open", {{VTYPE_STRING}, [](const Call& call) { call.client.Open(call.Text(0)); }}},
      {"host.quit", {{VTYPE_INT}, Quit}},
  };
  return commands;
}

// No command accepts an empty string: CEF's wrapper rejects empty names and URLs.
bool Fits(const Command& command, const CefRefPtr<CefListValue>& arguments) {
  if (arguments->GetSize() != command.parameters.size()) return false;
  for (std::size_t i = 0; i < command.parameters.size(); ++i) {
    if (arguments->GetType(i) != command.parameters[i]) return false;
    if (command.parameters[i] == VTYPE_STRING && arguments->GetString(i).empty()) return false;
  }
  return true;
}

}  // namespace

void CarryOut(SuiteClient& client, const CefRefPtr<CefBrowser>& browser, const std::string& name,
              const CefRefPtr<CefListValue>& arguments) {
  if (name.rfind("host.", 0) != 0) return;
  const auto found = Commands().find(name);
  if (found == Commands().end()) {
    std::cerr << "suite_host: there is no command " << name << std::endl;
  } else if (!Fits(found->second, arguments)) {
    std::cerr << "suite_host: " << name << " does not take these arguments" << std::endl;
  } else {
    found->second.run({client, browser, arguments});
  }
}
