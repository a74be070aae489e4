#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/e2e/suite_host_run.h"

// One case of pages/packing.html with its observations in order: the messages and console lines
// that the host receives, then the lines of the case's own log. A long text is represented by its
// beginning, its length and its hash.
struct PackingCase {
  std::string name;
  std::vector<std::string> lines;
};
using PackingTranscript = std::vector<PackingCase>;

PackingTranscript ReadTranscript(const std::vector<SuiteHostRun::Event>& events);

// Converts a transcript to text and back. Each case's name has a line, followed by its lines,
// indented.
std::string ToText(const PackingTranscript& transcript);
PackingTranscript FromText(const std::string& text);

// Returns the first difference of each case, with the case's name; empty when the transcripts are
// equal.
std::string Compare(const PackingTranscript& expected, const PackingTranscript& actual);
