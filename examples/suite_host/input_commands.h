#pragma once

#include "examples/suite_host/line_splitter.h"

class SuiteClient;

// Carries out a line of input: a JSON object with one command. Main thread only.
//
//   {"send": NAME, "args": [...]}   sends a message to the browser's pages; "args" may be missing
//   {"load": URL}                   loads a page
//   {"reload": true}
//   {"screenshot": FILE.png}        writes the next paint of the browser
//   {"quit": CODE}                  ends the run
//
// All but "quit" take a key "browser", by default 1. A line that is invalid prints an error event
// and has no other effect.
void CarryOutInput(SuiteClient& client, const InputLine& line);
