#pragma once

#include <cstddef>
#include <functional>

#include "include/cef_v8.h"
#include "include/cef_values.h"

// Functions that convert between the arrays of a page and the lists of a process message, one
// element at a time. They must run on the renderer's main thread in an entered script context. They
// follow nesting of any depth, with one level of recursion for each array, and report no errors.

// Fills an empty list with the elements of an array in another way. Returns false and leaves the
// list empty if it does not support the array.
using ArrayToList =
    std::function<bool(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list)>;

// Copies the elements of the script array `source` to the same indexes of the writable list
// `target`. Arrays become lists. Strings, booleans and numbers keep their type: a number that is a
// 32-bit integer becomes an int, any other number a double. Everything else becomes null, unless
// `target` already has an element at that index: null, undefined, objects, functions, and elements
// whose getters throw. An empty array leaves `target` unchanged. Getters of the page's objects run
// during the copy. The length is read once, at the start. If `shortcut` is not null, it is tried
// first for each array in `source`.
void CopyV8ArrayToList(const CefRefPtr<CefV8Value>& source, const CefRefPtr<CefListValue>& target,
                       const ArrayToList& shortcut = nullptr);

// Assigns each element of `source` to the same index of the script array `target`, which the caller
// must create with the size of the list. Binary values and dictionaries become null.
void CopyListToV8Array(const CefRefPtr<CefListValue>& source, const CefRefPtr<CefV8Value>& target);

// Returns the script value of the element of `source` at `index`, whose type is `type`. Returns
// null for a list, and a script value of null for a binary value or a dictionary.
CefRefPtr<CefV8Value> CreateScalar(const CefRefPtr<CefListValue>& source, std::size_t index,
                                   CefValueType type);

// Returns a new script array with the elements of `list`, converted as by CopyListToV8Array.
// Returns an empty array if `list` is null, and null if the array cannot be created.
CefRefPtr<CefV8Value> CreateV8Array(const CefRefPtr<CefListValue>& list);
