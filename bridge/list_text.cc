#include "bridge/list_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "bridge/library_json.h"

namespace {

using Unit = CefString::char_type;
// Not a string, because libc++ has no strings of the units that CEF uses on macOS.
using Text = std::vector<Unit>;

void Append(char character, Text& text) { text.push_back(static_cast<Unit>(character)); }

void Append(const std::string& characters, Text& text) {
  text.insert(text.end(), characters.begin(), characters.end());
}

// Reading fewer elements is faster than sampling them.
constexpr int kSamples = 16;
constexpr std::size_t kMinForLibrary = std::size_t{2} * kSamples;

// Lengths are in 16-bit units. The number of strings is limited, because each of them becomes an
// argument of one call.
constexpr std::size_t kMinLongString = 512;
constexpr std::size_t kMaxStrings = 1000;

// Returns whether CEF is slow or inexact for the element at `index`. For a list, checks its element
// at `sample` instead.
bool IsSlowToWrite(const CefRefPtr<CefListValue>& list, std::size_t index, std::size_t sample) {
  switch (list->GetType(index)) {
    case VTYPE_DOUBLE:
    case VTYPE_BINARY:
    case VTYPE_DICTIONARY:
      return true;
    case VTYPE_STRING:
      return list->GetString(index).length() >= kMinLongString;
    case VTYPE_LIST: {
      CefRefPtr<CefListValue> inner = list->GetList(index);
      const std::size_t size = inner ? inner->GetSize() : 0;
      return size > 0 && IsSlowToWrite(inner, sample % size, sample);
    }
    default:
      return false;
  }
}

bool SeemsFastToWrite(const CefRefPtr<CefListValue>& list) {
  // Multiples of the golden ratio are spread evenly. Adding the sample's number reaches even and
  // odd indexes and, in a table, each of the first columns.
  constexpr double kGoldenRatio = 0.6180339887498949;
  const std::size_t size = list->GetSize();
  for (std::size_t i = 0; i < kSamples; ++i) {
    const double position = static_cast<double>(i) * kGoldenRatio;
    const double fraction = position - static_cast<int>(position);
    const auto index = static_cast<std::size_t>(fraction * static_cast<double>(size)) + i;
    if (IsSlowToWrite(list, index % size, i)) return false;
  }
  return !IsSlowToWrite(list, size - 1, 0);
}

class Writer {
 public:
  void AppendList(const CefRefPtr<CefListValue>& list) {
    const std::size_t size = list->GetSize();
    if (size >= kMinForLibrary && AppendByLibrary(list)) return;
    char separator = '[';
    for (std::size_t i = 0; i < size; ++i) {
      Append(separator, elements_);
      AppendElement(list, i);
      separator = ',';
    }
    Append(size == 0 ? "[]" : "]", elements_);
  }

  ListText Finish() {
    ListText text;
    text.elements.FromString(elements_.data(), elements_.size(), true);
    text.strings = std::move(strings_);
    if (placeholders_.empty()) return text;
    Append(']', placeholders_);
    text.placeholders.FromString(placeholders_.data(), placeholders_.size(), true);
    return text;
  }

 private:
  bool AppendByLibrary(const CefRefPtr<CefListValue>& list) {
    if (library_has_failed_ || !SeemsFastToWrite(list)) return false;
    const CefString text = WriteLibraryJson(list);
    // The inexact element may be inside several nested lists, each of which would fail again.
    library_has_failed_ = text.empty();
    elements_.insert(elements_.end(), text.c_str(), text.c_str() + text.length());
    return !library_has_failed_;
  }

  void AppendElement(const CefRefPtr<CefListValue>& list, std::size_t index) {
    // Saves a call in a row of doubles: if GetDouble does not return 0, the element is an int or a
    // double.
    if (doubles_in_a_row_ > 1) {
      const double number = list->GetDouble(index);
      if (number != 0) return AppendNumber(number);
    }
    const CefValueType type = list->GetType(index);
    doubles_in_a_row_ = type == VTYPE_DOUBLE ? doubles_in_a_row_ + 1 : 0;
    switch (type) {
      case VTYPE_BOOL:
        return Append(list->GetBool(index) ? "true" : "false", elements_);
      case VTYPE_INT:
        return Append(std::to_string(list->GetInt(index)), elements_);
      case VTYPE_DOUBLE:
        return AppendNumber(list->GetDouble(index));
      case VTYPE_STRING:
        return AppendString(list->GetString(index));
      case VTYPE_LIST:
        if (CefRefPtr<CefListValue> inner = list->GetList(index)) return AppendList(inner);
        [[fallthrough]];
      default:
        return Append("null", elements_);
    }
  }

  void AppendPlaceholder(const std::string& first, const std::string& second) {
    Append("{}", elements_);
    Append(placeholders_.empty() ? '[' : ',', placeholders_);
    Append(first, placeholders_);
    Append(',', placeholders_);
    Append(second, placeholders_);
  }

  void AppendNumber(double number) {
    std::int32_t words[2];
    std::memcpy(words, &number, sizeof words);
    const bool is_zero = words[0] == 0 && words[1] == 0;  // false for -0
    if (is_zero ||
        (number != 0 && number >= std::numeric_limits<int>::min() &&
         number <= std::numeric_limits<int>::max() && number == static_cast<int>(number))) {
      return Append(std::to_string(static_cast<int>(number)), elements_);
    }
    AppendPlaceholder(std::to_string(words[0]), std::to_string(words[1]));
  }

  void AppendString(CefString string) {
    if (string.length() >= kMinLongString && strings_.size() < kMaxStrings) {
      AppendPlaceholder(std::to_string(strings_.size()), "null");
      strings_.push_back(std::move(string));
      return;
    }
    Append('"', elements_);
    const Unit* next = string.c_str();
    const Unit* const end = next + string.length();
    while (next != end) {
      const Unit* const special = std::find_if(next, end, NeedsEscape);
      elements_.insert(elements_.end(), next, special);
      next = special;
      if (next != end) AppendEscaped(*next++);
    }
    Append('"', elements_);
  }

  static bool NeedsEscape(Unit unit) { return unit < 0x20 || unit == '"' || unit == '\\'; }

  void AppendEscaped(Unit unit) {
    if (unit < 0x20) {
      Append(unit < 0x10 ? "\\u000" : "\\u001", elements_);
      Append("0123456789abcdef"[unit % 0x10], elements_);
    } else {
      Append('\\', elements_);
      elements_.push_back(unit);
    }
  }

  Text elements_;
  Text placeholders_;  // without its closing bracket
  std::vector<CefString> strings_;
  int doubles_in_a_row_ = 0;
  bool library_has_failed_ = false;
};

}  // namespace

ListText WriteListText(const CefRefPtr<CefListValue>& list) {
  Writer writer;
  writer.AppendList(list);
  return writer.Finish();
}
