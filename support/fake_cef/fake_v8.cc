#include "support/fake_cef/fake_v8.h"

#include <sstream>
#include <type_traits>
#include <utility>

#include "support/fake_cef/fake_library.h"
#include "support/fake_cef/fake_strings.h"

namespace fake_cef {
namespace {

std::string Text(Undefined) { return "undefined"; }
std::string Text(Null) { return "null"; }
std::string Text(const Object&) { return "object"; }
std::string Text(bool value) { return value ? "true" : "false"; }
std::string Text(int value) { return std::to_string(value); }
std::string Text(const std::u16string& value) { return '"' + ToUtf8(value) + '"'; }
std::string Text(const Function&) { return "function"; }
std::string Text(double value) {
  std::ostringstream text;
  text.precision(17);
  text << std::showpoint << value;
  return text.str();
}
std::string Text(const Array& array) {
  std::string text;
  for (const auto& element : array.elements) {
    text += (text.empty() ? "" : ",") + (element ? element->Text() : "hole");
  }
  return "[" + text + "]";
}

}  // namespace

FakeV8Value::FakeV8Value(ScriptValue value) : value_(std::move(value)) {
  FillKinds();
  FillContents();
}

std::string FakeV8Value::Text() const {
  return std::visit([](const auto& value) { return fake_cef::Text(value); }, value_);
}

void FakeV8Value::FillKinds() {
  using Self = cef_v8value_t*;
  is_bool = [](Self self) { return Of(self).Is<bool>() ? 1 : 0; };
  is_int = [](Self self) { return Of(self).Is<int>() ? 1 : 0; };
  is_double = [](Self self) { return Of(self).Is<double>() || Of(self).Is<int>() ? 1 : 0; };
  is_string = [](Self self) { return Of(self).Is<std::u16string>() ? 1 : 0; };
  is_array = [](Self self) { return Of(self).Is<Array>() ? 1 : 0; };
  is_function = [](Self self) { return Of(self).Is<Function>() ? 1 : 0; };
}

void FakeV8Value::FillContents() {
  using Self = cef_v8value_t*;
  get_bool_value = [](Self self) { return std::get<bool>(Of(self).value_) ? 1 : 0; };
  get_int_value = [](Self self) { return std::get<int>(Of(self).value_); };
  get_double_value = [](Self self) { return std::get<double>(Of(self).value_); };
  get_string_value = [](Self self) -> cef_string_userfree_t {
    return Of(self).text().empty() ? nullptr : NewUserFree(Of(self).text());
  };
  get_array_length = [](Self self) {
    const auto& array = std::get<Array>(Of(self).value_);
    return array.length.value_or(static_cast<int>(array.elements.size()));
  };
  get_value_byindex = [](Self self, int index) -> cef_v8value_t* {
    const auto& elements = std::get<Array>(Of(self).value_).elements;
    const auto position = static_cast<std::size_t>(index);
    return position < elements.size() ? elements[position].Give() : nullptr;
  };
  get_value_bykey = [](Self self, const cef_string_t* key) -> cef_v8value_t* {
    const auto& get = std::get<Object>(Of(self).value_).get;
    return get ? get(TextOf(key)).Give() : nullptr;
  };
  set_value_bykey = [](Self self, const cef_string_t* key, Self given, cef_v8_propertyattribute_t) {
    auto value = Own<FakeV8Value>::Take(From(given));
    const auto& set = std::get<Object>(Of(self).value_).set;
    if (set) set(TextOf(key), std::move(value));
    return set ? 1 : 0;
  };
  set_value_byindex = SetElement;
  execute_function_with_context = Execute;
}

int FakeV8Value::SetElement(cef_v8value_t* self, int index, cef_v8value_t* value) {
  auto element = Own<FakeV8Value>::Take(From(value));
  auto& elements = std::get<Array>(Of(self).value_).elements;
  const auto position = static_cast<std::size_t>(index);
  if (position >= elements.size()) elements.resize(position + 1);
  elements[position] = std::move(element);
  return 1;
}

cef_v8value_t* FakeV8Value::Execute(cef_v8value_t* self, cef_v8context_t* context,
                                    cef_v8value_t* object, std::size_t count,
                                    cef_v8value_t* const* arguments) {
  const auto owned_context = Own<FakeV8Context>::Take(FakeV8Context::From(context));
  const auto owned_object = Own<cef_v8value_t>::Take(object);
  if (object) ReportMisuse("a function was called on an object");
  std::vector<Own<FakeV8Value>> owned;
  std::vector<FakeV8Value*> seen;
  for (std::size_t i = 0; i < count; ++i) {
    seen.push_back(From(arguments[i]));
    owned.push_back(Own<FakeV8Value>::Take(seen.back()));
  }
  if (!owned_context || !owned_context->can_enter) return nullptr;
  const Function function = std::get<Function>(Of(self).value_);
  ++owned_context->executed;
  ++library().entered_contexts;
  auto outer_context = std::exchange(library().current_context, owned_context);
  auto result = function.body ? function.body(seen) : nullptr;
  library().current_context = std::move(outer_context);
  --library().entered_contexts;
  From(self);  // the caller must hold the function until it returns
  return result.Give();
}

FakeV8Context::FakeV8Context(int identity, Own<FakeBrowser> browser)
    : identity_(identity), browser_(std::move(browser)) {
  get_browser = [](cef_v8context_t* self) -> cef_browser_t* { return Of(self).browser_.Give(); };
  enter = [](cef_v8context_t* self) {
    FakeV8Context& context = Of(self);
    if (!context.can_enter) return 0;
    ++context.entered;
    ++library().entered_contexts;
    return 1;
  };
  exit = [](cef_v8context_t* self) {
    ++Of(self).exited;
    if (--library().entered_contexts < 0) ReportMisuse("a context was left without being entered");
    return 1;
  };
  is_same = [](cef_v8context_t* self, cef_v8context_t* that) {
    const auto other = Own<FakeV8Context>::Take(From(that));
    return other && other->identity_ == Of(self).identity_ ? 1 : 0;
  };
}

}  // namespace fake_cef
