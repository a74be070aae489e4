#include "include/cef_v8.h"

#include "client_object.h"

using cef_binding::Adopt;
using cef_binding::Pass;
using cef_binding::Rejected;

namespace {

using V8HandlerObject = cef_binding::ClientObject<CefV8Handler, cef_v8handler_t>;

CefV8ValueList AdoptAll(cef_v8value_t* const* values, std::size_t count) {
  CefV8ValueList list;
  list.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    list.push_back(Adopt<CefV8Value>(values[i]));
  }
  return list;
}

int Execute(cef_v8handler_t* self, const cef_string_t* name, cef_v8value_t* object_in,
            std::size_t arguments_count, cef_v8value_t* const* arguments_in, cef_v8value_t** retval,
            cef_string_t* exception) {
  const auto object = Adopt<CefV8Value>(object_in);
  const CefV8ValueList arguments = AdoptAll(arguments_in, arguments_in ? arguments_count : 0);
  if (Rejected(self) || Rejected(name) || Rejected(object) ||
      (arguments_count > 0 && Rejected(arguments_in)) || Rejected(retval) || Rejected(exception)) {
    return 0;
  }
  CefRefPtr<CefV8Value> result;
  CefString thrown(exception);
  const bool handled =
      V8HandlerObject::Of(self).Execute(CefString(name), object, arguments, result, thrown);
  if (result) *retval = Pass(result);
  return handled ? 1 : 0;
}

cef_v8handler_t* Wrap(const CefRefPtr<CefV8Handler>& handler) {
  return V8HandlerObject::Wrap(handler, [](cef_v8handler_t& slots) { slots.execute = Execute; });
}

}  // namespace

bool CefRegisterExtension(const CefString& extension_name, const CefString& javascript_code,
                          CefRefPtr<CefV8Handler> handler) {
  if (Rejected(extension_name) || Rejected(javascript_code)) return false;
  return cef_register_extension(extension_name.GetStruct(), javascript_code.GetStruct(),
                                Wrap(handler)) != 0;
}

CefRefPtr<CefV8Context> CefV8Context::GetCurrentContext() {
  return Adopt<CefV8Context>(cef_v8context_get_current_context());
}

CefRefPtr<CefV8Value> CefV8Value::CreateNull() {
  return Adopt<CefV8Value>(cef_v8value_create_null());
}

CefRefPtr<CefV8Value> CefV8Value::CreateBool(bool value) {
  return Adopt<CefV8Value>(cef_v8value_create_bool(value ? 1 : 0));
}

CefRefPtr<CefV8Value> CefV8Value::CreateInt(int32 value) {
  return Adopt<CefV8Value>(cef_v8value_create_int(value));
}

CefRefPtr<CefV8Value> CefV8Value::CreateDouble(double value) {
  return Adopt<CefV8Value>(cef_v8value_create_double(value));
}

CefRefPtr<CefV8Value> CefV8Value::CreateString(const CefString& value) {
  return Adopt<CefV8Value>(cef_v8value_create_string(value.GetStruct()));
}

CefRefPtr<CefV8Value> CefV8Value::CreateArray(int length) {
  return Adopt<CefV8Value>(cef_v8value_create_array(length));
}

CefRefPtr<CefV8Value> CefV8Value::CreateFunction(const CefString& name,
                                                 CefRefPtr<CefV8Handler> handler) {
  if (Rejected(name) || Rejected(handler)) return nullptr;
  return Adopt<CefV8Value>(cef_v8value_create_function(name.GetStruct(), Wrap(handler)));
}

CefRefPtr<CefV8Value> CefV8Value::ExecuteFunctionWithContext(CefRefPtr<CefV8Context> context,
                                                             CefRefPtr<CefV8Value> object,
                                                             const CefV8ValueList& arguments) {
  if (Rejected(context)) return nullptr;
  std::vector<cef_v8value_t*> passed;
  passed.reserve(arguments.size());
  for (const auto& argument : arguments)
    passed.push_back(Pass(argument));
  return Adopt<CefV8Value>(Call(&cef_v8value_t::execute_function_with_context, Pass(context),
                                Pass(object), passed.size(), passed.data()));
}
