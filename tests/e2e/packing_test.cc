// Large arrays cross the bridge packed. No page can tell.

#include <gtest/gtest.h>

#include "tests/e2e/packing_transcript.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/files.h"

namespace {

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
  SuiteHostRun run("packing.html", {"--helper=" PROBE_HELPER, "--timeout=30"},
                   PackFrom(break_even));
  EXPECT_EQ(run.Finish(), 0) << run.ErrorOutput();
  EXPECT_EQ(run.Count("gone"), 0);
  return ReadTranscript(run.events());
}

TEST(PackingTest, PagesCannotTellPackedArrays) {
  const PackingTranscript unpacked = Transcribe(kNever);
  EXPECT_GE(unpacked.size(), 100U);
  for (const auto& [name, lines] : unpacked)
    EXPECT_TRUE(lines.size() > 1 && lines.back() == "end") << name;

  const std::string differences = Compare(FromText(ReadFile(kExpectedTranscript)), unpacked);
  if (!differences.empty()) {
    WriteFile("packing_transcript.txt", ToText(unpacked));
    ADD_FAILURE() << "without packing, differs from " << kExpectedTranscript
                  << "; see packing_transcript.txt in the working directory\n"
                  << differences;
  }
  EXPECT_EQ(Compare(unpacked, Transcribe("0")), "") << "all arrays packed";
  EXPECT_EQ(Compare(unpacked, Transcribe("")), "") << "large arrays packed";
}

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

void RunRounds(const std::string& query, const std::string& break_even, int expected_rounds) {
  SuiteHostRun run("packing_random.html?" + query, {"--helper=" PROBE_HELPER, "--timeout=100"},
                   PackFrom(break_even));
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Messages("mismatch"), std::vector<SuiteHostRun::Event>()) << "by their seeds";
  EXPECT_EQ(run.Message("rounds"), SuiteHostRun::Event({expected_rounds}));
  for (const auto& arguments : run.Messages("host.send")) {
    const auto& list = arguments[1];
    ASSERT_EQ(KindsOf(list[1]), list[0]) << list[1];
  }
}

TEST(PackingTest, RandomArraysArriveAsTheModelSays) { RunRounds("1,10000", "0", 10000); }

TEST(PackingTest, RandomArraysArriveAsTheModelSaysWithoutPacking) {
  RunRounds("1,1000", kNever, 1000);
}

}  // namespace
