// Malicious and careless pages. Their renderers continue, and their messages still arrive.

#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

using nlohmann::json;

namespace {

class HostilePageTest : public testing::Test {
 protected:
  static void FinishUnharmed(SuiteHostRun& run) {
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.Count("gone"), 0);
    EXPECT_TRUE(run.Messages("never").empty());
  }
};

TEST_F(HostilePageTest, GetterMayEndItsContext) {
  SuiteHostRun run("ending_getters.html");
  FinishUnharmed(run);
  // The later elements of the array are lost together with the removed frame.
  EXPECT_EQ(run.Message("removed").dump(), R"(["first","from the getter",null])");
  for (const char* name : {"navigated", "rewritten", "left"}) {
    EXPECT_EQ(run.Message(name).dump(), R"(["first","from the getter","third"])") << name;
  }
  EXPECT_EQ(run.Messages("arrived").size(), 1U);
}

TEST_F(HostilePageTest, CallbackIsNotCalledWhenItsArgumentsEndItsFrame) {
  SuiteHostRun run("setters.html");
  FinishUnharmed(run);
  EXPECT_EQ(run.Messages("removing").size(), 1U);
  EXPECT_EQ(run.Message("free again").dump(), "[false]");
}

TEST_F(HostilePageTest, ThrowingSetterLosesItsElementAlone) {
  SuiteHostRun run("setters.html");
  FinishUnharmed(run);
  EXPECT_EQ(run.Message("called").dump(), R"([2,"second"])");
}

TEST_F(HostilePageTest, AnyCallableMayBeCallback) {
  SuiteHostRun run("callables.html");
  FinishUnharmed(run);
  EXPECT_EQ(json(run.Messages("runs")).dump(),
            R"([["async"],["bound to","bound"],["proxy"],["trap"]])");
  EXPECT_EQ(run.Message("native").dump(), R"(["argument"])");
  EXPECT_EQ(run.Message("removed"), json(std::vector<bool>(7, true)));
}

TEST_F(HostilePageTest, RegistrationBelongsToFrameOfItsApp) {
  SuiteHostRun run("foreign_functions.html");
  FinishUnharmed(run);
  EXPECT_EQ(run.Messages("function of the frame").size(), 2U)
      << "before and after its frame is removed";
  EXPECT_EQ(run.Messages("function of the page").size(), 1U) << "before the frame is removed";
}

TEST_F(HostilePageTest, CallbackMayRemoveEnclosingFrames) {
  SuiteHostRun run("nested_frames.html");
  FinishUnharmed(run);
  EXPECT_EQ(run.Messages("removed").size(), 1U);
  EXPECT_EQ(run.Message("free again").dump(), "[false,false]");
}

TEST_F(HostilePageTest, PageMayReloadRepeatedlyWhileMessagesArrive) {
  SuiteHostRun run("reload_storm.html");
  FinishUnharmed(run);
  EXPECT_EQ(run.Message("last round").dump(), "[30,50]");
}

TEST_F(HostilePageTest, FunctionsWorkWithLittleStackLeft) {
  SuiteHostRun run("stack.html");
  FinishUnharmed(run);
  const auto deep = run.Messages("deep");
  EXPECT_FALSE(deep.empty());
  for (const json& arguments : deep)
    EXPECT_EQ(arguments.dump(), R"([1,[2,["x"]]])");
}

TEST_F(HostilePageTest, GetterMaySendItsArrayUntilStackIsExhausted) {
  SuiteHostRun run("stack.html");
  FinishUnharmed(run);
  auto arguments = run.Messages("recursion");
  ASSERT_GT(arguments.size(), 10U);
  EXPECT_EQ(arguments.front().dump(), R"(["first",null])") << "the innermost";
  EXPECT_EQ(arguments.back().dump(), R"(["first","sent"])");
}

}  // namespace
