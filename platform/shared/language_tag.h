#pragma once

#include <string>

namespace platform {

// Whether a text has the form of a language tag: ASCII letters, digits and hyphens, a letter first.
bool IsLanguageTag(const std::string& text);

}  // namespace platform
