#pragma once

#include "include/internal/cef_types.h"

extern "C" {
int cef_string_utf16_set(const char16* src, std::size_t src_len, cef_string_utf16_t* output,
                         int copy);
void cef_string_utf16_clear(cef_string_utf16_t* str);
int cef_string_utf16_cmp(const cef_string_utf16_t* str1, const cef_string_utf16_t* str2);
int cef_string_utf8_to_utf16(const char* src, std::size_t src_len, cef_string_utf16_t* output);
int cef_string_utf16_to_utf8(const char16* src, std::size_t src_len, cef_string_utf8_t* output);
void cef_string_utf8_clear(cef_string_utf8_t* str);
void cef_string_userfree_utf16_free(cef_string_userfree_t str);
cef_string_list_t cef_string_list_alloc();
void cef_string_list_append(cef_string_list_t list, const cef_string_t* value);
void cef_string_list_free(cef_string_list_t list);
}
