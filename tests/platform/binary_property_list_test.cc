// Tests property lists in binary form, built byte by byte: "bplist" and two digits of a version;
// the objects; a table of their offsets; and a trailer of 32 bytes with the position of the table
// and the width of its numbers.

#include <gtest/gtest.h>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/property_list.h"
#include "tests/platform/property_list_checks.h"

namespace {

std::string Number(std::uint64_t number, int width) {
  std::string bytes;
  for (int i = width - 1; i >= 0; --i)
    bytes += static_cast<char>(number >> (8 * i) & 0xFF);
  return bytes;
}

struct Trailer {
  int offset_width = 4;
  int reference_width = 2;
  std::uint64_t count;
  std::uint64_t top = 0;
  std::uint64_t table;
};

std::string Bytes(const Trailer& trailer) {
  return std::string(6, '\0') + Number(static_cast<std::uint64_t>(trailer.offset_width), 1) +
         Number(static_cast<std::uint64_t>(trailer.reference_width), 1) + Number(trailer.count, 8) +
         Number(trailer.top, 8) + Number(trailer.table, 8);
}

// Returns a list of these objects, the first of which is the top, without its trailer.
std::string Objects(const std::vector<std::string>& objects, Trailer& trailer) {
  std::string bytes = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += Number(bytes.size(), trailer.offset_width);
    bytes += object;
  }
  trailer.count = objects.size();
  trailer.table = bytes.size();
  return bytes + table;
}

std::string Binary(const std::vector<std::string>& objects, int offset_width = 4,
                   int reference_width = 2) {
  Trailer trailer{offset_width, reference_width, 0, 0, 0};
  const std::string bytes = Objects(objects, trailer);
  return bytes + Bytes(trailer);
}

// Returns the first byte of an object, followed by the size when it is 15 or more.
std::string Marker(unsigned kind, std::size_t size) {
  if (size < 15) return Number(kind << 4 | size, 1);
  return Number(kind << 4 | 15, 1) + "\x12" + Number(size, 4);
}

std::string Ascii(const std::string& text) { return Marker(5, text.size()) + text; }

std::string Wide(const std::u16string& text) {
  std::string bytes = Marker(6, text.size());
  for (const char16_t unit : text)
    bytes += Number(unit, 2);
  return bytes;
}

// Returns a dictionary (or an array, with kind 10) of the objects with these numbers.
std::string Collection(unsigned kind, std::size_t size, const std::vector<std::uint64_t>& numbers,
                       int width = 2) {
  std::string bytes = Marker(kind, size);
  for (const std::uint64_t number : numbers)
    bytes += Number(number, width);
  return bytes;
}

std::string BinaryDictionary(const std::string& value, const std::string& key = Ascii(kKey)) {
  // { "A": value of "A", key: value }
  return Binary({Collection(13, 2, {1, 3, 2, 4}), Ascii("A"), Ascii("value of A"), key, value});
}

TEST(BinaryPropertyListTest, FindsTextOfKey) {
  ExpectText(BinaryDictionary(Ascii("4.3.0")), "4.3.0");
  ExpectText(BinaryDictionary(Ascii("")), "");
  ExpectText(BinaryDictionary(Ascii(std::string(70000, 'x'))), std::string(70000, 'x'));
  ExpectText(BinaryDictionary(Wide(u"4\u00E4\u20AC\U0001D11E")),
             "4\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E");
  ExpectText(BinaryDictionary(Ascii("4"), Wide(u"CFBundleShortVersionString")), "4");
}

TEST(BinaryPropertyListTest, AcceptsNumbersOfAnyWidth) {
  for (int offset_width = 1; offset_width <= 8; ++offset_width) {
    for (int width = 1; width <= 8; ++width) {
      ExpectText(
          Binary({Collection(13, 1, {1, 2}, width), Ascii(kKey), Ascii("4")}, offset_width, width),
          "4");
    }
  }
  for (const char* const size : {"\x10\x04", "\x11\x00\x04"}) {
    const std::string text =
        Number(0x5F, 1) + std::string(size, size[0] == '\x10' ? 2 : 3) + "4.30";
    ExpectText(BinaryDictionary(text), "4.30");
  }
}

TEST(BinaryPropertyListTest, SearchesManyKeys) {
  constexpr std::uint64_t kCount = 1000;
  std::vector<std::string> objects = {""};
  std::vector<std::uint64_t> numbers(2 * kCount, 1);
  objects.push_back(Ascii("another"));
  objects.push_back(Ascii(kKey));
  objects.push_back(Ascii("4.3"));
  numbers[kCount - 1] = 2;
  numbers[2 * kCount - 1] = 3;
  objects[0] = Collection(13, kCount, numbers);
  ExpectText(Binary(objects), "4.3");
}

TEST(BinaryPropertyListTest, ReturnsFalseForOtherTypes) {
  const std::string integer = Number(0x1004, 2);
  const std::string real = Number(0x2240800000, 5);
  const std::string date = Number(0x33, 1) + Number(0, 8);
  for (const std::string& value :
       {Number(0x09, 1), integer, real, date, Number(0x4178, 2), Number(0x8001, 2),
        Collection(10, 1, {2}), Collection(13, 1, {3, 2})}) {
    ExpectNone(BinaryDictionary(value));
  }
  ExpectNone(BinaryDictionary(Ascii("\xE4")));
  ExpectNone(BinaryDictionary(Wide(std::u16string(1, 0xD834))));
}

TEST(BinaryPropertyListTest, ReturnsFalseForMissingKey) {
  const std::string list = BinaryDictionary(Ascii("4.3.0"));
  for (const char* const key : {"", "CFBundleShortVersion", "CFBundleShortVersionStringX",
                                "cfbundleshortversionstring", "4.3.0", "value of A"}) {
    ExpectNone(list, key);
  }
}

TEST(BinaryPropertyListTest, SearchesOnlyTopDictionary) {
  const std::string inner = Collection(13, 1, {2, 3});
  ExpectNone(Binary({Collection(10, 1, {1}), inner, Ascii(kKey), Ascii("4")}));
  ExpectNone(Binary({Collection(13, 1, {3, 1}), inner, Ascii(kKey), Ascii("4")}));
  ExpectNone(Binary({Ascii(kKey)}));
  ExpectNone(Binary({Collection(13, 0, {})}));
}

TEST(BinaryPropertyListTest, RejectsEveryTruncatedList) {
  const std::string list = BinaryDictionary(Ascii("4.3.0"));
  for (std::size_t size = 0; size < list.size(); ++size)
    ExpectNone(list.substr(0, size));
}

TEST(BinaryPropertyListTest, RejectsImpossibleTrailers) {
  const std::vector<std::string> objects = {Collection(13, 1, {1, 2}), Ascii(kKey), Ascii("4")};
  Trailer good{4, 2, 0, 0, 0};
  const std::string bytes = Objects(objects, good);
  ExpectText(bytes + Bytes(good), "4");
  constexpr std::uint64_t kHuge = ~std::uint64_t{0};
  for (const int width : {0, 9, 255}) {
    ExpectNone(bytes + Bytes({width, good.reference_width, good.count, good.top, good.table}));
    ExpectNone(bytes + Bytes({good.offset_width, width, good.count, good.top, good.table}));
  }
  for (const std::uint64_t number : {good.count, std::uint64_t{1} << 62, kHuge}) {
    ExpectNone(bytes + Bytes({4, 2, good.count, number, good.table}));
  }
  for (const std::uint64_t count : {std::uint64_t{0}, good.count + 100, kHuge / 4, kHuge}) {
    ExpectNone(bytes + Bytes({4, 2, count, good.top, good.table}));
  }
  for (const std::uint64_t table :
       {std::uint64_t{0}, std::uint64_t{bytes.size()}, kHuge - 8, kHuge}) {
    ExpectNone(bytes + Bytes({4, 2, good.count, good.top, table}));
  }
}

TEST(BinaryPropertyListTest, RejectsSizesPastEnd) {
  const std::string huge_size = Number(0x13, 1) + Number(~std::uint64_t{0}, 8);
  const std::string half_size = Number(0x13, 1) + Number(std::uint64_t{1} << 63, 8);
  for (const std::string& size : {huge_size, half_size, Number(0x127FFFFFFF, 5), Number(0x14, 1),
                                  Number(0x23, 1), std::string()}) {
    ExpectNone(BinaryDictionary(Number(0x5F, 1) + size));
    ExpectNone(BinaryDictionary(Number(0x6F, 1) + size));
    ExpectNone(Binary({Number(0xDF, 1) + size, Ascii(kKey), Ascii("4")}));
  }
  ExpectNone(BinaryDictionary(Marker(5, 500) + "4"));
  ExpectNone(BinaryDictionary(Marker(6, 14) + "4"));
  ExpectNone(Binary({Collection(13, 1000, {1, 2}), Ascii(kKey), Ascii("4")}));
}

TEST(BinaryPropertyListTest, RejectsNumbersOfMissingObjects) {
  ExpectNone(Binary({Collection(13, 1, {1, 3}), Ascii(kKey), Ascii("4")}));
  ExpectTextOrNone(Binary({Collection(13, 2, {900, 1, 2, 2}), Ascii(kKey), Ascii("4")}), "4");
  ExpectNone(Binary({Collection(13, 1, {0xFFFF, 2}), Ascii(kKey), Ascii("4")}));
}

TEST(BinaryPropertyListTest, SurvivesSharedAndCyclicObjects) {
  // Each array refers to the next array twice: fully expanded, the list would have 2 to the power
  // of 100 entries.
  std::vector<std::string> objects = {Collection(13, 2, {1, 3, 2, 4}), Ascii(kKey), Ascii("4"),
                                      Ascii("other")};
  for (std::uint64_t i = 5; i < 105; ++i)
    objects.push_back(Collection(10, 2, {i, i}));
  objects.emplace_back("\x09");
  ExpectTextOrNone(Binary(objects), "4");

  ExpectTextOrNone(
      Binary({Collection(13, 2, {1, 3, 2, 0}), Ascii(kKey), Ascii("4"), Ascii("other")}), "4");
  ExpectNone(Binary({Collection(13, 1, {1, 0}), Ascii(kKey)}));
}

TEST(BinaryPropertyListTest, SurvivesDeepNesting) {
  std::vector<std::string> objects = {Collection(13, 2, {1, 3, 2, 4}), Ascii(kKey), Ascii("4"),
                                      Ascii("other")};
  for (std::uint64_t i = 5; i < 30000; ++i)
    objects.push_back(Collection(10, 1, {i}));
  objects.emplace_back("\x09");
  ExpectTextOrNone(Binary(objects), "4");
}

TEST(BinaryPropertyListTest, SurvivesManyKeysThatShareLongText) {
  // Fully compared, the keys would amount to gigabytes.
  const std::vector<std::uint64_t> numbers(40000, 1);
  for (const std::string& text :
       {Ascii(std::string(100000, 'x')), Wide(std::u16string(50000, 'x'))}) {
    ExpectNone(Binary({Collection(13, 20000, numbers), text}));
  }
}

}  // namespace
