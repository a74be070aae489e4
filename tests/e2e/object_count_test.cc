#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

TEST(ObjectCountTest, TenThousandMessagesEachWayLeakNoObjects) {
  SuiteHostRun run("many_messages.html", {"--helper=" PROBE_HELPER, "--timeout=100"});
  EXPECT_EQ(run.Finish(), 0);
  const auto counts = run.Messages("probe.objects");
  ASSERT_EQ(counts.size(), 2U);
  EXPECT_GT(counts[0][0], 0);
  EXPECT_EQ(counts[0], counts[1]);
}
