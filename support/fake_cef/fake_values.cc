#include "support/fake_cef/fake_values.h"

#include <algorithm>
#include <sstream>

#include "support/fake_cef/fake_strings.h"

namespace fake_cef {
namespace {

std::string Text(std::monostate) { return "null"; }
std::string Text(Invalid) { return "invalid"; }
std::string Text(bool value) { return value ? "true" : "false"; }
std::string Text(int value) { return std::to_string(value); }
std::string Text(const std::u16string& value) { return '"' + ToUtf8(value) + '"'; }
std::string Text(const Own<cef_binary_value_t>&) { return "binary"; }
std::string Text(const Own<cef_dictionary_value_t>&) { return "dictionary"; }
std::string Text(const Own<cef_list_value_t>& list) {
  return list ? FakeList::From(list.get())->Text() : "no list";
}
std::string Text(double value) {
  std::ostringstream text;
  text.precision(17);
  text << std::showpoint << value;
  return text.str();
}

template <class Value>
Value ValueOr(const Element& element, Value fallback) {
  const auto* value = std::get_if<Value>(&element);
  return value ? *value : fallback;
}

}  // namespace

FakeDictionary::FakeDictionary() {
  set_int = [](cef_dictionary_value_t* self, const cef_string_t* key, int value) {
    Of(self).numbers_[TextOf(key)] = value;
    return 1;
  };
}

FakeValue::FakeValue(Element element) : element_(std::move(element)) {
  set_list = [](cef_value_t* self, cef_list_value_t* value) {
    Of(self).element_ = Own<cef_list_value_t>::Take(value);
    return 1;
  };
}

cef_value_type_t TypeOf(const Element& element) {
  if (std::holds_alternative<Invalid>(element)) return VTYPE_INVALID;
  return static_cast<cef_value_type_t>(element.index() + VTYPE_NULL);
}

FakeList::FakeList(std::vector<Element> elements) : elements_(std::move(elements)) {
  FillGetters();
  FillSetters();
}

std::string FakeList::Text() const {
  std::string text;
  for (const Element& element : elements_) {
    text += text.empty() ? "" : ",";
    text += std::visit([](const auto& value) { return fake_cef::Text(value); }, element);
  }
  return "[" + text + "]";
}

const Element& FakeList::At(cef_list_value_t* self, std::size_t index) {
  static const Element nothing = Invalid{};
  const FakeList& list = Of(self);
  return index < list.elements_.size() ? list.elements_[index] : nothing;
}

int FakeList::Set(cef_list_value_t* self, std::size_t index, Element element) {
  FakeList& list = Of(self);
  if (index < list.elements_.size()) {
    ++list.replaced_;
  } else {
    list.elements_.resize(index + 1);
  }
  list.elements_[index] = std::move(element);
  return 1;
}

void FakeList::FillGetters() {
  using Self = cef_list_value_t*;
  get_size = [](Self self) { return Of(self).elements_.size(); };
  get_type = [](Self self, std::size_t index) { return TypeOf(At(self, index)); };
  get_value = [](Self self, std::size_t index) -> cef_value_t* {
    return Make<FakeValue>(At(self, index)).Give();
  };
  get_bool = [](Self self, std::size_t index) { return ValueOr(At(self, index), false) ? 1 : 0; };
  get_int = [](Self self, std::size_t index) { return ValueOr(At(self, index), 0); };
  get_double = [](Self self, std::size_t index) {
    const Element& element = At(self, index);
    return ValueOr(element, static_cast<double>(ValueOr(element, 0)));  // an int is also a double
  };
  get_string = [](Self self, std::size_t index) -> cef_string_userfree_t {
    const auto text = ValueOr<std::u16string>(At(self, index), {});
    return text.empty() ? nullptr : NewUserFree(text);
  };
  get_list = [](Self self, std::size_t index) {
    return ValueOr<Own<cef_list_value_t>>(At(self, index), {}).Give();
  };
}

void FakeList::FillSetters() {
  using Self = cef_list_value_t*;
  set_size = [](Self self, std::size_t size) {
    // The library's loop over the removed elements does not end then.
    if (size == 0 && !Of(self).elements_.empty()) ReportMisuse("a list was emptied by its size");
    Of(self).elements_.resize(size);
    return 1;
  };
  set_value = [](Self self, std::size_t index, cef_value_t* value) {
    const auto owned = Own<cef_value_t>::Take(value);
    return Set(self, index, FakeValue::From(value)->element());
  };
  set_null = [](Self self, std::size_t index) { return Set(self, index, {}); };
  set_bool = [](Self self, std::size_t index, int value) { return Set(self, index, value != 0); };
  set_int = [](Self self, std::size_t index, int value) { return Set(self, index, value); };
  set_double = [](Self self, std::size_t index, double value) { return Set(self, index, value); };
  set_string = [](Self self, std::size_t index, const cef_string_t* value) {
    return Set(self, index, TextOf(value));
  };
  set_binary = [](Self self, std::size_t index, cef_binary_value_t* value) {
    return Set(self, index, Own<cef_binary_value_t>::Take(value));
  };
  set_dictionary = [](Self self, std::size_t index, cef_dictionary_value_t* value) {
    return Set(self, index, Own<cef_dictionary_value_t>::Take(value));
  };
  set_list = [](Self self, std::size_t index, cef_list_value_t* value) {
    return Set(self, index, Own<cef_list_value_t>::Take(value));
  };
}

FakeMessage::FakeMessage(std::u16string name, Own<FakeList> list)
    : name_(std::move(name)), list_(std::move(list)) {
  get_name = [](cef_process_message_t* self) { return NewUserFree(Of(self).name_); };
  get_argument_list = [](cef_process_message_t* self) -> cef_list_value_t* {
    return Of(self).list_.Give();
  };
}

FakeCommandLine::FakeCommandLine() {
  using Self = cef_command_line_t*;
  append_switch = [](Self self, const cef_string_t* name) {
    Of(self).switches.push_back(ToUtf8(TextOf(name)));
  };
  append_switch_with_value = [](Self self, const cef_string_t* name, const cef_string_t* value) {
    Of(self).switches.push_back(ToUtf8(TextOf(name) + u"=" + TextOf(value)));
  };
  has_switch = [](Self self, const cef_string_t* name) {
    const std::string wanted = ToUtf8(TextOf(name));
    const auto& all = Of(self).switches;
    return std::any_of(
               all.begin(), all.end(),
               [&](const std::string& given) { return given.substr(0, given.find('=')) == wanted; })
               ? 1
               : 0;
  };
}

FakeCookieManager::FakeCookieManager() {
  set_supported_schemes = [](cef_cookie_manager_t* self, cef_string_list_t list,
                             cef_completion_callback_t* callback) {
    const auto owned = Own<cef_completion_callback_t>::Take(callback);
    Of(self).schemes.push_back(ListText(list));
    if (callback) ++Of(self).callbacks;
  };
}

}  // namespace fake_cef
