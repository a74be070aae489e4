#pragma once

#include <string>

#include "examples/suite_host/json_list.h"

// Parses a line of input into `object`. Returns false, with the reason in `error`, when the line is
// not a JSON object or holds what no command can carry: an integer beyond 32 bits, an object in a
// list, too many nested lists, or one key twice.
bool ParseInput(const std::string& text, Json& object, std::string& error);
