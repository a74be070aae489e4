#pragma once

#include <cstddef>
#include <string>

#include "include/internal/cef_types.h"

// CEF's string: UTF-16 that may hold any unit, zeros and lone surrogates too. It either owns its
// text or refers to a struct that somebody else owns; in the second case writing to it writes
// there. Conversion from and to UTF-8 is the library's: what has no counterpart becomes U+FFFD.
class CefString {
 public:
  typedef char16 char_type;
  typedef cef_string_t struct_type;
  typedef cef_string_userfree_t userfree_struct_type;

  CefString() = default;
  CefString(const std::string& utf8) { FromString(utf8); }
  CefString(const char* utf8) { FromString(utf8 ? utf8 : ""); }
  CefString(const CefString& other) { FromString(other.c_str(), other.length(), true); }
  CefString(CefString&& other) noexcept { swap(other); }
  // Refer to `text` without owning it; it must outlive this object. Null makes an empty string.
  CefString(const cef_string_t* text) : CefString(const_cast<cef_string_t*>(text)) {}
  CefString(cef_string_t* text) : string_(text ? text : &own_) {}
  ~CefString();

  CefString& operator=(const CefString& other);
  CefString& operator=(const std::string& utf8);
  CefString& operator=(const char* utf8);

  const char16* c_str() const { return string_->str; }
  std::size_t length() const { return string_->length; }
  std::size_t size() const { return length(); }
  bool empty() const { return length() == 0; }
  // Negative, zero or positive; compares unit by unit.
  int compare(const CefString& other) const;

  std::string ToString() const;
  operator std::string() const { return ToString(); }  // implicit, as callers of CEF expect
  // False when memory runs out or when `utf8` is no UTF-8; the good part is taken all the same.
  bool FromString(const std::string& utf8);
  // Without `copy` the text is only referred to and must outlive this object. It is never a part of
  // this string itself.
  bool FromString(const char16* text, std::size_t length, bool copy);
  // Takes over a string that the library returned; null means an empty one.
  void AttachToUserFree(userfree_struct_type text);

  // Never null; owned by this object.
  const cef_string_t* GetStruct() const { return string_; }
  void clear();
  void swap(CefString& other) noexcept;

 private:
  cef_string_t own_{};
  cef_string_t* string_ = &own_;
};

inline bool operator==(const CefString& left, const CefString& right) {
  return left.compare(right) == 0;
}
inline bool operator!=(const CefString& left, const CefString& right) { return !(left == right); }
inline bool operator<(const CefString& left, const CefString& right) {
  return left.compare(right) < 0;
}
