#pragma once

#include "examples/suite_host/line_splitter.h"

class SuiteClient;

// Runs the command in a line of input, a JSON object. Main thread only.
//
//   {"send": NAME, "args": [...]}   sends a message to the browser's pages; "args" may be missing
//   {"load": URL}                   loads a page
//   {"reload": true}
//   {"screenshot": FILE.png}        writes a picture of the browser
//   {"quit": CODE}                  ends the run
//
// All commands except "quit" accept the key "browser", which is 1 by default. A line has exactly
// one command and no unknown keys. An invalid line and a command that fails print an error event
// and have no other effect.
void RunInputCommand(SuiteClient& client, const InputLine& line);
