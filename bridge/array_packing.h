#pragma once

#include <cstddef>

#include "bridge/per_context.h"
#include "include/cef_v8.h"
#include "include/cef_values.h"

// Converts the arrays of pages and the lists of messages by a script that runs in each context
// before the page's own (array_packing.js). The conversion of one element at a time
// (value_conversion.h) takes several calls into the library for each. A packed array takes a few
// calls in all, and one for each element that a list gets.
//
// No page can tell the difference, because the conversion runs no code of the page. Where it would,
// where packing does not pay, and where little of the stack is left, the elements are converted one
// by one.
//
// Lives and runs on the renderer's main thread, but for the counting of references.
class ArrayPacking : public CefV8Handler {
 public:
  // The number of elements from which on packing is faster.
  struct BreakEven {
    std::size_t to_list = 16;
    std::size_t to_array = 0;
  };

  // Registers the extension with the script. To be called once in a render process, from
  // OnWebKitInitialized.
  static CefRefPtr<ArrayPacking> Register(BreakEven break_even);

  // Does in the current context what CopyV8ArrayToList does.
  void CopyToList(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list);

  // Calls `function`, a callback of a page, in `context` with `name` and an array of the elements
  // of `list`. The context must not be entered by hand, because the callback may end it. Sets
  // `returned_true` and returns true if the callback was called. Returns false, without a call, if
  // the array must be made one element after another.
  bool RunCallback(const CefRefPtr<CefV8Context>& context, const CefRefPtr<CefV8Value>& function,
                   const CefString& name, const CefRefPtr<CefListValue>& list, bool& returned_true);

  // Drops the script's objects of `context`.
  void Forget(const CefRefPtr<CefV8Context>& context) { contexts_.Remove(context); }

  // The native functions of the script.
  bool Execute(const CefString& name, CefRefPtr<CefV8Value> object, const CefV8ValueList& arguments,
               CefRefPtr<CefV8Value>& retval, CefString& exception) override;

 private:
  // The script's objects in one context; null where the script has not run.
  struct Scripted {
    CefRefPtr<CefV8Value> packing;
    CefRefPtr<CefV8Value> call_with_elements;
    CefRefPtr<CefV8Value> call_with_text;
  };

  explicit ArrayPacking(BreakEven break_even);

  bool HasStackLeft() const;
  bool Pack(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list);

  const BreakEven break_even_;
  const char* const stack_;  // a place near the beginning of the stack
  PerContext<Scripted> contexts_;

  IMPLEMENT_REFCOUNTING(ArrayPacking)
};
