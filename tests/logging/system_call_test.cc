// Counts the system calls of a line with strace.

#include <gtest/gtest.h>
#include <vector>

#include "support/files.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

// Returns the system calls between the two marks, as "name(arguments) = result".
std::vector<std::string> CallsBetweenMarks(const std::string& trace) {
  std::vector<std::string> calls;
  int marks = 0;
  for (const std::string& line : ReadLines(trace)) {
    if (line.rfind("getppid", 0) == 0) {
      ++marks;
    } else if (marks == 1) {
      calls.push_back(line);
    }
  }
  EXPECT_EQ(marks, 2);
  return calls;
}

// Returns whether the call belongs to a family, such as write() and writev() or semop() and
// semtimedop().
bool IsCall(const std::string& call, const std::string& family) {
  return call.rfind(family, 0) == 0;
}

TEST(SystemCallTest, LineOfAnyLengthNeedsThreeCalls) {
  const TemporaryFolder folder;
  const std::string trace = folder.path() + "/trace";
  ChildProcess program({"strace", "-s", "0", "-o", trace, WRITE_LINES, folder.path()},
                       {{{"HOME", folder.path()}}, ""});
  ASSERT_EQ(program.Wait(), 0);
  const std::vector<std::string> calls = CallsBetweenMarks(trace);
  const std::vector<std::string> lines = ReadLines(folder.path() + "/test.log");
  ASSERT_GT(lines.size(), 300U);
  ASSERT_EQ(calls.size(), 3 * (lines.size() - 1));
  for (std::size_t i = 1; i < lines.size(); ++i) {
    EXPECT_TRUE(IsCall(calls[3 * i - 3], "sem")) << calls[3 * i - 3];
    EXPECT_TRUE(IsCall(calls[3 * i - 2], "write")) << calls[3 * i - 2];
    EXPECT_EQ(calls[3 * i - 2].substr(calls[3 * i - 2].rfind(' ') + 1),
              std::to_string(lines[i].size() + 1));
    EXPECT_TRUE(IsCall(calls[3 * i - 1], "sem")) << calls[3 * i - 1];
  }
}

}  // namespace
