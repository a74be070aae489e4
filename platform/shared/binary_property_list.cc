// The systems' libraries also read this format, but their limits do not cover every list. libplist
// 2.2 copies an object once for each reference to it. Where each array refers to the next array
// twice, every level doubles the time and the memory: 22 levels in 308 bytes take 900 MB, and 40
// levels never end. GNUstep's Foundation crashes on a string that extends past the end of the list.
// This reader reads the top-level dictionary only.
//
// The format: "bplist" and two digits of a version; the objects; a table of their offsets; and a
// trailer of 32 bytes with the position of the table and the width of its numbers. All numbers are
// big-endian. An object begins with a byte of its kind (high half) and its size (low half; 15 means
// that an integer object with the size follows). The content of a dictionary is the numbers of its
// keys' objects, then the numbers of its values' objects.

#include "platform/shared/binary_property_list.h"

#include <cstdint>

#include "platform/begins_with.h"
#include "platform/shared/text_encoding.h"

namespace platform {
namespace {

constexpr char kMagic[] = "bplist";
constexpr std::size_t kHead = 8;
constexpr std::size_t kTrailer = 32;

constexpr unsigned kInteger = 0x1;
constexpr unsigned kAsciiText = 0x5;
constexpr unsigned kWideText = 0x6;
constexpr unsigned kDictionary = 0xD;
constexpr unsigned kSizeFollows = 0xF;

class BinaryList {
 public:
  explicit BinaryList(const std::string& bytes) : bytes_(bytes) {}

  // Reads the trailer. Must be called first; returns false when the list is unreadable.
  bool Open();

  bool Find(const std::string& key, std::string& value) const;

 private:
  // An object. Its content may extend past the end of the list.
  struct Object {
    unsigned kind;
    std::size_t first;  // the offset of its content
    std::size_t size;   // as stored in the object: bytes, UTF-16 units or entries
  };

  unsigned Byte(std::size_t position) const { return static_cast<unsigned char>(bytes_[position]); }

  // Returns the number in the `width` bytes at `position`, all of which must exist.
  std::uint64_t Number(std::size_t position, std::size_t width) const;

  bool GetObject(std::uint64_t number, Object& object) const;
  bool GetSize(std::size_t& position, std::size_t& size) const;
  // Returns whether `count` items of `width` bytes each fit between `position` and the table.
  bool Fits(std::size_t position, std::uint64_t count, std::size_t width) const {
    return position <= table_ && count <= (table_ - position) / width;
  }

  bool GetText(std::uint64_t number, std::string& text) const;
  bool IsText(std::uint64_t number, const std::string& expected) const;

  const std::string& bytes_;
  std::size_t offset_width_ = 0;
  std::size_t reference_width_ = 0;
  std::uint64_t count_ = 0;
  std::uint64_t top_ = 0;
  std::size_t table_ = 0;
};

std::uint64_t BinaryList::Number(std::size_t position, std::size_t width) const {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < width; ++i)
    number = number << 8 | Byte(position + i);
  return number;
}

bool BinaryList::Open() {
  if (!IsBinaryPropertyList(bytes_) || bytes_.size() < kHead + kTrailer) return false;
  const std::size_t trailer = bytes_.size() - kTrailer;
  offset_width_ = Byte(trailer + 6);
  reference_width_ = Byte(trailer + 7);
  count_ = Number(trailer + 8, 8);
  top_ = Number(trailer + 16, 8);
  const std::uint64_t table = Number(trailer + 24, 8);
  if (offset_width_ < 1 || offset_width_ > 8 || reference_width_ < 1 || reference_width_ > 8) {
    return false;
  }
  if (table < kHead || table > trailer || count_ > (trailer - table) / offset_width_) return false;
  table_ = static_cast<std::size_t>(table);
  return true;
}

// Reads a size that does not fit into the half byte, and moves `position` past it.
bool BinaryList::GetSize(std::size_t& position, std::size_t& size) const {
  if (!Fits(position, 1, 1) || Byte(position) >> 4 != kInteger) return false;
  const unsigned exponent = Byte(position++) & 0xF;
  if (exponent > 3) return false;
  const std::size_t width = std::size_t{1} << exponent;
  if (!Fits(position, width, 1)) return false;
  const std::uint64_t number = Number(position, width);
  position += width;
  if (number > table_) return false;
  size = static_cast<std::size_t>(number);
  return true;
}

bool BinaryList::GetObject(std::uint64_t number, Object& object) const {
  if (number >= count_) return false;
  const std::uint64_t offset =
      Number(table_ + static_cast<std::size_t>(number) * offset_width_, offset_width_);
  if (offset < kHead || offset >= table_) return false;
  object.first = static_cast<std::size_t>(offset);
  const unsigned marker = Byte(object.first++);
  object.kind = marker >> 4;
  object.size = marker & 0xF;
  return object.size != kSizeFollows || GetSize(object.first, object.size);
}

bool BinaryList::GetText(std::uint64_t number, std::string& text) const {
  Object object{};
  if (!GetObject(number, object)) return false;
  const char* const content = bytes_.data() + object.first;
  if (object.kind == kAsciiText) {
    return Fits(object.first, object.size, 1) &&
           ToUtf8(TextEncoding::kAscii, content, object.size, text);
  }
  return object.kind == kWideText && Fits(object.first, object.size, 2) &&
         ToUtf8(TextEncoding::kUtf16BigEndian, content, object.size * 2, text);
}

// Decodes only text that may be equal: all keys can be the same long text.
bool BinaryList::IsText(std::uint64_t number, const std::string& expected) const {
  Object object{};
  std::string text;
  return GetObject(number, object) && object.size <= expected.size() && GetText(number, text) &&
         text == expected;
}

bool BinaryList::Find(const std::string& key, std::string& value) const {
  Object top{};
  if (!GetObject(top_, top) || top.kind != kDictionary) return false;
  if (!Fits(top.first, top.size, 2 * reference_width_)) return false;
  const std::size_t values = top.first + top.size * reference_width_;
  for (std::size_t i = 0; i < top.size; ++i) {
    const std::size_t place = i * reference_width_;
    if (IsText(Number(top.first + place, reference_width_), key)) {
      return GetText(Number(values + place, reference_width_), value);
    }
  }
  return false;
}

}  // namespace

bool IsBinaryPropertyList(const std::string& bytes) { return BeginsWith(bytes, kMagic); }

bool FindInBinaryPropertyList(const std::string& bytes, const std::string& key,
                              std::string& value) {
  BinaryList list(bytes);
  return list.Open() && list.Find(key, value);
}

}  // namespace platform
