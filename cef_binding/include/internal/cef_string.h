#pragma once

#include <cstddef>
#include <string>

#include "include/internal/cef_types.h"

// CEF's UTF-16 string, which may hold any code units, also zeros and lone surrogates. It either
// owns its text or refers to a struct that has another owner; writes then change that struct. The
// library converts from and to UTF-8 and replaces text that has no counterpart by U+FFFD.
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
  // These two refer to `text`, which must outlive this object. Null makes an empty string.
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
  // Compares code units. Returns a negative number, zero or a positive number.
  int compare(const CefString& other) const;

  std::string ToString() const;
  operator std::string() const { return ToString(); }  // implicit, as callers of CEF expect
  // Returns false when memory runs out or when `utf8` is not UTF-8. Takes the valid part
  // nevertheless.
  bool FromString(const std::string& utf8);
  // Without `copy`, refers to `text`, which must outlive this object. `text` must not be a part of
  // this string.
  bool FromString(const char16* text, std::size_t length, bool copy);
  // Takes over a string that the library returned. Null empties this string.
  void AttachToUserFree(userfree_struct_type text);

  // Never null. The caller does not own the struct.
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
