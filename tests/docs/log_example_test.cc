// Compares the example of docs/logging.md with the log library.

#include <gmock/gmock.h>

#include "logging/log_header.h"
#include "support/files.h"
#include "tests/support/test_home.h"

namespace {

using testing::SizeIs;

// Returns the label of each line, or the whole line if it has no label.
std::vector<std::string> Labels(const std::vector<std::string>& lines) {
  std::vector<std::string> labels;
  labels.reserve(lines.size());
  for (const std::string& line : lines)
    labels.push_back(line.substr(0, line.find(": ")));
  return labels;
}

TEST(LogExampleTest, HeaderHasLinesOfExample) {
  const TestHome home;
  tarn::stLogHeader header = tarn::DescribeSystem();
  header.entries.try_emplace("CRN Version: ");  // no suite is installed here
  EXPECT_THAT(ReadLines(LOG_HEADER), SizeIs(7));
  EXPECT_EQ(Labels(tarn::HeaderLines(header)), Labels(ReadLines(LOG_HEADER)));
}

}  // namespace
