#include "tests/stress/log_check.h"

#include <filesystem>
#include <fstream>
#include <utility>

namespace {

// The text of a column, or an empty one. The separators are " | ".
std::string Column(const std::string& text, int index) {
  std::size_t begin = 0;
  for (int i = 0; i < index; ++i) {
    begin = text.find(" | ", begin);
    if (begin == std::string::npos) return {};
    begin += 3;
  }
  const std::size_t end = text.find(" | ", begin);
  return end == std::string::npos ? std::string() : text.substr(begin, end - begin);
}

constexpr int kDomainColumn = 3;

}  // namespace

LogCheck::LogCheck(std::vector<WriterRecord> writers, long most_text)
    : writers_(std::move(writers)), progress_(writers_.size()), most_text_(most_text) {
  for (std::size_t i = 0; i < writers_.size(); ++i)
    domains_[NextLine(i).domain()] = i;
}

NumberedLine LogCheck::NextLine(std::size_t writer) const {
  return {static_cast<int>(writer), progress_[writer].lines + 1, most_text_};
}

bool LogCheck::Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return Fail("the file cannot be opened", path);
  std::string text;
  while (std::getline(file, text)) {
    ++lines_;
    if (!Take(text, !file.eof())) return false;
  }
  // Such a check would miss what was moved there.
  const auto folder = std::filesystem::path(path).parent_path();
  if (std::distance(std::filesystem::directory_iterator(folder), {}) != 1)
    return Fail("another file stands beside it", path);
  return AllThere();
}

bool LogCheck::Take(const std::string& text, bool has_end) {
  const auto writer = domains_.find(Column(text, kDomainColumn));
  if (has_end && writer != domains_.end() && TakeWhole(text, writer->second)) return true;
  return problem_.empty() && TakeTorn(text);
}

bool LogCheck::TakeWhole(const std::string& text, std::size_t writer) {
  std::string thread;
  Progress& progress = progress_[writer];
  if (!IsWhole(NextLine(writer), writers_[writer].session, text, thread)) return false;
  if (progress.torn) return Fail("a line after the writer's begun one", text);
  if (progress.lines > 0 && thread != progress.thread) return Fail("another thread", text);
  progress.thread = thread;
  ++progress.lines;
  return true;
}

// A short one may be that of any killed writer; which one does not matter then.
bool LogCheck::TakeTorn(const std::string& text) {
  for (std::size_t i = 0; i < writers_.size(); ++i) {
    const bool open =
        writers_[i].killed && !progress_[i].torn && progress_[i].lines == writers_[i].acknowledged;
    if (!open || !IsBeginOf(NextLine(i), writers_[i].session, text)) continue;
    progress_[i].torn = true;
    ++(text.empty() ? empty_ : torn_);
    return true;
  }
  const auto writer = domains_.find(Column(text, kDomainColumn));
  if (writer == domains_.end()) return Fail("not a line of any writer", text);
  return Fail("not the whole line " + std::to_string(progress_[writer->second].lines + 1) +
                  " of writer " + std::to_string(writer->second),
              text);
}

bool LogCheck::AllThere() {
  for (std::size_t i = 0; i < writers_.size(); ++i) {
    const long lines = progress_[i].lines;
    const long acknowledged = writers_[i].acknowledged;
    if (lines == acknowledged) continue;
    if (writers_[i].killed && lines == acknowledged + 1) continue;
    problem_ = "writer " + std::to_string(i) + " has " + std::to_string(lines) + " lines, and " +
               std::to_string(acknowledged) + " were acknowledged";
    return false;
  }
  return true;
}

bool LogCheck::Fail(const std::string& problem, const std::string& text) {
  problem_ = "line " + std::to_string(lines_) + " of the file: " + problem + ":\n" + text;
  return false;
}
