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

}  // namespace
