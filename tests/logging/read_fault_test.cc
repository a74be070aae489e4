// Tests files that cannot be read.

#include <gmock/gmock.h>
#include <cerrno>

#include "logging/log_rotation.h"
#include "tests/logging/log_file.h"
#include "tests/logging/system_faults.h"

namespace {

using testing::ElementsAre;

TEST_F(LogFileTest, LineIsDroppedWhileEndCannotBeRead) {
  WriteFile(path_, "half of a line");
  ASSERT_TRUE(Open());
  g_faults.read = EIO;
  Write("dropped");
  Write("dropped");
  g_faults.read = 0;
  Write("x");
  Close();
  EXPECT_THAT(Messages(), ElementsAre(testing::_, "x"));
  EXPECT_EQ(Lines()[0], "half of a line");
}

TEST_F(LogFileTest, FailedReadAddsNoBlankLine) {
  WriteFile(path_, "a whole line\n");
  ASSERT_TRUE(Open());
  g_faults.read = EIO;
  Write("dropped");
  g_faults.read = 0;
  Write("x");
  Close();
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(LogFileTest, KeepsAllCopiesWhenReadingMarkerFails) {
  WriteFile(folder_.path() + "/pvx.trace", "");
  EXPECT_FALSE(tarn::KeepsAllCopies(folder_.path()));
  g_faults.read = EIO;
  EXPECT_TRUE(tarn::KeepsAllCopies(folder_.path()));
  g_faults.read = 0;
}

}  // namespace
