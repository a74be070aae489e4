#include "helper/process_kind.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

bool IsOf(bool (*kind)(const TarnUtils::CommandLineParser&), std::vector<std::string> words) {
  words.insert(words.begin(), "HexHelper");
  std::vector<char*> arguments;
  for (std::string& word : words)
    arguments.push_back(word.data());
  TarnUtils::CommandLineParser parser;
  parser.parseCommandLineArguments(static_cast<int>(arguments.size()), arguments.data());
  return kind(parser);
}

bool IsGpu(const std::vector<std::string>& words) { return IsOf(IsGpuProcess, words); }

TEST(ProcessKindTest, IsGpuProcessRequiresExactType) {
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

TEST(ProcessKindTest, IsZygoteRequiresExactType) {
  EXPECT_TRUE(IsOf(IsZygote, {"--type=zygote"}));
  EXPECT_TRUE(IsOf(IsZygote, {"--no-sandbox", "--type=zygote", "--lang=de"}));
  for (const char* const argument :
       {"--type=zygote2", "--type=Zygote", "--type=", "--type", "--type=renderer", "zygote"}) {
    EXPECT_FALSE(IsOf(IsZygote, {argument})) << argument;
  }
  EXPECT_FALSE(IsOf(IsZygote, {}));
}

TEST(ProcessKindTest, HasSandboxWithoutSwitch) {
  const char* const program[] = {"HexHelper"};
  EXPECT_TRUE(HasSandbox(1, program));
  EXPECT_TRUE(HasSandbox(0, program));
  const char* const without[] = {"HexHelper", "--type=zygote", "--no-sandbox", "--lang=de"};
  EXPECT_FALSE(HasSandbox(4, without));
  EXPECT_TRUE(HasSandbox(2, without));
  const char* const others[] = {"HexHelper", "--no-sandbox-at-all", "no-sandbox", nullptr};
  EXPECT_TRUE(HasSandbox(4, others));
}

TEST(ProcessKindTest, IsGpuProcessRequiresType) {
  EXPECT_FALSE(IsGpu({}));
  EXPECT_FALSE(IsGpu({"--lang=de", "--disable-gpu"}));
}

TEST(ProcessKindTest, IgnoresOtherArguments) {
  EXPECT_TRUE(IsGpu({"--lang=de", "--type=gpu-process", "--channel=1"}));
  EXPECT_FALSE(IsGpu({"--type=renderer", "--gpu-preferences=gpu-process"}));
}

TEST(ProcessKindTest, UsesFirstOfTwoTypes) {
  EXPECT_TRUE(IsGpu({"--type=gpu-process", "--type=renderer"}));
  EXPECT_FALSE(IsGpu({"--type=renderer", "--type=gpu-process"}));
}

}  // namespace
