#pragma once

#include "include/internal/cef_ptr.h"
#include "include/internal/cef_string.h"

namespace cef_binding {

// CEF's own wrapper rejects a call with an unusable required parameter: a null pointer or object,
// an empty string, a negative index. Such a call does not reach the other side and returns null,
// false, 0 or an empty string; in a debug build it ends in an assertion. The binding does the same,
// so that code that works with the binding also works with the wrapper.

inline bool IsUsable(const void* pointer) { return pointer != nullptr; }
template <class Class>
bool IsUsable(const CefRefPtr<Class>& object) {
  return object != nullptr;
}
inline bool IsUsable(const CefString& string) { return !string.empty(); }
inline bool IsUsable(int index) { return index >= 0; }

// Aborts with a line on standard error that names `function`. Does nothing with NDEBUG.
void FailAssertion(const char* function);

// Returns true when the calling function must return because `parameter` is unusable.
template <class Parameter>
bool Rejected(const Parameter& parameter, const char* function = __builtin_FUNCTION()) {
  if (IsUsable(parameter)) return false;
  FailAssertion(function);
  return true;
}

}  // namespace cef_binding
