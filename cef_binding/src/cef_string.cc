#include "include/internal/cef_string.h"

#include <utility>

#include "include/capi/cef_string_capi.h"

CefString::~CefString() { cef_string_utf16_clear(&own_); }

CefString& CefString::operator=(const CefString& other) {
  // Two objects may refer to one struct, whose text the library frees before it copies.
  if (this == &other || string_ == other.string_) return *this;
  FromString(other.c_str(), other.length(), true);
  return *this;
}

CefString& CefString::operator=(const std::string& utf8) {
  FromString(utf8);
  return *this;
}

CefString& CefString::operator=(const char* utf8) {
  FromString(utf8 ? utf8 : "");
  return *this;
}

int CefString::compare(const CefString& other) const {
  return cef_string_utf16_cmp(string_, other.string_);
}

std::string CefString::ToString() const {
  if (empty()) return {};
  cef_string_utf8_t utf8{};
  cef_string_utf16_to_utf8(c_str(), length(), &utf8);
  std::string result(utf8.str ? utf8.str : "", utf8.length);
  cef_string_utf8_clear(&utf8);
  return result;
}

bool CefString::FromString(const std::string& utf8) {
  clear();
  return utf8.empty() || cef_string_utf8_to_utf16(utf8.data(), utf8.size(), string_) != 0;
}

bool CefString::FromString(const char16* text, std::size_t length, bool copy) {
  return cef_string_utf16_set(text, length, string_, copy ? 1 : 0) != 0;
}

void CefString::AttachToUserFree(userfree_struct_type text) {
  clear();
  if (!text) return;
  *string_ = std::exchange(*text, cef_string_t{});
  cef_string_userfree_utf16_free(text);
}

void CefString::clear() { cef_string_utf16_clear(string_); }

void CefString::swap(CefString& other) noexcept {
  const bool owned = string_ == &own_;
  const bool other_owned = other.string_ == &other.own_;
  std::swap(own_, other.own_);
  cef_string_t* const borrowed = string_;
  string_ = other_owned ? &own_ : other.string_;
  other.string_ = owned ? &other.own_ : borrowed;
}
