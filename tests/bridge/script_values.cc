#include "tests/bridge/script_values.h"

#include <gtest/gtest.h>

NativeResult CallNative(const fake_cef::Library::Extension& extension, const std::string& name,
                        const std::vector<Value>& arguments) {
  std::vector<cef_v8value_t*> given;
  for (const Value& argument : arguments)
    given.push_back(argument.Give());
  const CefString function(name);
  cef_string_t thrown{};
  cef_v8value_t* retval = nullptr;
  const auto& handler = extension.handler;
  const int handled =
      handler->execute(handler.get(), function.GetStruct(), Script(fake_cef::Object{}).Give(),
                       given.size(), given.data(), &retval, &thrown);
  EXPECT_EQ(handled, 1);
  CefString exception(&thrown);
  NativeResult result{Value::Take(fake_cef::FakeV8Value::From(retval)), exception.ToString()};
  exception.clear();
  return result;
}
