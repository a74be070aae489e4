#pragma once

#include <string>

namespace platform {

// What a parser would not notice in a document, or take too long for; null when there is nothing of
// that kind. Attributes are counted exactly for well-formed documents apart from what only looks
// like tags in their comments, CDATA sections and processing instructions.
const char* ProblemOfXml(const std::string& xml);

// A parser's message, in UTF-8, on one line, and cut between two characters when it is long: names
// from the document stand in it.
std::string OneLine(std::string text);

}  // namespace platform
