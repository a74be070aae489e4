// Removed frames leave nothing in the renderer's memory.

#include <gtest/gtest.h>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/e2e/suite_host_run.h"
#include "tests/support/process_memory.h"

namespace {

// A renderer's state between two steps.
struct Sample {
  long kilobytes = 0;  // private and dirty
  int objects = 0;     // of the CEF binding; 0 in builds that do not count them
};

// Creates and removes `first` frames of a kind that frame_memory.html supports, then `more` frames.
// Returns one sample after each of the two steps.
std::vector<Sample> CreateFrames(const std::string& kind, int first, int more) {
  const std::string page =
      "frame_memory.html?" + kind + "," + std::to_string(first) + "," + std::to_string(more);
  const std::string timeout = "--timeout=" + std::to_string(60 + (first + more) / 30);
  SuiteHostRun run(page,
                   {"--helper=" PROBE_HELPER, timeout, "--stdin", "--switch=js-flags=--expose-gc"});
  std::vector<Sample> samples;
  for (const char* const step : {"step 0", "step 1"}) {
    if (run.WaitForMessage(step).is_null()) break;
    samples.push_back({MemoryFigure(run.Children().find("renderer")->second, "Private_Dirty"),
                       run.Messages("probe.objects").back()[0]});
    run.Write(R"({"send": "continue"})");
  }
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_TRUE(run.Messages("wrong").empty());
  return samples;
}

// The environment variable FRAMES overrides the number for manual runs:
//   FRAMES=10000 build/dev/bin/e2e_tests --gtest_filter=FrameMemory.*
int NumberOfFrames() {
  const char* const number = std::getenv("FRAMES");
  return number ? static_cast<int>(std::strtol(number, nullptr, 10)) : 2000;
}

TEST(FrameMemory, KeepsNothingOfRemovedFrames) {
  constexpr int kFirst = 1000;  // enough for the heap to reach its full size
  constexpr int kFrame = 1000;  // memory of one frame, in kilobytes
  // On a busy machine, the size of the heap varies by more than 50 frames.
  constexpr int kScatter = 100 * kFrame;
  const int more = NumberOfFrames() - kFirst;
  ASSERT_GT(more, 0);
  const std::vector<Sample> samples = CreateFrames("plain", kFirst, more);
  ASSERT_EQ(samples.size(), 2U);
  // The next garbage collection frees some objects.
  EXPECT_LT(samples[1].objects, samples[0].objects + more / 100);
  const long growth = samples[1].kilobytes - samples[0].kilobytes;
  EXPECT_LT(growth, kScatter + more * kFrame / 100)
      << "from " << samples[0].kilobytes << " kilobytes";
}

TEST(FrameMemory, KeepsNothingOfFramesRemovedDuringAssignmentOfArguments) {
  constexpr int kFirst = 200;
  constexpr int kMore = 200;
  const std::vector<Sample> samples = CreateFrames("ending", kFirst, kMore);
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_LT(samples[1].objects, samples[0].objects + kMore / 10);
  // The heap still grows. A leaked frame would take several times as much.
  EXPECT_LT(samples[1].kilobytes - samples[0].kilobytes, kMore * 250);
}

}  // namespace
