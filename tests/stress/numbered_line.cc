#include "tests/stress/numbered_line.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr char kTimeShape[] = "00/00/00 00:00:00:000 | ";
constexpr std::size_t kTimeLength = sizeof kTimeShape - 1;

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

// Returns whether the first bytes of a line, which may be short, look like the time column.
bool BeginsWithTime(const std::string& text) {
  const std::size_t length = std::min(text.size(), kTimeLength);
  for (std::size_t i = 0; i < length; ++i) {
    const bool good = kTimeShape[i] == '0' ? IsDigit(text[i]) : text[i] == kTimeShape[i];
    if (!good) return false;
  }
  return true;
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

}  // namespace

std::string NumberedLine::message() const {
  const auto seed = static_cast<unsigned long>(writer) * 7919U + static_cast<unsigned long>(number);
  const unsigned long length = seed * 2654435761U % static_cast<unsigned long>(max_text + 1);
  std::string text = "M" + std::to_string(writer) + " " + std::to_string(number) + " ";
  for (unsigned long i = 0; i < length; ++i)
    text += static_cast<char>('a' + (seed + i) % 26);
  return text + ".";
}

std::string NumberedLine::Head(pid_t session) const {
  return "[INFO] | " + std::to_string(session) + " | " + domain() + " | " + sub_domain() + " | " +
         component() + " | " + detail1() + " | " + detail2() + " | ";
}

std::string NumberedLine::Tail() const { return " | " + message(); }

bool IsBeginOf(const NumberedLine& line, pid_t session, const std::string& text) {
  if (!BeginsWithTime(text)) return false;
  if (text.size() <= kTimeLength) return true;
  const std::string rest = text.substr(kTimeLength);
  const std::string head = line.Head(session);
  if (rest.size() <= head.size()) return StartsWith(head, rest);
  if (!StartsWith(rest, head)) return false;
  const auto thread_end = std::find_if_not(
      rest.begin() + static_cast<std::string::difference_type>(head.size()), rest.end(), IsDigit);
  return StartsWith(line.Tail(), std::string(thread_end, rest.end()));
}

bool IsWhole(const NumberedLine& line, pid_t session, const std::string& text,
             std::string& thread) {
  const std::string head = line.Head(session);
  const std::string tail = line.Tail();
  const std::size_t around = kTimeLength + head.size() + tail.size();
  if (text.size() <= around || !BeginsWithTime(text)) return false;
  if (text.compare(kTimeLength, head.size(), head) != 0) return false;
  if (text.compare(text.size() - tail.size(), tail.size(), tail) != 0) return false;
  thread = text.substr(kTimeLength + head.size(), text.size() - around);
  return std::all_of(thread.begin(), thread.end(), IsDigit);
}
