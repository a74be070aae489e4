#pragma once

#include <vector>

#include "include/cef_values.h"

// A list as text for array_packing.js.
struct ListText {
  // The elements as a JSON array, with `{}` in some places; binary values and dictionaries are
  // null.
  CefString elements;
  // A JSON array with two values for each of the places, in order: for a double the two halves of
  // its bits as signed integers, the low half first; for a string its index in `strings` and null.
  // Empty when there are no places. A double that is a 32-bit integer needs none.
  CefString places;
  // Long strings, which cost less by themselves than escaped.
  std::vector<CefString> strings;
};

// Returns the text of `list`. The library writes the text of a list without doubles at a tenth of
// what reading its elements costs, but takes microseconds for each double and writes dictionaries
// with all their members; so a few places are looked at first.
ListText WriteListText(const CefRefPtr<CefListValue>& list);
