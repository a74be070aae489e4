#pragma once

#include <gmock/gmock.h>
#include <unistd.h>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/logging/log_file.h"

// The result of time() in this test program; the names of copies contain it.
extern std::time_t g_segments_now;

// Provides a log file that is rotated. The clock starts at 2026-11-15 21:05:07 UTC.
class LogTargetSegmentsTest : public LogFileTest {
 protected:
  static constexpr long long kLimit = 10485760;
  // The name of a copy made at that time.
  static constexpr char kCopy[] = "test 2026-11-15 21-05-07.log";

  LogTargetSegmentsTest() { g_segments_now = 1794776707; }

  // Returns the names of the entries in the log's folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
      names.push_back(entry.path().filename());
    return names;
  }
  std::string At(const std::string& name) const { return folder_.path() + "/" + name; }

  // Fills the log with lines up to a size and returns its content.
  std::string Fill(long long size) const {
    std::string content;
    while (static_cast<long long>(content.size()) + 64 < size)
      content += "an earlier line of 32 characters\n";
    content.resize(static_cast<std::size_t>(size - 1), '.');
    WriteFile(path_, content += "\n");
    return content;
  }
  void FillSparsely(long long size) const {
    WriteFile(path_, "");
    ASSERT_EQ(truncate(path_.c_str(), size), 0);
  }
  bool WasRotated() const { return std::filesystem::exists(At(kCopy)); }
};
