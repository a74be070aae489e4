// Rotation on a disk that is full.

#include <sched.h>
#include <sys/mount.h>

#include "tests/logging/log_segments.h"
#include "tests/support/namespaces.h"
#include "tests/support/process_pool.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;

TEST_F(LogTargetSegmentsTest, CopyThatIsCutShortKeepsTheFile) {
  if (!CanUnshare(CLONE_NEWNS)) GTEST_SKIP() << "this system does not allow namespaces";
  ProcessPool pool;
  pool.Start([this] {
    if (!Unshare(CLONE_NEWNS) ||
        mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=15m") != 0) {
      return false;
    }
    const std::string content = Fill(kLimit);
    const bool opened = Open();
    EXPECT_TRUE(Text() == content);
    EXPECT_THAT(Names(), ElementsAre("test.log"));
    Write("x");
    EXPECT_THAT(Lines().back(), EndsWith(" | x"));
    Close();
    return opened && !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

}  // namespace
