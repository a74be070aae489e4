#include "support/fake_cef/fake_strings.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

#include "include/capi/cef_string_capi.h"

struct _cef_string_list_t {
  std::vector<std::u16string> strings;
};

namespace fake_cef {
namespace {

std::atomic<long> live_strings{0};
constexpr char32_t kReplacement = 0xFFFD;

// Returns the length of the sequence that begins with `lead`, or 0 when no sequence does.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// Reads the code point at `at` and moves past it. For invalid UTF-8, returns U+FFFD and moves by
// one byte.
char32_t NextOfUtf8(const std::string& utf8, std::size_t& at) {
  static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(utf8[at]);
  const std::size_t length = SequenceLength(lead);
  const std::size_t start = at++;
  if (length <= 1) return length == 1 ? lead : kReplacement;
  if (utf8.size() - start < length) return kReplacement;
  char32_t code = lead & (0xFFu >> (length + 1));
  for (std::size_t i = start + 1; i < start + length; ++i) {
    const auto next = static_cast<unsigned char>(utf8[i]);
    if ((next & 0xC0) != 0x80) return kReplacement;
    code = code << 6 | (next & 0x3Fu);
  }
  if (code < kSmallest[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) {
    return kReplacement;
  }
  at = start + length;
  return code;
}

char32_t NextOfUtf16(const std::u16string& text, std::size_t& at) {
  const char32_t unit = text[at++];
  if (unit < 0xD800 || unit > 0xDFFF) return unit;
  if (unit > 0xDBFF || at == text.size() || text[at] < 0xDC00 || text[at] > 0xDFFF) {
    return kReplacement;
  }
  return 0x10000 + ((unit - 0xD800) << 10) + (text[at++] - 0xDC00u);
}

void AppendUtf8(char32_t code, std::string& utf8) {
  const auto byte = [&](char32_t value) { utf8 += static_cast<char>(value); };
  if (code < 0x80) return byte(code);
  if (code < 0x800) {
    byte(0xC0 | code >> 6);
  } else {
    if (code < 0x10000) {
      byte(0xE0 | code >> 12);
    } else {
      byte(0xF0 | code >> 18);
      byte(0x80 | (code >> 12 & 0x3F));
    }
    byte(0x80 | (code >> 6 & 0x3F));
  }
  byte(0x80 | (code & 0x3F));
}

template <class Char>
void FreeText(Char* text) {
  delete[] text;
  --live_strings;
}

template <class Char, class Struct>
void Store(const Char* text, std::size_t length, Struct* output) {
  output->str = new Char[length + 1]();
  std::copy_n(text, length, output->str);
  output->length = length;
  output->dtor = &FreeText<Char>;
  ++live_strings;
}

template <class Struct>
void Clear(Struct* text) {
  if (text->dtor && text->str) text->dtor(text->str);
  *text = Struct{};
}

}  // namespace

std::u16string TextOf(const cef_string_t* text) {
  return text && text->str ? std::u16string(text->str, text->length) : std::u16string();
}

cef_string_userfree_t NewUserFree(const std::u16string& text) {
  auto* result = new cef_string_t{};
  ++live_strings;
  Store(text.data(), text.size(), result);
  return result;
}

std::u16string ToUtf16(const std::string& utf8) {
  std::u16string text;
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t code = NextOfUtf8(utf8, at);
    if (code > 0xFFFF) text += static_cast<char16_t>(0xD7C0 + (code >> 10));
    text += static_cast<char16_t>(code > 0xFFFF ? 0xDC00 + (code & 0x3FF) : code);
  }
  return text;
}

std::string ToUtf8(const std::u16string& text) {
  std::string utf8;
  for (std::size_t at = 0; at < text.size();)
    AppendUtf8(NextOfUtf16(text, at), utf8);
  return utf8;
}

long LiveStrings() { return live_strings; }

std::u16string ListText(cef_string_list_t list) {
  std::u16string text;
  for (const auto& string : list->strings)
    text += string + u",";
  return text;
}

}  // namespace fake_cef

using fake_cef::Clear;
using fake_cef::Store;

extern "C" {

// Frees the old text before it copies the new one, as the library does.
int cef_string_utf16_set(const char16* src, std::size_t src_len, cef_string_utf16_t* output,
                         int copy) {
  Clear(output);
  if (copy == 0) {
    *output = {const_cast<char16*>(src), src_len, nullptr};
  } else if (src && src_len != 0) {
    Store(src, src_len, output);
  }
  return 1;
}

void cef_string_utf16_clear(cef_string_utf16_t* str) { Clear(str); }
void cef_string_utf8_clear(cef_string_utf8_t* str) { Clear(str); }

int cef_string_utf16_cmp(const cef_string_utf16_t* str1, const cef_string_utf16_t* str2) {
  return fake_cef::TextOf(str1).compare(fake_cef::TextOf(str2));
}

int cef_string_utf8_to_utf16(const char* src, std::size_t src_len, cef_string_utf16_t* output) {
  const std::string utf8(src, src_len);
  const std::u16string text = fake_cef::ToUtf16(utf8);
  cef_string_utf16_set(text.data(), text.size(), output, 1);
  return fake_cef::ToUtf8(text) == utf8 ? 1 : 0;
}

int cef_string_utf16_to_utf8(const char16* src, std::size_t src_len, cef_string_utf8_t* output) {
  const std::u16string text(src, src_len);
  const std::string utf8 = fake_cef::ToUtf8(text);
  Clear(output);
  Store(utf8.data(), utf8.size(), output);
  return fake_cef::ToUtf16(utf8) == text ? 1 : 0;
}

void cef_string_userfree_utf16_free(cef_string_userfree_t str) {
  Clear(str);
  delete str;
  --fake_cef::live_strings;
}

cef_string_list_t cef_string_list_alloc() {
  ++fake_cef::live_strings;
  return new _cef_string_list_t;
}

void cef_string_list_append(cef_string_list_t list, const cef_string_t* value) {
  list->strings.push_back(fake_cef::TextOf(value));
}

void cef_string_list_free(cef_string_list_t list) {
  delete list;
  --fake_cef::live_strings;
}

}  // extern "C"
