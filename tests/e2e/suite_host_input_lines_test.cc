// Lines of input that the example browser rejects, and the limits of valid lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

namespace {

using testing::ElementsAre;

struct BadLine {
  std::string line;
  std::string error;
};

const std::string kCommands =
    R"(expected one of {"send": ...}, {"load": ...}, {"reload": ...}, {"screenshot": ...}, )"
    R"({"quit": ...})";
const std::string kSend = R"(expected {"send": NAME, "args": [...], "browser": NUMBER})";

std::vector<BadLine> BadLines() {
  const std::string bits = "an int has 32 bits, which is too few for ";
  return {
      {"", "not JSON at byte 1, expected an object"},
      {"quit", "not JSON at byte 1, expected an object"},
      {R"({"quit": 0)", "not JSON at byte 11, expected an object"},
      {R"({"quit": 0} {"quit": 0})", "not JSON at byte 13, expected an object"},
      {std::string("{\"quit\": \0}", 11), "not JSON at byte 10, expected an object"},
      {"{\"load\": \"\xff\xfe\"}", "not JSON at byte 11, expected an object"},
      {R"({"load": "\ud800"})", "not JSON at byte 17, expected an object"},
      {R"(["quit"])", "expected a JSON object"},
      {"0", "expected a JSON object"},
      {"{}", "no command; " + kCommands},
      {R"({"dance": 0})", "no command; " + kCommands},
      {R"({"load": "about:blank", "quit": 0})", R"(two commands: "load" and "quit"; )" + kCommands},
      {R"({"quit": 0, "quit": 0})", R"(the key "quit" occurs twice)"},
      {R"({"quit": 0, "code": 0})", R"(unknown key "code"; expected {"quit": CODE})"},
      {R"({"quit": 0, "browser": 1})", R"(unknown key "browser"; expected {"quit": CODE})"},
      {R"({"send": "echo", "arguments": []})", R"(unknown key "arguments"; )" + kSend},
      {R"({"quit": 256})", R"("quit" must be an int from 0 to 255)"},
      {R"({"quit": 1.0})", R"("quit" must be an int from 0 to 255)"},
      {R"({"quit": "0"})", R"("quit" must be an int from 0 to 255)"},
      {R"({"reload": false})", R"("reload" must be true)"},
      {R"({"load": ""})", R"("load" must be a string that is not empty)"},
      {R"({"send": ""})", R"("send" must be a string that is not empty)"},
      {R"({"screenshot": true})", R"("screenshot" must be a string that is not empty)"},
      {R"({"send": "echo", "args": "a"})", R"("args" must be an array)"},
      {R"({"send": "echo", "args": [{}]})", "an object within the object"},
      {R"({"send": "echo", "browser": 1.0})", R"("browser" must be an int)"},
      {R"({"send": "echo", "browser": 0})", "there is no browser 0, only 1"},
      {R"({"send": "echo", "args": [2147483648]})", bits + "2147483648"},
      {R"({"send": "echo", "args": [[-2147483649]]})", bits + "-2147483649"},
      {R"({"send": "echo", "args": [18446744073709551616]})", bits + "18446744073709551616"},
      {R"({"quit": 4294967296})", bits + "4294967296"},
      {R"({"send": "echo", "browser": 4294967297})", bits + "4294967297"},
      {R"({"send": "echo", "args": [1)" + std::string(50, '0') + "]}",
       bits + "1" + std::string(39, '0') + "..."},
      {R"({"send": "echo", "args": [1e999]})", "a number is out of range"},
      {R"({"send": "echo", "args": )" + std::string(101, '[') + std::string(101, ']') + "}",
       "lists are nested more than 100 levels deep"},
      {std::string(100000, '['), "expected a JSON object"},
  };
}

TEST(SuiteHostInputLines, InvalidLinesAreReportedAndHaveNoEffect) {
  SuiteHostRun run("input.html", {"--stdin"});
  ASSERT_FALSE(run.WaitForMessage("ready").is_null());
  ASSERT_FALSE(run.WaitFor([](const auto& event) { return event["event"] == "load"; }).is_null());
  std::vector<std::string> expected;
  for (const auto& [line, error] : BadLines()) {
    run.Write(line);
    expected.push_back("line " + std::to_string(expected.size() + 1) + ": " + error);
  }
  run.Write(R"({"quit": 17})");
  EXPECT_EQ(run.Finish(), 17);
  EXPECT_THAT(run.Errors(), testing::ElementsAreArray(expected));
  EXPECT_EQ(run.Count("message"), 1);
  EXPECT_EQ(run.Count("load"), 1);
}

TEST(SuiteHostInputLines, ListMayBeNestedHundredLevelsDeep) {
  SuiteHostRun run("input.html", {"--stdin"});
  ASSERT_FALSE(run.WaitForMessage("ready").is_null());
  const std::string list = std::string(100, '[') + std::string(100, ']');
  run.Write(R"({"send": "echo", "args": )" + list + "}");
  EXPECT_EQ(run.WaitForMessage("echoed")["args"].dump(), list);
  run.Write(R"({"quit": 0})");
  EXPECT_EQ(run.Finish(), 0);
}

TEST(SuiteHostInputLines, LineOfSixteenMebibytesArrivesAndLongerOneIsReported) {
  constexpr std::size_t kMaximum = std::size_t{16} * 1024 * 1024;
  const std::string begin = R"({"send": "length", "args": [")";
  const std::string end = R"("]})";
  const std::size_t length = kMaximum - begin.size() - end.size();
  SuiteHostRun run("input.html", {"--stdin", "--timeout=100"});
  ASSERT_FALSE(run.WaitForMessage("ready").is_null());
  run.Write(begin + std::string(length + 1, 'x') + end);
  run.Write(begin + std::string(length, 'x') + end);
  EXPECT_EQ(run.WaitForMessage("length")["args"].dump(), "[" + std::to_string(length) + "]");
  run.Write(R"({"quit": 0})");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.Errors(), ElementsAre("line 1: longer than 16777216 bytes"));
}

}  // namespace
