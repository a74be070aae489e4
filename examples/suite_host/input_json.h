#pragma once

#include <string>

#include "examples/suite_host/json_list.h"

// Parses a line of input into `object`. Returns false, with the reason in `error`, when the line is
// not a JSON object or contains a value that no command accepts: an integer beyond 32 bits, an
// object in a list, lists that are nested too deeply, or a duplicate key.
bool ParseInput(const std::string& text, Json& object, std::string& error);
