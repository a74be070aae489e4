#pragma once

#include "include/capi/cef_values_capi.h"

extern "C" {
cef_string_userfree_t cef_write_json(cef_value_t* node, cef_json_writer_options_t options);
}
