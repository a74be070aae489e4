#pragma once

#include <cstddef>

#include "include/cef_values.h"

// The packed form of a script array, as array_packing.js writes it: 16-bit units in three parts.
//
//   the number of units in the second part
//   the array: its length, and its elements
//   the contents of all strings, one after the other
//
// A number takes two units, the low half first. An element is the unit of its kind, followed by
//   0 null, 1 false, 2 true   nothing
//   3 an int                  its 32 bits as a number
//   4 a double                the four units of its bits, the lowest first
//   5 a string                its length
//   6 an array                its length and its elements

// Appends the elements of a packed array to the empty list `target`. If the text ends early, the
// remaining elements are missing, the last number has zeros in place of its missing units, and
// strings can be shorter. Any other error in the text yields an unspecified list.
void ReadPackedArray(const CefString::char_type* text, std::size_t size,
                     const CefRefPtr<CefListValue>& target);
