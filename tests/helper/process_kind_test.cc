#include "helper/process_kind.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

bool IsGpu(std::vector<std::string> words) {
  words.insert(words.begin(), "HexHelper");
  std::vector<char*> arguments;
  for (std::string& word : words)
    arguments.push_back(word.data());
  TarnUtils::CommandLineParser parser;
  parser.parseCommandLineArguments(static_cast<int>(arguments.size()), arguments.data());
  return IsGpuProcess(parser);
}

TEST(ProcessKindTest, OnlyTheExactValueIsTheGpuProcess) {
  const struct {
    const char* argument;
    bool is_gpu;
  } kCases[] = {
      {"--type=gpu-process", true},
      {"--type=gpu-process2", false},
      {"--type=gpu-proces", false},
      {"--type=GPU-process", false},
      {"--type=", false},
      {"--type", false},
      {"--type=renderer", false},
      {"--type=utility", false},
      {"--type2=gpu-process", false},
      {"--subtype=gpu-process", false},
      {"gpu-process", false},
  };
  for (const auto& [argument, is_gpu] : kCases) {
    EXPECT_EQ(IsGpu({argument}), is_gpu) << argument;
  }
}

TEST(ProcessKindTest, ACommandLineWithoutATypeIsNotTheGpuProcess) {
  EXPECT_FALSE(IsGpu({}));
  EXPECT_FALSE(IsGpu({"--lang=de", "--disable-gpu"}));
}

TEST(ProcessKindTest, OtherArgumentsDoNotMatter) {
  EXPECT_TRUE(IsGpu({"--lang=de", "--type=gpu-process", "--channel=1"}));
  EXPECT_FALSE(IsGpu({"--type=renderer", "--gpu-preferences=gpu-process"}));
}

TEST(ProcessKindTest, OfTwoTypesTheFirstCounts) {
  EXPECT_TRUE(IsGpu({"--type=gpu-process", "--type=renderer"}));
  EXPECT_FALSE(IsGpu({"--type=renderer", "--type=gpu-process"}));
}

}  // namespace
