#pragma once

#include "include/cef_values.h"

// Returns `node` as JSON text. The text is empty when `node` holds a binary value. Doubles without
// a fraction are written like ints.
CefString CefWriteJSON(CefRefPtr<CefValue> node, cef_json_writer_options_t options);
