#pragma once

#include <vector>

#include "include/capi/cef_v8_capi.h"
#include "include/cef_browser.h"

class CefV8Value;

typedef std::vector<CefRefPtr<CefV8Value>> CefV8ValueList;

// Native functions of an extension. The application implements them; they are called on the thread
// of the script.
class CefV8Handler : public virtual CefBaseRefCounted {
 public:
  // Returns true when the call was handled. A non-empty `exception` is then thrown in the script. A
  // null `retval` means undefined.
  virtual bool Execute(const CefString& name, CefRefPtr<CefV8Value> object,
                       const CefV8ValueList& arguments, CefRefPtr<CefV8Value>& retval,
                       CefString& exception) = 0;
};

// Registers `javascript_code` to run in every script context of this process, with `handler` for
// its native functions. `handler` may be null. Must be called in
// CefRenderProcessHandler::OnWebKitInitialized().
bool CefRegisterExtension(const CefString& extension_name, const CefString& javascript_code,
                          CefRefPtr<CefV8Handler> handler);

// A script context. Contexts and values may be used only on the main thread of the render process.
class CefV8Context : public cef_binding::LibraryObject<cef_v8context_t> {
 public:
  using LibraryObject::LibraryObject;

  // Returns the context of the running script, or null outside of scripts.
  static CefRefPtr<CefV8Context> GetCurrentContext();

  // Returns null when the frame of this context is gone.
  CefRefPtr<CefBrowser> GetBrowser() {
    return cef_binding::Adopt<CefBrowser>(Call(&cef_v8context_t::get_browser));
  }
  // Returns false when the context is gone. Each successful call requires one Exit().
  bool Enter() { return Call(&cef_v8context_t::enter) != 0; }
  bool Exit() { return Call(&cef_v8context_t::exit) != 0; }
  bool IsSame(CefRefPtr<CefV8Context> that) {
    if (cef_binding::Rejected(that)) return false;
    return Call(&cef_v8context_t::is_same, cef_binding::Pass(that)) != 0;
  }
};

class CefV8Value : public cef_binding::LibraryObject<cef_v8value_t> {
 public:
  using LibraryObject::LibraryObject;

  typedef cef_v8_propertyattribute_t PropertyAttribute;

  static CefRefPtr<CefV8Value> CreateNull();
  static CefRefPtr<CefV8Value> CreateBool(bool value);
  static CefRefPtr<CefV8Value> CreateInt(int32 value);
  static CefRefPtr<CefV8Value> CreateDouble(double value);
  static CefRefPtr<CefV8Value> CreateString(const CefString& value);
  // CreateArray() and CreateFunction() return null outside of an entered context.
  static CefRefPtr<CefV8Value> CreateArray(int length);
  static CefRefPtr<CefV8Value> CreateFunction(const CefString& name,
                                              CefRefPtr<CefV8Handler> handler);

  bool IsBool() { return Call(&cef_v8value_t::is_bool) != 0; }
  bool IsInt() { return Call(&cef_v8value_t::is_int) != 0; }
  bool IsDouble() { return Call(&cef_v8value_t::is_double) != 0; }
  bool IsString() { return Call(&cef_v8value_t::is_string) != 0; }
  bool IsArray() { return Call(&cef_v8value_t::is_array) != 0; }
  bool IsFunction() { return Call(&cef_v8value_t::is_function) != 0; }

  bool GetBoolValue() { return Call(&cef_v8value_t::get_bool_value) != 0; }
  int32 GetIntValue() { return Call(&cef_v8value_t::get_int_value); }
  double GetDoubleValue() { return Call(&cef_v8value_t::get_double_value); }
  CefString GetStringValue() {
    return cef_binding::TakeString(Call(&cef_v8value_t::get_string_value));
  }

  // Runs the getter of the property if the script defines one. Returns null when the getter throws.
  CefRefPtr<CefV8Value> GetValue(const CefString& key) {
    return cef_binding::Adopt<CefV8Value>(Call(&cef_v8value_t::get_value_bykey, key.GetStruct()));
  }
  CefRefPtr<CefV8Value> GetValue(int index) {
    if (cef_binding::Rejected(index)) return nullptr;
    return cef_binding::Adopt<CefV8Value>(Call(&cef_v8value_t::get_value_byindex, index));
  }
  bool SetValue(const CefString& key, CefRefPtr<CefV8Value> value, PropertyAttribute attribute) {
    if (cef_binding::Rejected(value)) return false;
    return Call(&cef_v8value_t::set_value_bykey, key.GetStruct(), cef_binding::Pass(value),
                attribute) != 0;
  }
  bool SetValue(int index, CefRefPtr<CefV8Value> value) {
    if (cef_binding::Rejected(index) || cef_binding::Rejected(value)) return false;
    return Call(&cef_v8value_t::set_value_byindex, index, cef_binding::Pass(value)) != 0;
  }
  // Returns a negative number for a length above 2147483647.
  int GetArrayLength() { return Call(&cef_v8value_t::get_array_length); }

  // Calls this function in `context`, which need not be entered and is not entered afterwards.
  // A null `object` selects the global object. Returns null when the function throws or the context
  // is gone.
  CefRefPtr<CefV8Value> ExecuteFunctionWithContext(CefRefPtr<CefV8Context> context,
                                                   CefRefPtr<CefV8Value> object,
                                                   const CefV8ValueList& arguments);
};
