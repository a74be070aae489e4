#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "include/capi/cef_app_capi.h"
#include "support/fake_cef/fake_object.h"

namespace fake_cef {

class FakeBinary : public FakeObject<FakeBinary, cef_binary_value_t> {
 public:
  explicit FakeBinary(std::string bytes) : bytes_(std::move(bytes)) {}
  const std::string& bytes() const { return bytes_; }

 private:
  const std::string bytes_;
};

class FakeDictionary : public FakeObject<FakeDictionary, cef_dictionary_value_t> {
 public:
  FakeDictionary();
  const std::map<std::u16string, int>& numbers() const { return numbers_; }

 private:
  std::map<std::u16string, int> numbers_;
};

// VTYPE_INVALID of the library.
struct Invalid {};

// An element of a list. The alternatives have the order of cef_value_type_t, from VTYPE_NULL on.
using Element =
    std::variant<std::monostate, bool, int, double, std::u16string, Own<cef_binary_value_t>,
                 Own<cef_dictionary_value_t>, Own<cef_list_value_t>, Invalid>;

cef_value_type_t TypeOf(const Element& element);

// Holds a copy of an element that is copied from one list to another.
class FakeValue : public FakeObject<FakeValue, cef_value_t> {
 public:
  explicit FakeValue(Element element);
  const Element& element() const { return element_; }
  // Returns JSON with the library's peculiarities: an empty string when the element contains a
  // binary value, a double without a fraction like an int, -0 as 0, and 2^63 as -2^63.
  std::u16string Json() const;

 private:
  void OnEnd() override { element_ = {}; }

  Element element_;
};

// A list with the library's rules: a setter beyond the end fills the gap with nulls, and a getter
// that does not match the element's type returns an empty value.
class FakeList : public FakeObject<FakeList, cef_list_value_t> {
 public:
  explicit FakeList(std::vector<Element> elements = {});

  const std::vector<Element>& elements() const { return elements_; }
  // Returns the elements in a readable form:
  // [1,2.5000000000000000,"a",true,null,binary,dictionary,[]]
  std::string Text() const;
  // Returns the number of elements that setters replaced, which is slow in the library.
  int replaced() const { return replaced_; }

 private:
  void FillGetters();
  void FillSetters();
  void OnEnd() override { elements_.clear(); }

  static const Element& At(cef_list_value_t* self, std::size_t index);
  static int Set(cef_list_value_t* self, std::size_t index, Element element);

  std::vector<Element> elements_;
  int replaced_ = 0;
};

class FakeMessage : public FakeObject<FakeMessage, cef_process_message_t> {
 public:
  // Without a list, get_argument_list returns null.
  FakeMessage(std::u16string name, Own<FakeList> list);

  const std::u16string& name() const { return name_; }
  const FakeList& list() const { return *list_; }  // requires a list

 private:
  void OnEnd() override { list_ = {}; }

  const std::u16string name_;
  Own<FakeList> list_;
};

class FakeCommandLine : public FakeObject<FakeCommandLine, cef_command_line_t> {
 public:
  FakeCommandLine();
  // "name" or "name=value", in the order of the calls.
  std::vector<std::string> switches;
};

class FakeCookieManager : public FakeObject<FakeCookieManager, cef_cookie_manager_t> {
 public:
  FakeCookieManager();
  std::vector<std::u16string> schemes;  // one entry for each call, "first,second,"
  int callbacks = 0;                    // calls with a callback
};

}  // namespace fake_cef
