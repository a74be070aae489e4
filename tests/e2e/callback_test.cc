// Messages from the browser to a page, and the lifetime of callbacks.

#include <gtest/gtest.h>
#include <algorithm>

#include "tests/e2e/suite_host_run.h"

using nlohmann::json;

namespace {

// Returns the names of the messages that the page sent after the message `begin` and before `end`,
// in order. Commands to the browser are left out.
std::vector<std::string> NamesBetween(const SuiteHostRun& run, const std::string& begin,
                                      const std::string& end) {
  std::vector<std::string> names;
  bool within = false;
  for (const json& event : run.events()) {
    if (event["event"] != "message") continue;
    const std::string name = event["name"];
    if (name == end) break;
    if (within && name.rfind("host.", 0) != 0) names.push_back(name);
    within = within || name == begin;
  }
  return names;
}

using Names = std::vector<std::string>;

class CallbackTest : public testing::Test {
 protected:
  CallbackTest() : run_("callbacks.html") { EXPECT_EQ(run_.Finish(), 0); }

  // Returns the arguments of each call of the callback registered as `name`.
  std::vector<json> CallsOf(const std::string& name) {
    std::vector<json> calls;
    for (json call : run_.Messages("called")) {
      if (call[0] == name) calls.push_back(call);
    }
    return calls;
  }

  SuiteHostRun run_;
};

TEST_F(CallbackTest, GetsNameAndArrayOfArguments) {
  const auto calls = CallsOf("kinds");
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].dump(),
            R"(["kinds",2,"kinds",[7,null,null,null,[],2.5,"ä€𝄞",true],true,true,true])");
}

TEST_F(CallbackTest, GetsEmptyArrayForMessageWithoutArguments) {
  const auto calls = CallsOf("none");
  ASSERT_EQ(calls.size(), 1U) << "a message sent after the removal arrived, too";
  EXPECT_EQ(calls[0].dump(), R"(["none",2,"none",[],true,true,true])");
}

TEST_F(CallbackTest, AcceptsAnyTextAsName) {
  for (const std::string name : {"Grüße", "👋"}) {
    EXPECT_EQ(CallsOf(name).size(), 1U) << name;
  }
  EXPECT_EQ(CallsOf(std::string("a\0b", 3)).size(), 1U);
}

TEST_F(CallbackTest, NamesAreCaseSensitive) { EXPECT_EQ(run_.Messages("called").size(), 5U); }

TEST_F(CallbackTest, SecondRegistrationOfNameIsIgnored) {
  EXPECT_TRUE(run_.Messages("second registration").empty());
}

class FramesTest : public testing::Test {
 protected:
  FramesTest() : run_("frames.html") { EXPECT_EQ(run_.Finish(), 0); }

  SuiteHostRun run_;
};

TEST_F(FramesTest, FirstRegistrationOfNameInBrowserStays) {
  EXPECT_EQ(NamesBetween(run_, "both", "one removed"),
            (Names{"shared runs in one", "of one runs in one", "of two runs in two", "main runs"}));
}

TEST_F(FramesTest, RemovedFrameLosesItsCallbacksAlone) {
  EXPECT_EQ(NamesBetween(run_, "one removed", "registered again"),
            (Names{"of two runs in two", "main runs"}));
}

TEST_F(FramesTest, NameIsFreeAfterItsFrameIsRemoved) {
  EXPECT_EQ(NamesBetween(run_, "registered again", "two reloaded"), (Names{"shared runs in two"}));
}

TEST_F(FramesTest, NavigationRemovesCallbacksOfItsFrameAlone) {
  EXPECT_EQ(NamesBetween(run_, "two reloaded", ""), (Names{"main runs"}));
}

void ExpectOwnCallbacksOnly(const SuiteHostRun& run) {
  auto calls = run.Messages("same runs");
  std::sort(calls.begin(), calls.end());
  EXPECT_EQ(json(calls).dump(), R"([[false,"for the first"],[true,"for the second"],)"
                                R"([true,"still for the second"]])");
}

TEST(TwoBrowsersTest, MessageRunsCallbackOfItsBrowserAlone) {
  SuiteHostRun run("two_browsers.html");
  EXPECT_EQ(run.Finish(), 0);
  ExpectOwnCallbacksOnly(run);
}

TEST(TwoBrowsersTest, BrowsersInOneRendererShareNoCallbacks) {
  SuiteHostRun run("two_browsers.html",
                   {"--helper=" PROBE_HELPER, "--switch=renderer-process-limit=1"});
  EXPECT_EQ(run.Finish(), 0);
  const auto renderers = run.Messages("probe.process");
  ASSERT_EQ(renderers.size(), 2U);
  EXPECT_EQ(renderers[0], renderers[1]);
  ExpectOwnCallbacksOnly(run);
}

TEST(UnrulyCallbackTest, PageSurvivesWhateverCallbackDoes) {
  SuiteHostRun run("unruly_callbacks.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Count("gone"), 0);
  EXPECT_EQ(NamesBetween(run, "after throwing", ""),
            (Names{"removed", "the old one", "the new one", "registered meanwhile runs", "wrote"}));
  EXPECT_EQ(run.Messages("throwing").size(), 2U);
  EXPECT_EQ(run.Message("after throwing").dump(), "[true]");
  EXPECT_EQ(run.Message("removed").dump(), "[true]");
}

TEST(VanishingFrameTest, CallbackMayRemoveItsOwnFrame) {
  SuiteHostRun run("vanishing_frame.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Messages("vanished").size(), 1U);
  EXPECT_EQ(run.Messages("a promise of the page").size(), 1U);
  EXPECT_EQ(run.Message("free again").dump(), "[false,false]");
}

TEST(VanishingFrameTest, FunctionsOfRemovedFrameHaveNoEffect) {
  SuiteHostRun run("vanishing_frame.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("set").dump(), "[null]");
  EXPECT_EQ(run.Message("send").dump(), "[null]");
  EXPECT_EQ(run.Message("remove").dump(), "[false]");
  EXPECT_TRUE(run.Messages("never").empty());
}

TEST(LeavingPageTest, RegistrationDuringUnloadEndsWithItsFrame) {
  SuiteHostRun run("leaving.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Messages("unloading").size(), 1U);
  EXPECT_TRUE(run.Messages("never").empty());
  EXPECT_EQ(run.Message("left over").dump(), "[false]");
}

TEST(LeavingPageTest, CallbackMayNavigateWhileMessagesArrive) {
  SuiteHostRun run("leaving.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("arrived").dump(), "[false]");
  EXPECT_EQ(run.Count("gone"), 0);
}

}  // namespace
