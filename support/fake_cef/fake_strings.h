#pragma once

#include <string>

#include "include/internal/cef_types.h"

// Helpers for the strings of fakes. fake_strings.cc also defines the string functions of the C
// layer and counts their allocations.
namespace fake_cef {

std::u16string TextOf(const cef_string_t* text);  // null means empty
// The receiver must free the result.
cef_string_userfree_t NewUserFree(const std::u16string& text);

std::u16string ToUtf16(const std::string& utf8);
std::string ToUtf8(const std::u16string& text);

// Returns the number of allocated texts, userfree structs and string lists.
long LiveStrings();

std::u16string ListText(cef_string_list_t list);  // the strings, each followed by a comma

}  // namespace fake_cef
