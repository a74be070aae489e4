#pragma once

#include "include/capi/cef_values_capi.h"
#include "include/internal/cef_library_object.h"

typedef cef_value_type_t CefValueType;

class CefBinaryValue : public cef_binding::LibraryObject<cef_binary_value_t> {
 public:
  using LibraryObject::LibraryObject;

  // Copies `size` bytes. Returns null when `size` is 0.
  static CefRefPtr<CefBinaryValue> Create(const void* data, std::size_t size);
};

class CefDictionaryValue : public cef_binding::LibraryObject<cef_dictionary_value_t> {
 public:
  using LibraryObject::LibraryObject;

  static CefRefPtr<CefDictionaryValue> Create();

  bool SetInt(const CefString& key, int value) {
    if (cef_binding::Rejected(key)) return false;
    return Call(&cef_dictionary_value_t::set_int, key.GetStruct(), value) != 0;
  }
};

class CefListValue;

// A value of any type, for copying elements from one list to another.
class CefValue : public cef_binding::LibraryObject<cef_value_t> {
 public:
  using LibraryObject::LibraryObject;

  static CefRefPtr<CefValue> Create();

  // Refers to `value` and does not copy its elements.
  bool SetList(CefRefPtr<CefListValue> value);
};

// A list of values. Setters return false when the list is read-only. A setter with an index beyond
// the end fills the gap with nulls. A getter that does not match the element's type returns 0,
// false, an empty string or null.
class CefListValue : public cef_binding::LibraryObject<cef_list_value_t> {
 public:
  using LibraryObject::LibraryObject;

  static CefRefPtr<CefListValue> Create();

  // New elements are null. Do not pass 0 for a list with elements: the library would never return.
  bool SetSize(std::size_t size) { return Call(&cef_list_value_t::set_size, size) != 0; }
  std::size_t GetSize() { return Call(&cef_list_value_t::get_size); }
  CefValueType GetType(std::size_t index) { return Call(&cef_list_value_t::get_type, index); }

  CefRefPtr<CefValue> GetValue(std::size_t index) {
    return cef_binding::Adopt<CefValue>(Call(&cef_list_value_t::get_value, index));
  }
  bool GetBool(std::size_t index) { return Call(&cef_list_value_t::get_bool, index) != 0; }
  int GetInt(std::size_t index) { return Call(&cef_list_value_t::get_int, index); }
  double GetDouble(std::size_t index) { return Call(&cef_list_value_t::get_double, index); }
  CefString GetString(std::size_t index) {
    return cef_binding::TakeString(Call(&cef_list_value_t::get_string, index));
  }
  CefRefPtr<CefListValue> GetList(std::size_t index) {
    return cef_binding::Adopt<CefListValue>(Call(&cef_list_value_t::get_list, index));
  }

  // Copies a value that belongs to another list. A value of the same list makes the library hang.
  bool SetValue(std::size_t index, CefRefPtr<CefValue> value) {
    if (cef_binding::Rejected(value)) return false;
    return Call(&cef_list_value_t::set_value, index, cef_binding::Pass(value)) != 0;
  }
  bool SetNull(std::size_t index) { return Call(&cef_list_value_t::set_null, index) != 0; }
  bool SetBool(std::size_t index, bool value) {
    return Call(&cef_list_value_t::set_bool, index, value ? 1 : 0) != 0;
  }
  bool SetInt(std::size_t index, int value) {
    return Call(&cef_list_value_t::set_int, index, value) != 0;
  }
  bool SetDouble(std::size_t index, double value) {
    return Call(&cef_list_value_t::set_double, index, value) != 0;
  }
  bool SetString(std::size_t index, const CefString& value) {
    return Call(&cef_list_value_t::set_string, index, value.GetStruct()) != 0;
  }
  bool SetBinary(std::size_t index, CefRefPtr<CefBinaryValue> value) {
    if (cef_binding::Rejected(value)) return false;
    return Call(&cef_list_value_t::set_binary, index, cef_binding::Pass(value)) != 0;
  }
  bool SetDictionary(std::size_t index, CefRefPtr<CefDictionaryValue> value) {
    if (cef_binding::Rejected(value)) return false;
    return Call(&cef_list_value_t::set_dictionary, index, cef_binding::Pass(value)) != 0;
  }
  bool SetList(std::size_t index, CefRefPtr<CefListValue> value) {
    if (cef_binding::Rejected(value)) return false;
    return Call(&cef_list_value_t::set_list, index, cef_binding::Pass(value)) != 0;
  }
};
