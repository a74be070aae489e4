#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "include/cef_values.h"

using Json = nlohmann::ordered_json;

// Returns the elements of a message's list as a JSON array. Types that JSON lacks become null. A
// null `list` is treated as empty.
Json ListAsArray(const CefRefPtr<CefListValue>& list);

// Copies the elements of a JSON array to an empty list: `1` as an int, `1.0` as a double. Integers
// must fit in 32 bits. Returns false when an element is an object or when CEF rejects an element;
// the list then has the elements before it.
bool CopyArrayToList(const Json& array, const CefRefPtr<CefListValue>& list);
