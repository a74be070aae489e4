// Writes JSON with the peculiarities of the library.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "support/fake_cef/fake_strings.h"
#include "support/fake_cef/fake_values.h"

namespace fake_cef {
namespace {

struct Writer {
  void operator()(std::monostate) { text += u"null"; }
  void operator()(Invalid) { text += u"null"; }
  void operator()(bool value) { text += value ? u"true" : u"false"; }
  void operator()(int value) { text += ToUtf16(std::to_string(value)); }
  void operator()(double value) {
    std::array<char, 40> digits{};
    if (std::floor(value) == value && std::abs(value) < 0x1p63) {
      text += ToUtf16(std::to_string(static_cast<std::int64_t>(value)));
    } else if (std::abs(value) == 0x1p63) {
      text += ToUtf16(std::to_string(std::numeric_limits<std::int64_t>::min()));
    } else {
      std::snprintf(digits.data(), digits.size(), "%.15g", value);
      text += ToUtf16(digits.data());
    }
  }
  void operator()(const std::u16string& value) {
    text += u'"';
    for (const char16_t unit : value) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(unit));
      const bool is_plain = unit >= 0x20 && unit != u'"' && unit != u'\\' && unit != u'<';
      text += is_plain ? std::u16string(1, unit) : ToUtf16(escape.data());
    }
    text += u'"';
  }
  void operator()(const Own<cef_binary_value_t>&) { has_binary = true; }
  void operator()(const Own<cef_dictionary_value_t>&) { text += u"{}"; }
  void operator()(const Own<cef_list_value_t>& list) {
    char16_t separator = u'[';
    for (const Element& element : FakeList::From(list.get())->elements()) {
      text += separator;
      std::visit(*this, element);
      separator = u',';
    }
    if (separator == u'[') text += separator;
    text += u']';
  }

  std::u16string& text;
  bool& has_binary;
};

}  // namespace

std::u16string FakeValue::Json() const {
  std::u16string text;
  bool has_binary = false;
  std::visit(Writer{text, has_binary}, element_);
  return has_binary ? std::u16string() : text;
}

}  // namespace fake_cef
