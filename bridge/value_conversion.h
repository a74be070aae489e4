#pragma once

#include <cstddef>
#include <functional>

#include "include/cef_v8.h"
#include "include/cef_values.h"

// Translation between the arrays of a page and the lists of a process message, one element after
// the other. The functions run on the renderer's main thread inside an entered script context,
// follow nesting as deep as it goes, one level of recursion for each array, and report no errors.

// Fills an empty list with the elements of an array in another way; returns false, with nothing
// done, when it does not take the array.
using ArrayToList =
    std::function<bool(const CefRefPtr<CefV8Value>& array, const CefRefPtr<CefListValue>& list)>;

// Copies the elements of the script array `source` to the same indexes of the writable list
// `target`: arrays as lists, strings, booleans and numbers as what they are (a number that is a
// 32-bit integer as an int, every other one as a double). All else becomes null: null, undefined,
// objects, functions, an element whose getter throws. An empty array leaves `target` untouched.
// Getters of the page's objects run during the copy; the length is read once, at the beginning.
// Arrays in `source` are offered to `shortcut` first, where it is given.
void CopyV8ArrayToList(const CefRefPtr<CefV8Value>& source, const CefRefPtr<CefListValue>& target,
                       const ArrayToList& shortcut = nullptr);

// Assigns every element of `source` to the same index of the script array `target`, which the
// caller has created with the list's size. Binary values and dictionaries become null.
void CopyListToV8Array(const CefRefPtr<CefListValue>& source, const CefRefPtr<CefV8Value>& target);

// Returns the script value of the element of `source` at `index`, whose kind is `type`. Returns
// null for a list, and a script null for a binary value or a dictionary.
CefRefPtr<CefV8Value> CreateScalar(const CefRefPtr<CefListValue>& source, std::size_t index,
                                   CefValueType type);

// Returns a new script array with the elements of `list`, as CopyListToV8Array makes them; an empty
// one for no list, and null when it cannot be made.
CefRefPtr<CefV8Value> CreateV8Array(const CefRefPtr<CefListValue>& list);
