#include "examples/suite_host/input_commands.h"

#include <string>
#include <string_view>

#include "examples/suite_host/event_printer.h"
#include "examples/suite_host/input_json.h"
#include "examples/suite_host/input_reader.h"
#include "examples/suite_host/page_message.h"
#include "examples/suite_host/suite_client.h"

namespace {

constexpr int kDefaultBrowser = 1;

struct Input {
  SuiteClient& client;
  const Json& object;
  const Json& value;              // the value of the command's key
  CefRefPtr<CefBrowser> browser;  // null for a command without one
};

struct Command {
  std::string_view name;
  const char* form;
  bool takes_arguments;  // accepts the key "args"
  bool takes_browser;    // accepts the key "browser"
  bool (*fits)(const Json& value);
  const char* requirement;                 // describes values for which `fits` returns true
  std::string (*run)(const Input& input);  // returns an error message, empty on success
};

// CEF's wrapper rejects empty strings.
bool IsFilledString(const Json& value) {
  return value.is_string() && !value.get_ref<const std::string&>().empty();
}

bool IsExitCode(const Json& value) {
  return value.is_number_integer() && value.get<int>() >= 0 && value.get<int>() <= kMaxExitCode;
}

bool IsTrue(const Json& value) { return value.is_boolean() && value.get<bool>(); }

std::string Send(const Input& input) {
  const CefRefPtr<CefListValue> list = CefListValue::Create();
  if (!list) return "CEF creates no list";
  const auto arguments = input.object.find("args");
  if (arguments != input.object.end()) {
    if (!arguments->is_array()) return "\"args\" must be an array";
    if (!CopyArrayToList(*arguments, list)) return "CEF rejects an element of \"args\"";
  }
  return SendToPages(input.browser, input.value.get_ref<const std::string&>(), list)
             ? std::string()
             : "CEF rejects the message";
}

std::string Load(const Input& input) {
  input.client.Load(input.browser, input.value.get<std::string>());
  return {};
}

std::string Reload(const Input& input) {
  input.browser->Reload();
  return {};
}

std::string TakePicture(const Input& input) {
  return input.client.TakePicture(input.browser, input.value.get<std::string>())
             ? std::string()
             : "browser " + std::to_string(input.browser->GetIdentifier()) +
                   " is a window, and only off-screen browsers have pictures";
}

std::string Quit(const Input& input) {
  input.client.Quit(input.value.get<int>());
  return {};
}

constexpr const char* kFilledString = "a string that is not empty";

constexpr Command kCommands[] = {
    {"send", R"({"send": NAME, "args": [...], "browser": NUMBER})", true, true, IsFilledString,
     kFilledString, Send},
    {"load", R"({"load": URL, "browser": NUMBER})", false, true, IsFilledString, kFilledString,
     Load},
    {"reload", R"({"reload": true, "browser": NUMBER})", false, true, IsTrue, "true", Reload},
    {"screenshot", R"({"screenshot": FILE, "browser": NUMBER})", false, true, IsFilledString,
     kFilledString, TakePicture},
    {"quit", R"({"quit": CODE})", false, false, IsExitCode, "an int from 0 to 255", Quit},
};

// Returns null, with the reason in `error`, unless the object has exactly one command.
const Command* FindCommand(const Json& object, std::string& error) {
  const Command* found = nullptr;
  for (const Command& command : kCommands) {
    if (!object.contains(command.name)) continue;
    if (found) {
      error = "two commands: \"" + std::string(found->name) + "\" and \"" +
              std::string(command.name) + "\"";
      return nullptr;
    }
    found = &command;
  }
  if (!found) error = "no command";
  return found;
}

bool Takes(const Command& command, std::string_view key) {
  return key == command.name || (command.takes_arguments && key == "args") ||
         (command.takes_browser && key == "browser");
}

bool HasOnlyKeysOf(const Command& command, const Json& object, std::string& error) {
  for (const auto& item : object.items()) {
    if (Takes(command, item.key())) continue;
    error = "unknown key \"" + item.key() + "\"";
    return false;
  }
  return true;
}

std::string Run(SuiteClient& client, const Command& command, const Json& object) {
  const Json& value = object.at(std::string(command.name));
  if (!command.takes_browser) return command.run({client, object, value, nullptr});
  const Json number = object.value("browser", Json(kDefaultBrowser));
  if (!number.is_number_integer()) return "\"browser\" must be an int";
  const CefRefPtr<CefBrowser> browser = client.FindBrowser(number.get<int>());
  if (!browser) return client.DescribeMissing(number.get<int>());
  return command.run({client, object, value, browser});
}

std::string Forms() {
  std::string forms;
  for (const Command& command : kCommands) {
    forms += (forms.empty() ? "" : ", ") + std::string(R"({")") + std::string(command.name) +
             R"(": ...})";
  }
  return "one of " + forms;
}

// Returns an error message, empty on success.
std::string Process(SuiteClient& client, const InputLine& line) {
  if (line.too_long) return "longer than " + std::to_string(kMaxInputLine) + " bytes";
  std::string error;
  Json object;
  if (!ParseInput(line.text, object, error)) return error;
  const Command* const command = FindCommand(object, error);
  if (!command) return error + "; expected " + Forms();
  if (!HasOnlyKeysOf(*command, object, error)) return error + "; expected " + command->form;
  const std::string name(command->name);
  if (!command->fits(object.at(name))) return "\"" + name + "\" must be " + command->requirement;
  return Run(client, *command, object);
}

}  // namespace

void RunInputCommand(SuiteClient& client, const InputLine& line) {
  const std::string error = Process(client, line);
  if (!error.empty()) PrintError("line " + std::to_string(line.number) + ": " + error);
}
