#pragma once

#include <string>

#include "include/cef_v8.h"

// Converts an array of integers once and returns the elapsed milliseconds. `what` is one of:
//
//   toList, toArray            the product's conversion from and to a script array
//   toListCalls, toArrayCalls  only the library's calls that each integer requires
//   toListSized                the calls of toListCalls, on a list whose size was set before
//
// Returns -1 for any other name, or when the library does not create a list or an array. The caller
// must have entered a script context.
double TimeConversion(const std::string& what, const CefRefPtr<CefV8Value>& array);
