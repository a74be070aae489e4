#pragma once

#include "include/cef_v8.h"
#include "include/cef_values.h"

// Translation between the arrays of a page and the lists of a process message. Both functions run
// on the renderer's main thread inside an entered script context, follow nesting as deep as it
// goes, one level of recursion for each array, and report no errors.

// Copies the elements of the script array `source` to the same indexes of the writable list
// `target`: arrays as lists, strings, booleans and numbers as what they are (a number that is a
// 32-bit integer as an int, every other one as a double). All else becomes null: null, undefined,
// objects, functions, an element whose getter throws. An empty array leaves `target` untouched.
// Getters of the page's objects run meanwhile; the length is read once, at the beginning.
void CopyV8ArrayToList(const CefRefPtr<CefV8Value>& source, const CefRefPtr<CefListValue>& target);

// Assigns every element of `source` to the same index of the script array `target`, which the
// caller has created with the list's size. Binary values and dictionaries become null.
void CopyListToV8Array(const CefRefPtr<CefListValue>& source, const CefRefPtr<CefV8Value>& target);
