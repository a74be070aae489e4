#pragma once

#include <cstddef>
#include <functional>

#include "include/cef_v8.h"
#include "include/cef_values.h"

// Functions that convert between the arrays of a page and the lists of a process message, one
// element at a time. They must run on the renderer's main thread in an entered script context. They
// report no errors. They recurse once for each level of arrays, without a limit, so an array that
// contains itself overflows the stack.

// Fills an empty list with the elements of an array in another way. Returns false and leaves the
// list empty if it does not support the array.
using ArrayToList =
    std::function<bool(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list)>;

// Copies the elements of the script array `source` to the same indexes of the writable list
// `target`:
//
//   - Arrays become lists. Strings and booleans keep their type.
//   - Signed and unsigned 32-bit integers become ints, so 2147483648 to 4294967295 become negative.
//     All other numbers become doubles, including -0.
//   - Everything else becomes null: null, undefined, objects, functions, and elements whose getters
//     throw. But an element that `target` already has at that index stays.
//
// A longer `target` is shortened to the length of `source`, but an empty `source` changes nothing.
// Getters of the page's objects run during the copy. The length is read once, at the start. If
// `shortcut` is not null, it is tried first for each array inside `source`, but not for `source`
// itself.
void CopyV8ArrayToList(const CefRefPtr<CefV8Value>& source, const CefRefPtr<CefListValue>& target,
                       const ArrayToList& shortcut = nullptr);

// Assigns each element of `source` to the same index of the script array `target`, which the caller
// must create with the size of the list. Binary values and dictionaries become null. Setters of the
// page can run during the copy.
void CopyListToV8Array(const CefRefPtr<CefListValue>& source, const CefRefPtr<CefV8Value>& target);

// Returns the script value of the element of `source` at `index`, whose type is `type`. Returns a
// null pointer for a list, and the script's null for a binary value or a dictionary.
CefRefPtr<CefV8Value> CreateScalar(const CefRefPtr<CefListValue>& source, std::size_t index,
                                   CefValueType type);

// Returns a new script array with the elements of `list`, converted as by CopyListToV8Array.
// Returns an empty array if `list` is null, and null if the array cannot be created.
CefRefPtr<CefV8Value> CreateV8Array(const CefRefPtr<CefListValue>& list);
