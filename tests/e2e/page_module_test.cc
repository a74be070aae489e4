// The module for page authors, page/velmora-app.js.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "tests/e2e/suite_host_run.h"

using nlohmann::json;
using testing::ElementsAre;
using testing::MatchesRegex;

namespace {

// Returns the arguments of each message with this name, as JSON.
std::vector<std::string> Dumps(const SuiteHostRun& run, const std::string& name) {
  std::vector<std::string> dumps;
  for (const json& arguments : run.Messages(name))
    dumps.push_back(arguments.dump());
  return dumps;
}

// Returns the texts of the page's console.
std::vector<std::string> Console(const SuiteHostRun& run) {
  std::vector<std::string> texts;
  for (const json& event : run.events()) {
    if (event["event"] == "console") texts.push_back(event["text"]);
  }
  return texts;
}

class RequestTest : public testing::Test {
 protected:
  RequestTest() : run_("module_requests.html") { EXPECT_EQ(run_.Finish(), 0); }

  std::string Arguments(const std::string& message) { return run_.Message(message).dump(); }

  SuiteHostRun run_;
};

TEST_F(RequestTest, SendsNameOfItsAnswerBeforeItsArguments) {
  const auto asked = run_.Messages("ask");
  ASSERT_EQ(asked.size(), 2U);
  ASSERT_EQ(asked[0].size(), 2U);
  EXPECT_EQ(asked[0][1], "first");
  ASSERT_EQ(asked[1].size(), 1U);
  std::set<std::string> names;
  for (const json& arguments : asked) {
    EXPECT_THAT(arguments[0].get<std::string>(),
                MatchesRegex(R"(velmora\.reply\.[0-9a-z]+-[0-9a-z]+-[0-9a-z]+-[0-9a-z]+\.[0-9]+)"));
    names.insert(arguments[0]);
  }
  EXPECT_EQ(names.size(), 2U);
}

TEST_F(RequestTest, ResolvesWithValuesOfResult) {
  EXPECT_EQ(Arguments("result"), R"([["resolved",["a",[1,2.5,true,null]]]])");
  EXPECT_EQ(Arguments("empty result"), R"([["resolved",[]]])");
}

TEST_F(RequestTest, RejectsWithTextOfError) {
  EXPECT_EQ(Arguments("error"), R"([["rejected",true,"SuiteError","no such file"]])");
}

TEST_F(RequestTest, RejectsForAnswerOfUnknownKind) {
  EXPECT_EQ(
      Arguments("other kind"),
      R"([["rejected",true,"SuiteError","\"host.send\" got an answer of the kind surprise"]])");
  EXPECT_EQ(
      Arguments("no kind"),
      R"([["rejected",true,"SuiteError","\"host.send\" got an answer of the kind undefined"]])");
}

TEST_F(RequestTest, GetsItsOwnAnswerInAnyOrder) {
  EXPECT_EQ(Arguments("two"), R"([["first"],["second"]])");
}

TEST_F(RequestTest, HandlesFirstAnswerAloneAndEndsItsRegistration) {
  EXPECT_EQ(Arguments("names left"), "[false,false]");
  EXPECT_EQ(Arguments("returned"), "[[true]]");
}

TEST_F(RequestTest, ReportsProgressUntilResult) {
  EXPECT_EQ(Arguments("copied"), R"([["done"],[[0.5,"half"],[]]])");
  EXPECT_EQ(Arguments("deaf"), R"([["without a function"]])");
}

// The page waits for the error event of its window. The event omits the text because a script from
// a file has another origin than the page.
TEST_F(RequestTest, ReportsExceptionOfProgressFunctionToWindowAndConsole) {
  EXPECT_THAT(Console(run_), ElementsAre("Uncaught Error: a careless function"));
}

TEST_F(RequestTest, RejectsAndEndsItsRegistrationAfterTimeout) {
  EXPECT_EQ(Arguments("late"),
            R"([["rejected",true,"TimeoutError","no answer to \"slow\" within 1 ms"]])");
  EXPECT_EQ(Arguments("late name left"), "[false]");
}

TEST_F(RequestTest, WaitsWithoutLimitWhenTimeoutExceedsTimerRange) {
  EXPECT_THAT(Dumps(run_, "patient"),
              ElementsAre(R"([["resolved",[]]])", R"([["resolved",[]]])", R"([["resolved",[]]])"));
}

TEST_F(RequestTest, RejectsAndEndsItsRegistrationWhenAborted) {
  EXPECT_EQ(Arguments("aborted"),
            R"([["rejected",true,"AbortError","the request \"slow\" was aborted"],0])");
  EXPECT_EQ(Arguments("aborted name left"), "[false]");
}

TEST_F(RequestTest, SendsNothingWhenAlreadyAborted) {
  EXPECT_EQ(Arguments("aborted before"),
            R"([["rejected",true,"AbortError","the request \"never sent\" was aborted"]])");
  EXPECT_TRUE(run_.Messages("never sent").empty());
}

TEST_F(RequestTest, RemovesItsListenerFromUnusedSignal) {
  EXPECT_EQ(Arguments("unused signal"), "[0]");
  EXPECT_EQ(Arguments("simple signal"), "[[1]]");
}

TEST_F(RequestTest, RejectsInvalidNamesAndArguments) {
  const std::string name = R"([["rejected",true,"Error","Invalid method arguments"]])";
  const std::string args =
      R"([["rejected",true,"TypeError","the arguments of a request must be an array"]])";
  EXPECT_THAT(Dumps(run_, "mistake"), ElementsAre(name, name, args, args));
}

class ListenerTest : public testing::Test {
 protected:
  ListenerTest() : run_("module_listeners.html") { EXPECT_EQ(run_.Finish(), 0); }

  std::vector<std::string> CallsFor(const std::string& name) {
    std::vector<std::string> calls;
    for (const json& call : run_.Messages("called")) {
      if (call[1] == name) calls.push_back(call[0].get<std::string>() + " " + call[2].dump());
    }
    return calls;
  }

  SuiteHostRun run_;
};

TEST_F(ListenerTest, ListenersOfNameAreCalledInOrder) {
  EXPECT_THAT(
      CallsFor("theme"),
      ElementsAre(R"(none ["unhandled"])", R"(one ["unhandled"])", R"(none ["handled"])",
                  R"(one ["handled"])", R"(yes ["handled"])", R"(no ["handled"])",
                  R"(none ["without one"])", R"(yes ["without one"])", R"(no ["without one"])"));
}

TEST_F(ListenerTest, MessageIsHandledWhenAnyListenerReturnsTrue) {
  EXPECT_EQ(run_.Message("returned").dump(), "[[false,true,true]]");
}

TEST_F(ListenerTest, RemovalReturnsWhetherListenerWasRegistered) {
  EXPECT_EQ(run_.Message("off").dump(), "[true,false,false]");
}

TEST_F(ListenerTest, LastRemovalFreesNameForNextRegistration) {
  EXPECT_THAT(CallsFor("single"), ElementsAre(R"(only ["again"])"));
  EXPECT_EQ(run_.Message("free").dump(), "[false]");
}

TEST_F(ListenerTest, ExceptionReachesWindowAndStopsNoOtherListener) {
  const std::string careless = "Uncaught Error: a careless listener";
  EXPECT_THAT(Console(run_), testing::IsSupersetOf({careless, careless}));
  EXPECT_EQ(run_.Message("unruly returned").dump(), "[[false,false]]");
}

TEST_F(ListenerTest, ChangesTakeEffectWithNextMessage) {
  EXPECT_THAT(CallsFor("unruly"), ElementsAre("after [1]", "came [2]"));
}

TEST_F(ListenerTest, OnlySecondRegistrationIsWarnedAbout) {
  std::vector<std::string> warnings;
  for (const std::string& text : Console(run_)) {
    if (text.find("careless") == std::string::npos) warnings.push_back(text);
  }
  const std::string same = "registered twice: the same listener is called once";
  const std::string second = "registered twice: the second callback is never called";
  EXPECT_THAT(warnings, ElementsAre("velmora-app.js: \"same listener\" is " + same,
                                    "velmora-app.js: \"after on\" is " + second,
                                    "velmora-app.js: \"before on\" is " + second));
}

TEST_F(ListenerTest, OnlyFirstRegistrationIsCalled) {
  EXPECT_THAT(CallsFor("same listener"), ElementsAre("both []"));
  EXPECT_THAT(CallsFor("after on"), ElementsAre("of the module []"));
  EXPECT_THAT(CallsFor("before on"), ElementsAre("of app []", "next of app []"));
}

TEST_F(ListenerTest, MistakesThrowAndRegisterNothing) {
  const std::string bridge = "Invalid method arguments";
  const std::string module = "the listener must be a function";
  EXPECT_EQ(run_.Message("mistakes"), json({module, module, bridge, bridge, bridge}));
  EXPECT_EQ(run_.Message("mistakes left").dump(), "[false]");
}

TEST_F(ListenerTest, SecondCopyOfModuleLeavesFirstInPlace) {
  EXPECT_EQ(run_.Message("second copy").dump(), "[true]");
}

TEST(ModuleFramesTest, EachFrameGetsItsOwnAnswers) {
  SuiteHostRun run("module_frames.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("both").dump(), R"([[["of one"],["of two"],["of one again"]]])");
  EXPECT_EQ(run.Message("kept").dump(), R"([["of two"]])");
}

TEST(ModuleFramesTest, RequestsOfRemovedFrameAreRejected) {
  SuiteHostRun run("module_frames.html");
  EXPECT_EQ(run.Finish(), 0);
  const std::string removed = R"(["UnloadError","the page of the request \"open\" is gone"])";
  EXPECT_THAT(Dumps(run, "removed"), ElementsAre(removed, removed));
  EXPECT_THAT(Dumps(run, "gone"), ElementsAre(R"(["UnloadError"])", R"(["UnloadError"])"));
  EXPECT_TRUE(run.Messages("never sent").empty());
}

TEST(ModuleLeavingTest, RequestsOfUnloadingPageAreRejected) {
  SuiteHostRun run("module_leaving.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("left").dump(), R"(["UnloadError"])");
  EXPECT_EQ(run.Message("unloading").dump(), R"(["UnloadError"])");
  EXPECT_TRUE(run.Messages("never sent").empty());
  EXPECT_EQ(run.Messages("arrived").size(), 1U);
}

}  // namespace
