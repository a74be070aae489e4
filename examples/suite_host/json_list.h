#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "include/cef_values.h"

using Json = nlohmann::ordered_json;

// Returns the elements of a message's list as a JSON array. Kinds that JSON lacks become null. A
// null list is an empty one.
Json ListAsArray(const CefRefPtr<CefListValue>& list);

// Appends the elements of a JSON array to an empty list: `1` as an int, `1.0` as a double. Integers
// must have 32 bits. Returns false when CEF rejects an element or when it is an object.
bool CopyArrayToList(const Json& array, const CefRefPtr<CefListValue>& list);
