#pragma once

#include <cstddef>

#include "bridge/per_context.h"
#include "include/cef_v8.h"
#include "include/cef_values.h"

// Converts the arrays of pages to the argument lists of messages and back. Uses a script that runs
// in each context before the page's own scripts (array_packing.js). The conversion of one element
// at a time (value_conversion.h) takes several calls into CEF for each element. A packed array
// takes a few calls in total, and one for each element that is stored in a list.
//
// A page cannot observe the difference, because packing runs no code of the page. The elements are
// converted one by one if packing would run such code, if packing is not faster, or if little of
// the stack is left.
//
// Must be used on the renderer's main thread. Any thread may add and release references.
class ArrayPacking : public CefV8Handler {
 public:
  // The lowest numbers of elements for which packing is faster. Arrays inside a packed array are
  // packed at any size.
  struct BreakEven {
    std::size_t to_list = 16;
    std::size_t to_array = 0;
  };

  // Registers the extension with the script. Must be called once in each render process, from
  // OnWebKitInitialized.
  static CefRefPtr<ArrayPacking> Register(BreakEven break_even);

  // Does the same as CopyV8ArrayToList, in the current context. Neither argument may be null.
  void CopyToList(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list);

  // Calls `function`, a callback of a page, in `context` with `name` and an array of the elements
  // of `list`, which must not be null. The caller must not enter the context, because the callback
  // may end it. Returns false, without a call, if the elements must be converted one by one; then
  // `returned_true` is unspecified. Otherwise returns true and sets `returned_true`, to false if
  // the callback throws or the context has ended.
  bool RunCallback(const CefRefPtr<CefV8Context>& context, const CefRefPtr<CefV8Value>& function,
                   const CefString& name, const CefRefPtr<CefListValue>& list, bool& returned_true);

  // Releases the script's objects of `context`.
  void Forget(const CefRefPtr<CefV8Context>& context) { contexts_.Remove(context); }

  // Implements the native functions of the script.
  bool Execute(const CefString& name, CefRefPtr<CefV8Value> object, const CefV8ValueList& arguments,
               CefRefPtr<CefV8Value>& retval, CefString& exception) override;

 private:
  // The script's objects in one context. They are null if the script has not run there.
  struct ScriptObjects {
    CefRefPtr<CefV8Value> packing;
    CefRefPtr<CefV8Value> call_with_elements;
    CefRefPtr<CefV8Value> call_with_text;
  };

  explicit ArrayPacking(BreakEven break_even);

  bool HasStackLeft() const;
  bool Pack(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list);

  const BreakEven break_even_;
  const char* const stack_start_;  // the position in the stack during Register()
  PerContext<ScriptObjects> contexts_;

  IMPLEMENT_REFCOUNTING(ArrayPacking)
};
