#pragma once

#include <string>

#include "include/cef_v8.h"

// Converts an array of integers one time and returns the milliseconds that it took. `what`:
//
//   toList, toArray            the product's conversion from and to a script array
//   toListCalls, toArrayCalls  nothing but the library's calls that an integer cannot do without
//   toListSized                those calls on a list that was given its size first
//
// Returns -1 for any other name. Within a script context.
double TimeConversion(const std::string& what, const CefRefPtr<CefV8Value>& array);
