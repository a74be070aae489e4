#include "bridge/library_json.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "include/cef_parser.h"

namespace {

using Unit = CefString::char_type;

// Compares the text that CEF wrote for a list with the list, in one pass.
class Check {
 public:
  Check(CefRefPtr<CefListValue> list, const CefString& text)
      : list_(std::move(list)), next_(text.c_str()), end_(next_ + text.length()) {}

  // Returns whether every value in the text equals the value in the list.
  bool Passes() {
    while (next_ != end_) {
      switch (*next_++) {
        case '"':
          SkipString();
          break;
        case '[':
          positions_.push_back({positions_.empty() ? list_ : nullptr, 0});
          break;
        case ']':
          positions_.pop_back();
          break;
        case ',':
          ++positions_.back().index;
          break;
        case '{':
          return false;
        default:
          if (!WordIsExact()) return false;
      }
    }
    return true;
  }

 private:
  struct Position {
    CefRefPtr<CefListValue> list;  // null until it is needed
    std::size_t index;
  };

  void SkipString() {
    while (*next_ != '"')
      next_ += *next_ == '\\' ? 2 : 1;
    ++next_;
  }

  // Returns whether the word whose first unit has been read equals the value in the list. A word is
  // true, false, null, a number or "nan".
  bool WordIsExact() {
    const Unit* const begin = next_ - 1;
    next_ = std::find_if(next_, end_, [](Unit unit) { return unit == ',' || unit == ']'; });
    if (*begin == 't' || *begin == 'f' || (*begin == 'n' && begin[1] == 'u')) return true;
    // The length of the longest int. A double also represents integers of this length exactly.
    constexpr std::ptrdiff_t kMaxDigits = 11;
    if (next_ - begin > kMaxDigits) return false;
    const bool is_zero = next_ - begin == 1 && *begin == '0';
    return std::all_of(begin, next_, [](Unit unit) { return unit == '-' || IsDigit(unit); }) &&
           (!is_zero || CurrentType() == VTYPE_INT);
  }

  static bool IsDigit(Unit unit) { return unit >= '0' && unit <= '9'; }

  CefValueType CurrentType() {
    for (std::size_t i = 1; i < positions_.size(); ++i) {
      const Position& outer = positions_[i - 1];
      if (!positions_[i].list) positions_[i].list = outer.list->GetList(outer.index);
    }
    return positions_.back().list->GetType(positions_.back().index);
  }

  const CefRefPtr<CefListValue> list_;
  const Unit* next_;
  const Unit* const end_;
  std::vector<Position> positions_;
};

}  // namespace

CefString WriteLibraryJson(const CefRefPtr<CefListValue>& list) {
  CefRefPtr<CefValue> value = CefValue::Create();
  if (!value || !value->SetList(list)) return CefString();
  CefString text = CefWriteJSON(value, JSON_WRITER_DEFAULT);
  return Check(list, text).Passes() ? text : CefString();
}
