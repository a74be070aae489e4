// Large arrays cross the bridge packed, without an observable difference for pages.

#include <gmock/gmock.h>

#include "support/files.h"
#include "tests/e2e/packing_transcript.h"
#include "tests/e2e/suite_host_run.h"

namespace {

using testing::StartsWith;

// When the test without packing fails, it writes the actual transcript to packing_transcript.txt in
// its working directory. A change of a case requires the new transcript.
const char kExpectedTranscript[] = E2E_PAGES "/packing/transcript.txt";
const char kNever[] = "1000000000";

// Packs arrays from `break_even` elements on; an empty string selects the default.
SuiteHostRun::Environment PackFrom(const std::string& break_even) {
  SuiteHostRun::Environment environment;
  environment.prepare = [break_even](const std::string& home) {
    if (!break_even.empty()) WriteFile(home + "/packing", break_even);
  };
  return environment;
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

TEST(PackingTest, PagesSeeRecordedTranscriptWithoutPacking) {
  const PackingTranscript transcript = Transcribe(kNever);
  EXPECT_GE(transcript.size(), 100U);
  for (const auto& [name, lines] : transcript)
    EXPECT_TRUE(lines.size() > 1 && lines.back() == "end") << name;
  ExpectTranscript(transcript);
  if (HasFailure()) WriteFile("packing_transcript.txt", ToText(transcript));
}

TEST(PackingTest, PagesSeeSameTranscriptWhenAllArraysArePacked) {
  ExpectTranscript(Transcribe("0"));
}

TEST(PackingTest, PagesSeeSameTranscriptWhenLargeArraysArePacked) {
  ExpectTranscript(Transcribe(""));
}

// Returns the kinds of an array's elements in the notation of the page's model.
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

// Sends random arrays with the seeds 1 to `rounds`, and compares the results with the page's model.
void RunRounds(int rounds, const std::string& break_even) {
  SuiteHostRun run("packing_random.html?1," + std::to_string(rounds),
                   {"--helper=" PROBE_HELPER, "--timeout=100"}, PackFrom(break_even));
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Messages("mismatch"), std::vector<SuiteHostRun::Event>())
      << "the seeds of the rounds that failed";
  EXPECT_EQ(run.Message("rounds"), SuiteHostRun::Event({rounds}));
  const auto sent = run.Messages("host.send");
  EXPECT_EQ(static_cast<int>(sent.size()), rounds);
  for (const auto& arguments : sent) {
    const auto& list = arguments[1];
    ASSERT_EQ(KindsOf(list[1]), list[0]) << list[1];
  }
}

// Returns the exit status of the page's browser and the messages that it received.
std::string SendLevels(const std::string& levels, const std::string& break_even) {
  SuiteHostRun run("packing_levels.html?" + levels, {"--helper=" PROBE_HELPER},
                   PackFrom(break_even));
  const int status = run.Finish();
  return "status " + std::to_string(status) + ", " + std::to_string(run.Count("gone")) +
         " renderers gone, received " + SuiteHostRun::Event(run.Messages("up")).dump();
}

// The library limits the number of levels, and ends a renderer that exceeds it.
TEST(PackingTest, NestingLimitIsSameWithAndWithoutPacking) {
  EXPECT_THAT(SendLevels("199", kNever), StartsWith("status 0, 0 renderers gone"));
  EXPECT_THAT(SendLevels("300", kNever), StartsWith("status 4, 1 renderers gone"));
  for (const char* levels : {"199", "200", "201", "202", "300"})
    EXPECT_EQ(SendLevels(levels, "0"), SendLevels(levels, kNever)) << levels << " levels";
}

TEST(PackingTest, RandomArraysMatchModel) { RunRounds(10000, "0"); }

TEST(PackingTest, RandomArraysMatchModelWithoutPacking) { RunRounds(1000, kNever); }

}  // namespace
