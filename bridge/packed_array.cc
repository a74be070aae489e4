#include "bridge/packed_array.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

enum Kind { kNull, kFalse, kTrue, kInt, kDouble, kString, kArray };

// More levels than the script packs. Only a text that the script did not write has more.
constexpr int kMaxDepth = 200;

using Unit = CefString::char_type;

// Reads units from the first to the last. Returns zeros after the last unit.
class Units {
 public:
  Units(const Unit* begin, std::size_t size) : next_(begin), end_(begin + size) {}

  bool AtEnd() const { return next_ == end_; }
  std::uint16_t Next() { return AtEnd() ? std::uint16_t{0} : static_cast<std::uint16_t>(*next_++); }
  std::uint32_t NextNumber() {
    const std::uint32_t low = Next();
    return low | static_cast<std::uint32_t>(Next()) << 16;
  }
  double NextDouble() {
    std::uint64_t bits = NextNumber();
    bits |= static_cast<std::uint64_t>(NextNumber()) << 32;
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }
  // Returns the next `size` units, or all units that are left.
  Units Take(std::size_t size) {
    const std::size_t taken = std::min(size, static_cast<std::size_t>(end_ - next_));
    next_ += taken;
    return {next_ - taken, taken};
  }
  CefString TakeString(std::size_t size) {
    const Units taken = Take(size);
    CefString string;
    string.FromString(taken.next_, static_cast<std::size_t>(taken.end_ - taken.next_), false);
    return string;
  }

 private:
  const Unit* next_;
  const Unit* end_;
};

class Reader {
 public:
  Reader(const Unit* text, std::size_t size) : strings_(text, size), array_(nullptr, 0) {
    const std::size_t array_size = strings_.NextNumber();
    array_ = strings_.Take(array_size);
  }

  void AppendArrayTo(const CefRefPtr<CefListValue>& target, int depth = 1) {
    const std::size_t size = array_.NextNumber();
    for (std::size_t i = 0; i < size && !array_.AtEnd(); ++i)
      AppendElementTo(target, i, depth);
  }

 private:
  void AppendElementTo(const CefRefPtr<CefListValue>& target, std::size_t index, int depth) {
    switch (array_.Next()) {
      case kFalse:
        target->SetBool(index, false);
        break;
      case kTrue:
        target->SetBool(index, true);
        break;
      case kInt:
        target->SetInt(index, static_cast<int>(array_.NextNumber()));
        break;
      case kDouble:
        target->SetDouble(index, array_.NextDouble());
        break;
      case kString:
        target->SetString(index, strings_.TakeString(array_.NextNumber()));
        break;
      case kArray:
        if (CefRefPtr<CefListValue> list = CefListValue::Create(); list && depth < kMaxDepth) {
          AppendArrayTo(list, depth + 1);
          target->SetList(index, list);
          break;
        }
        [[fallthrough]];
      default:
        target->SetNull(index);
    }
  }

  Units strings_;
  Units array_;
};

}  // namespace

void ReadPackedArray(const CefString::char_type* text, std::size_t size,
                     const CefRefPtr<CefListValue>& target) {
  Reader(text, size).AppendArrayTo(target);
}
