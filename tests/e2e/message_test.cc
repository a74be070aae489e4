#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

using nlohmann::json;

TEST(MessageTest, ElementsKeepTheirOrderAndKind) {
  SuiteHostRun run("kinds.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("eight").dump(), R"([1,2.5,"a",true,null,null,null,null])");
  EXPECT_EQ(run.Message("nested").dump(), "[[1,[2]],[]]");
  EXPECT_EQ(run.Message("empty").dump(), "[]");
}
