#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/e2e/suite_host_run.h"

// The observations of each case of pages/packing.html, in order: the messages and console lines
// that the host sees, then the lines of the case's own log. One long text is represented by its
// beginning, its length and its hash.
struct PackingCase {
  std::string name;
  std::vector<std::string> lines;
};
using PackingTranscript = std::vector<PackingCase>;

PackingTranscript ReadTranscript(const std::vector<SuiteHostRun::Event>& events);

// As a text with one line for each case's name, and its lines indented.
std::string ToText(const PackingTranscript& transcript);
PackingTranscript FromText(const std::string& text);

// The first line of each case that differs in the two, with the case's name; empty: none.
std::string Compare(const PackingTranscript& expected, const PackingTranscript& actual);
