#pragma once

#include "include/cef_values.h"

// Returns `node` as JSON, or an empty string when `node` contains a binary value. Doubles without a
// fraction are written as ints.
CefString CefWriteJSON(CefRefPtr<CefValue> node, cef_json_writer_options_t options);
