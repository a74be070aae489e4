#pragma once

#include <string>

#include "examples/suite_host/json_list.h"

// Parses a line of input into `object`. Returns false, with the reason in `error`, when the line is
// not a JSON object, has a duplicate key, or contains a value that no command accepts: an integer
// beyond 32 bits, a number out of range, a nested object, or lists that are nested too deeply.
bool ParseInput(const std::string& text, Json& object, std::string& error);
