#include "tests/e2e/packing_transcript.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <sstream>

namespace {

constexpr std::size_t kMaxLength = 120;

std::string Shorten(const std::string& text) {
  if (text.size() <= kMaxLength) return text;
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::ostringstream stream;
  stream << text.substr(0, kMaxLength / 3) << "... " << text.size() << " " << std::hex << hash;
  return stream.str();
}

std::string Dump(const SuiteHostRun::Event& value) { return Shorten(value.dump(-1, ' ', true)); }

// Commands to the host are left out, because the case logs their results.
bool IsCommand(const std::string& name) { return name.rfind("host.", 0) == 0; }

std::string ConsoleLine(const SuiteHostRun::Event& event) {
  const std::string file = event.value("file", "");
  return "console " + event["text"].dump(-1, ' ', true) + " " +
         file.substr(file.find_last_of('/') + 1) + ":" + std::to_string(event.value("line", 0));
}

void AddMessage(const SuiteHostRun::Event& event, PackingTranscript& transcript) {
  const std::string name = event["name"];
  const SuiteHostRun::Event& arguments = event["args"];
  if (name == "case") transcript.push_back({arguments[0], {}});
  if (transcript.empty() || name == "case" || IsCommand(name)) return;

  std::vector<std::string>& lines = transcript.back().lines;
  if (name == "log") {
    lines.push_back(arguments[0]);
    return;
  }
  const std::string line = SuiteHostRun::Event(name).dump(-1, ' ', true) + " " + Dump(arguments);
  // These messages count once for each content, because their number depends on the stack's size.
  const bool counts = name != "deep" && name != "itself";
  if (counts || std::find(lines.begin(), lines.end(), line) == lines.end()) lines.push_back(line);
}

std::string LineAt(const std::vector<std::string>& lines, std::size_t index) {
  return index < lines.size() ? lines[index] : "(no more lines)";
}

std::string CompareLines(const PackingCase& expected, const std::vector<std::string>& actual) {
  if (expected.lines == actual) return {};
  std::size_t first = 0;
  while (LineAt(expected.lines, first) == LineAt(actual, first))
    ++first;
  return expected.name + ", line " + std::to_string(first + 1) +
         "\n  expected: " + LineAt(expected.lines, first) +
         "\n  actual:   " + LineAt(actual, first) + "\n";
}

}  // namespace

PackingTranscript ReadTranscript(const std::vector<SuiteHostRun::Event>& events) {
  PackingTranscript transcript;
  for (const auto& event : events) {
    if (event["event"] == "message") {
      AddMessage(event, transcript);
    } else if (!transcript.empty() && event["event"] == "console") {
      transcript.back().lines.push_back(Shorten(ConsoleLine(event)));
    }
  }
  return transcript;
}

std::string ToText(const PackingTranscript& transcript) {
  std::string text;
  for (const auto& [name, lines] : transcript) {
    text += name + "\n";
    for (const std::string& line : lines)
      text += "  " + line + "\n";
  }
  return text;
}

PackingTranscript FromText(const std::string& text) {
  PackingTranscript transcript;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind("  ", 0) != 0) {
      transcript.push_back({line, {}});
    } else if (!transcript.empty()) {
      transcript.back().lines.push_back(line.substr(2));
    }
  }
  return transcript;
}

std::string Compare(const PackingTranscript& expected, const PackingTranscript& actual) {
  std::map<std::string, std::vector<std::string>> lines;
  for (const auto& [name, actual_lines] : actual)
    lines[name] = actual_lines;
  std::string differences;
  for (const PackingCase& one : expected)
    differences += CompareLines(one, lines[one.name]);
  for (const auto& one : expected)
    lines.erase(one.name);
  for (const auto& [name, unexpected] : lines)
    differences += name + ": not expected\n";
  return differences;
}
