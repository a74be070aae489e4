#pragma once

#include <string>

namespace platform {

// What the system's parser would unfold beyond measure, fetch from elsewhere or go too deep into;
// null when there is nothing of that kind. Stricter than need be where a document type declares
// entities or attributes, as hardly any document does.
const char* ProblemForTheParser(const std::string& xml);

// Whether elements are in each other at more levels than any system's parser is asked to go down.
bool IsTooDeep(const std::string& xml);

// The document without the name of an encoding in its declaration: it is UTF-8, whatever that says.
// The rest stays where it was.
std::string WithoutDeclaredEncoding(std::string xml);

}  // namespace platform
