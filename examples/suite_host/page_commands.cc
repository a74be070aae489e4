#include "examples/suite_host/page_commands.h"

#include <cstddef>
#include <functional>
#include <map>
#include <vector>

#include "examples/suite_host/event_printer.h"
#include "examples/suite_host/page_message.h"
#include "examples/suite_host/suite_client.h"

namespace {

struct Call {
  SuiteClient& client;
  const CefRefPtr<CefBrowser>& browser;
  const CefRefPtr<CefListValue>& arguments;

  std::string Text(std::size_t index) const { return arguments->GetString(index); }
};

enum class Parameter { kName, kUrl, kBrowser, kCode, kOptionalList };

struct Command {
  std::vector<Parameter> parameters;
  // Returns an error message, empty on success.
  std::function<std::string(const Call&)> run;
};

std::string SendTo(const CefRefPtr<CefBrowser>& browser, const CefString& name,
                   const CefRefPtr<CefListValue>& list) {
  return SendToPages(browser, name, list) ? std::string() : "CEF rejects the message";
}

std::string SendKinds(const Call& call) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  const CefRefPtr<CefDictionaryValue> dictionary = CefDictionaryValue::Create();
  const CefRefPtr<CefBinaryValue> binary = CefBinaryValue::Create("\x01\x02", 2);
  const CefRefPtr<CefListValue> empty = CefListValue::Create();
  if (!list || !dictionary || !binary || !empty) return "CEF creates no values";
  dictionary->SetInt("k", 1);
  list->SetInt(0, 7);
  list->SetNull(1);
  list->SetDictionary(2, dictionary);
  list->SetBinary(3, binary);
  list->SetList(4, empty);
  list->SetDouble(5, 2.5);
  list->SetString(6, "ä€𝄞");
  list->SetBool(7, true);
  return SendTo(call.browser, call.arguments->GetString(0), list);
}

std::string Resend(const Call& call) {
  const int identifier = call.arguments->GetInt(0);
  const CefRefPtr<CefBrowser> browser = call.client.FindBrowser(identifier);
  if (!browser) return call.client.DescribeMissing(identifier);
  return SendTo(browser, call.arguments->GetString(1), call.arguments->GetList(2));
}

// Wraps the action of a command that cannot fail.
template <class Action>
std::function<std::string(const Call&)> Always(Action action) {
  return [action](const Call& call) {
    action(call);
    return std::string();
  };
}

const std::map<std::string, Command>& Commands() {
  static const std::map<std::string, Command> commands = {
      {"host.send",
       {{Parameter::kName, Parameter::kOptionalList},
        [](const Call& call) {
          return SendTo(call.browser, call.arguments->GetString(0), call.arguments->GetList(1));
        }}},
      {"host.sendKinds", {{Parameter::kName}, SendKinds}},
      {"host.resend", {{Parameter::kBrowser, Parameter::kName, Parameter::kOptionalList}, Resend}},
      {"host.load", {{Parameter::kUrl}, Always([](const Call& call) {
                       call.client.Load(call.browser, call.Text(0));
                     })}},
      {"host.back", {{}, Always([](const Call& call) { call.browser->GoBack(); })}},
      {"host.forward", {{}, Always([](const Call& call) { call.browser->GoForward(); })}},
      {"host.reload", {{}, Always([](const Call& call) { call.browser->Reload(); })}},
      {"host.open",
       {{Parameter::kUrl}, Always([](const Call& call) { call.client.Open(call.Text(0)); })}},
      {"host.quit", {{Parameter::kCode}, Always([](const Call& call) {
                       call.client.Quit(call.arguments->GetInt(0));
                     })}},
  };
  return commands;
}

const char* Describe(Parameter parameter) {
  switch (parameter) {
    case Parameter::kName:
      return "name: a string that is not empty";
    case Parameter::kUrl:
      return "url: a string that is not empty";
    case Parameter::kBrowser:
      return "browser: an int";
    case Parameter::kCode:
      return "code: an int from 0 to 255";
    case Parameter::kOptionalList:
      return "list: a list, may be missing";
  }
  return "";
}

std::string Describe(const std::vector<Parameter>& parameters) {
  std::string text;
  for (const Parameter parameter : parameters) {
    text += (text.empty() ? "[" : "; ") + std::string(Describe(parameter));
  }
  return text.empty() ? "no arguments" : text + "]";
}

// CEF's wrapper rejects empty names and URLs.
bool Fits(Parameter parameter, const CefRefPtr<CefListValue>& arguments, std::size_t index) {
  const CefValueType type = arguments->GetType(index);
  switch (parameter) {
    case Parameter::kName:
    case Parameter::kUrl:
      return type == VTYPE_STRING && !arguments->GetString(index).empty();
    case Parameter::kBrowser:
      return type == VTYPE_INT;
    case Parameter::kCode:
      return type == VTYPE_INT && arguments->GetInt(index) >= 0 &&
             arguments->GetInt(index) <= kMaxExitCode;
    case Parameter::kOptionalList:  // `undefined` arrives as null
      return type == VTYPE_LIST || type == VTYPE_NULL;
  }
  return false;
}

bool Fits(const std::vector<Parameter>& parameters, const CefRefPtr<CefListValue>& arguments) {
  const std::size_t size = arguments->GetSize();
  if (size > parameters.size()) return false;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const bool fits =
        i < size ? Fits(parameters[i], arguments, i) : parameters[i] == Parameter::kOptionalList;
    if (!fits) return false;
  }
  return true;
}

// Returns an error message, empty on success.
std::string Run(const std::string& name, const Call& call) {
  const auto found = Commands().find(name);
  if (found == Commands().end()) {
    std::string known;
    for (const auto& [command, description] : Commands())
      known += (known.empty() ? "" : ", ") + command;
    return "there is no such command, only " + known;
  }
  const Command& command = found->second;
  if (!Fits(command.parameters, call.arguments)) {
    return "expected " + Describe(command.parameters);
  }
  return command.run(call);
}

void Reject(const CefRefPtr<CefBrowser>& browser, const std::string& name,
            const std::string& text) {
  PrintError(name + ": " + text);
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  if (!list) return;
  list->SetString(0, name);
  list->SetString(1, text);
  SendToPages(browser, "host.error", list);  // fails only for a page that is gone
}

}  // namespace

void RunPageCommand(SuiteClient& client, const CefRefPtr<CefBrowser>& browser,
                    const std::string& name, const CefRefPtr<CefListValue>& arguments) {
  if (name.rfind("host.", 0) != 0) return;
  const std::string failure = Run(name, {client, browser, arguments});
  if (!failure.empty()) Reject(browser, name, failure);
}
