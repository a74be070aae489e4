#pragma once

#include <vector>

#include "include/cef_values.h"

// Represents a list as text for array_packing.js.
struct ListText {
  // The elements as a JSON array, in which `{}` is a placeholder. Binary values and dictionaries
  // are null.
  CefString elements;
  // A JSON array with two values for each placeholder, in order: for a double, the two halves of
  // its bits as signed integers, the low half first; for a string, its index in `strings` and null.
  // Empty without placeholders. A double that equals a 32-bit integer needs no placeholder.
  CefString placeholders;
  // Long strings, which are faster to pass separately than to escape.
  std::vector<CefString> strings;
};

// Returns the text of `list`. CEF writes the text of a list without doubles much faster than the
// elements can be read, but takes microseconds for each double and writes dictionaries with all
// their members. Therefore a sample of the elements decides whether CEF writes the text.
ListText WriteListText(const CefRefPtr<CefListValue>& list);
