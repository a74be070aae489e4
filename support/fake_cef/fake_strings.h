#pragma once

#include <string>

#include "include/internal/cef_types.h"

// The string functions of the C layer, defined in fake_strings.cc with every allocation counted,
// and what fakes need to take and to hand out strings.
namespace fake_cef {

std::u16string TextOf(const cef_string_t* text);  // null means empty
cef_string_userfree_t NewUserFree(const std::u16string& text);

std::u16string ToUtf16(const std::string& utf8);
std::string ToUtf8(const std::u16string& text);

// How many texts, userfree structs and string lists are allocated.
long LiveStrings();

std::u16string ListText(cef_string_list_t list);  // its strings, each followed by a comma

}  // namespace fake_cef
