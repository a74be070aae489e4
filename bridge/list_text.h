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
  // Empty if there are no placeholders. A double that equals a 32-bit integer needs no placeholder,
  // but -0 does.
  CefString placeholders;
  // Long strings, which are faster to pass separately than to escape.
  std::vector<CefString> strings;
};

// Returns the text of `list`, which must not be null. CEF's JSON writer is much faster than reading
// the elements of a list without doubles, but takes microseconds for each double and writes
// dictionaries with all their members. Therefore a sample of the elements decides whether it is
// used.
ListText WriteListText(const CefRefPtr<CefListValue>& list);
