// Large arrays cross the bridge packed. No page can tell.

#include <gmock/gmock.h>

#include "support/files.h"
#include "tests/e2e/packing_transcript.h"
#include "tests/e2e/suite_host_run.h"

namespace {

using testing::StartsWith;

// The test without packing leaves a new one, packing_transcript.txt, in its working directory when
// it fails; a change of a case changes it.
const char kExpectedTranscript[] = E2E_PAGES "/packing/transcript.txt";
const char kNever[] = "1000000000";

// `break_even`: from how many elements arrays are packed; empty: the default.
SuiteHostRun::Surroundings PackFrom(const std::string& break_even) {
  SuiteHostRun::Surroundings surroundings;
  surroundings.prepare = [break_even](const std::string& home) {
    if (!break_even.empty()) WriteFile(home + "/packing", break_even);
  };
  return surroundings;
}

PackingTranscript Transcribe(const std::string& break_even) {
  SuiteHostRun run("packing.html", {"--helper=" PROBE_HELPER, "--timeout=100"},
                   PackFrom(break_even));
  EXPECT_EQ(run.Finish(), 0) << run.ErrorOutput();
  EXPECT_EQ(run.Count("gone"), 0);
  return ReadTranscript(run.events());
}

void ExpectTranscript(const PackingTranscript& actual) {
  EXPECT_EQ(Compare(FromText(ReadFile(kExpectedTranscript)), actual), "");
}

TEST(PackingTest, PagesSeeWhatIsRecordedWithoutPacking) {
  const PackingTranscript transcript = Transcribe(kNever);
  EXPECT_GE(transcript.size(), 100U);
  for (const auto& [name, lines] : transcript)
    EXPECT_TRUE(lines.size() > 1 && lines.back() == "end") << name;
  ExpectTranscript(transcript);
  if (HasFailure()) WriteFile("packing_transcript.txt", ToText(transcript));
}

TEST(PackingTest, PagesSeeTheSameWhenAllArraysArePacked) { ExpectTranscript(Transcribe("0")); }

TEST(PackingTest, PagesSeeTheSameWhenLargeArraysArePacked) { ExpectTranscript(Transcribe("")); }

// The kinds of an array's elements as the model of the page writes them.
std::string KindsOf(const SuiteHostRun::Event& array) {
  std::string kinds = "[";
  for (const auto& element : array) {
    if (element.is_array()) {
      kinds += KindsOf(element);
    } else if (element.is_number()) {
      kinds += element.is_number_float() ? 'd' : 'i';
    } else {
      kinds += element.is_string() ? 's' : element.is_boolean() ? 'b' : 'n';
    }
  }
  return kinds + "]";
}

// The seeds are 1 to `rounds`.
void RunRounds(int rounds, const std::string& break_even) {
  SuiteHostRun run("packing_random.html?1," + std::to_string(rounds),
                   {"--helper=" PROBE_HELPER, "--timeout=100"}, PackFrom(break_even));
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Messages("mismatch"), std::vector<SuiteHostRun::Event>()) << "by their seeds";
  EXPECT_EQ(run.Message("rounds"), SuiteHostRun::Event({rounds}));
  const auto sent = run.Messages("host.send");
  EXPECT_EQ(static_cast<int>(sent.size()), rounds);
  for (const auto& arguments : sent) {
    const auto& list = arguments[1];
    ASSERT_EQ(KindsOf(list[1]), list[0]) << list[1];
  }
}

// How the page's browser ends, and what it has received by then.
std::string SendLevels(const std::string& levels, const std::string& break_even) {
  SuiteHostRun run("packing_levels.html?" + levels, {"--helper=" PROBE_HELPER},
                   PackFrom(break_even));
  const int status = run.Finish();
  return "status " + std::to_string(status) + ", " + std::to_string(run.Count("gone")) +
         " renderers gone, received " + SuiteHostRun::Event(run.Messages("up")).dump();
}

// The library does not send more than a certain number of levels, and ends the renderer that tries.
TEST(PackingTest, LevelsAreLimitedTheSameWay) {
  EXPECT_THAT(SendLevels("199", kNever), StartsWith("status 0, 0 renderers gone"));
  EXPECT_THAT(SendLevels("300", kNever), StartsWith("status 4, 1 renderers gone"));
  for (const char* levels : {"199", "200", "201", "202", "300"})
    EXPECT_EQ(SendLevels(levels, "0"), SendLevels(levels, kNever)) << levels << " levels";
}

TEST(PackingTest, RandomArraysArriveAsTheModelSays) { RunRounds(10000, "0"); }

TEST(PackingTest, RandomArraysArriveAsTheModelSaysWithoutPacking) { RunRounds(1000, kNever); }

}  // namespace
