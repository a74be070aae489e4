#include "tests/stress/log_check.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include "logging/log_header.h"

namespace {

// Returns the text of a column, or an empty string. The separators are " | ".
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

std::string LastColumn(const std::string& text) {
  const std::size_t separator = text.rfind(" | ");
  return separator == std::string::npos ? text : text.substr(separator + 3);
}

constexpr int kDomainColumn = 3;

}  // namespace

LogCheck::LogCheck(std::vector<WriterRecord> writers, long max_text)
    : writers_(std::move(writers)),
      progress_(writers_.size()),
      max_text_(max_text),
      header_(tarn::HeaderLines(tarn::DescribeSystem())) {
  for (std::size_t i = 0; i < writers_.size(); ++i)
    domains_[NextLine(i).domain()] = i;
  someone_was_killed_ = std::any_of(writers_.begin(), writers_.end(),
                                    [](const WriterRecord& writer) { return writer.killed; });
}

NumberedLine LogCheck::NextLine(std::size_t writer) const {
  return {static_cast<int>(writer), progress_[writer].lines + 1, max_text_};
}

bool LogCheck::Read(const std::string& path) {
  if (!ReadFile(path, false)) return false;
  // The check would miss lines that were moved to copies.
  const auto folder = std::filesystem::path(path).parent_path();
  if (std::distance(std::filesystem::directory_iterator(folder), {}) != 1)
    return Fail("there is another file next to it", path);
  return AllThere();
}

bool LogCheck::ReadWithCopies(const std::string& path) {
  const std::filesystem::path live = path;
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(live.parent_path())) {
    const std::string name = entry.path().filename();
    if (name.compare(0, live.stem().string().size() + 1, live.stem().string() + " ") == 0)
      files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  copies_ = static_cast<long>(files.size());
  files.push_back(path);
  for (const std::string& file : files) {
    if (!ReadFile(file, file != files.front())) return false;
  }
  return AllThere();
}

bool LogCheck::ReadFile(const std::string& path, bool has_header) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return Fail("the file cannot be opened", path);
  bool in_header = has_header;
  std::vector<std::string> header;
  for (std::string text; std::getline(file, text);) {
    if (in_header && IsHeaderLine(text)) {
      header.push_back(LastColumn(text));
      continue;
    }
    if (in_header && !IsHeader(header)) return Fail("no whole header in front", path);
    in_header = false;
    ++lines_;
    if (!Take(text, !file.eof())) return false;
  }
  return true;
}

bool LogCheck::IsHeaderLine(const std::string& text) const {
  return std::find(header_.begin(), header_.end(), LastColumn(text)) != header_.end();
}

bool LogCheck::IsHeader(const std::vector<std::string>& lines) const {
  if (!someone_was_killed_) return lines == header_;
  return lines.size() >= header_.size() &&
         std::equal(header_.rbegin(), header_.rend(), lines.rbegin());
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

// A short line may belong to any killed writer; the choice does not matter.
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
