#pragma once

#include <string>

namespace platform {

// Makes `xml`, which is UTF-8, safe for a parser: removes a byte order mark, and blanks out a
// declared encoding and everything that refers to another resource. Returns null, or a static
// string with the reason to refuse the document: it is empty or too large, contains a NUL
// character, or its entities add too much. Does not check that the document is well-formed.
const char* PrepareXml(std::string& xml);

// Returns a parser's message, in UTF-8, on one line: a space replaces each control character.
// Truncates a long message between two characters, because messages quote names from the document.
std::string OneLine(std::string text);

}  // namespace platform
