#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "include/capi/cef_v8_capi.h"
#include "support/fake_cef/fake_browser.h"

namespace fake_cef {

class FakeV8Value;

struct Undefined {};
struct Null {};
// A plain object, a date, or any other object that is neither an array nor a function. Without
// `get` and `set` it has no properties and accepts none.
struct Object {
  std::function<Own<FakeV8Value>(const std::u16string& key)> get;
  std::function<void(const std::u16string& key, Own<FakeV8Value> value)> set;
};
// Reading an absent element returns a null pointer, as for a getter that throws.
struct Array {
  std::vector<Own<FakeV8Value>> elements;
  std::optional<int> length;  // result of get_array_length; if empty, the number of elements
};
// The arguments are valid during the call. A null result represents an exception.
struct Function {
  std::function<Own<FakeV8Value>(const std::vector<FakeV8Value*>& arguments)> body;
};

using ScriptValue =
    std::variant<Undefined, Null, Object, bool, int, double, std::u16string, Array, Function>;

// A script value. As in the library, is_double is true for an int. The getters do not convert: they
// throw std::bad_variant_access for a value of another type.
class FakeV8Value : public FakeObject<FakeV8Value, cef_v8value_t> {
 public:
  explicit FakeV8Value(ScriptValue value);

  // Returns the value in a readable form:
  // [1,2.5000000000000000,"a",true,null,undefined,object,function,[]]
  std::string Text() const;
  template <class Kind>
  bool Is() const {
    return std::holds_alternative<Kind>(value_);
  }
  const std::u16string& text() const { return std::get<std::u16string>(value_); }

 private:
  void FillKinds();
  void FillContents();
  void OnEnd() override { value_ = Undefined{}; }

  static cef_v8value_t* Execute(cef_v8value_t* self, cef_v8context_t* context,
                                cef_v8value_t* object, std::size_t count,
                                cef_v8value_t* const* arguments);
  static int SetElement(cef_v8value_t* self, int index, cef_v8value_t* value);

  ScriptValue value_;
};

class FakeV8Context : public FakeObject<FakeV8Context, cef_v8context_t> {
 public:
  // Objects with the same identity represent the same context. Without a browser, get_browser
  // returns null.
  FakeV8Context(int identity, Own<FakeBrowser> browser);

  bool can_enter = true;
  int entered = 0;  // successful calls of enter
  int exited = 0;
  int executed = 0;  // calls of functions in this context

 private:
  void OnEnd() override { browser_ = {}; }

  const int identity_;
  Own<FakeBrowser> browser_;
};

}  // namespace fake_cef
