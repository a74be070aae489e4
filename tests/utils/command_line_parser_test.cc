#include "utils/command_line_parser.h"

#include <gtest/gtest.h>

#include "tests/support/captured_log.h"
#include "tests/support/recording_logger.h"

namespace {

using Lines = std::vector<std::string>;

// Returns the messages at the beginning of every successful call.
Lines Beginning(int argc) {
  return {"30 Parsing the command line provided. Number of command line arguments is " +
              std::to_string(argc),
          "20 First command line argument is ./HexHelper, Assuming the first argument to be "
          "executable address ignoring it."};
}

class CommandLineParserTest : public testing::Test {
 protected:
  // Parses `arguments` after a program name.
  bool Parse(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "./HexHelper");
    std::vector<char*> argv;
    for (std::string& argument : arguments)
      argv.push_back(argument.data());
    return parser_.parseCommandLineArguments(static_cast<int>(argv.size()), argv.data());
  }

  // Returns the messages about the arguments, without the two leading messages.
  Lines ArgumentLines() const {
    Lines lines = log_.Lines();
    lines.erase(lines.begin(), lines.begin() + 2);
    return lines;
  }

  // Returns the value of a key, or "(none)".
  std::string Value(const std::string& key) const {
    std::string value = "(none)";
    parser_.getValueForArgument(key, value);
    return value;
  }

  CapturedLog log_;
  TarnUtils::CommandLineParser parser_;
};

TEST_F(CommandLineParserTest, FailsWithoutArguments) {
  EXPECT_FALSE(parser_.parseCommandLineArguments(0, nullptr));
  EXPECT_EQ(log_.Lines(),
            (Lines{"30 Parsing the command line provided. Number of command line arguments is 0",
                   "50 Argument count is zero. There should be at least one i.e. name of "
                   "application."}));
}

TEST_F(CommandLineParserTest, FailsForNegativeArgumentCount) {
  EXPECT_FALSE(parser_.parseCommandLineArguments(-1, nullptr));
  EXPECT_EQ(log_.Lines().size(), 2U);
}

TEST_F(CommandLineParserTest, DoesNotStoreProgramName) {
  EXPECT_TRUE(Parse({}));
  EXPECT_EQ(log_.Lines(), Beginning(1));
  EXPECT_EQ(Value("./HexHelper"), "(none)");
}

TEST_F(CommandLineParserTest, LogsNullProgramNameAsEmptyText) {
  std::vector<char*> argv = {nullptr};
  EXPECT_TRUE(parser_.parseCommandLineArguments(1, argv.data()));
  EXPECT_EQ(log_.Lines().back(),
            "20 First command line argument is , Assuming the first argument to be executable "
            "address ignoring it.");
}

TEST_F(CommandLineParserTest, RejectsNullArgumentAndStoresNext) {
  std::string program = "./HexHelper";
  std::string last = "--type=renderer";
  std::vector<char*> argv = {program.data(), nullptr, last.data()};
  EXPECT_TRUE(parser_.parseCommandLineArguments(3, argv.data()));
  EXPECT_EQ(ArgumentLines(),
            (Lines{"20 Argument specified is ", "50 The argument does not contain any \"=\"",
                   "20 Argument specified is --type=renderer"}));
  EXPECT_EQ(Value("type"), "renderer");
}

TEST_F(CommandLineParserTest, EveryMessageNamesModuleAndComponent) {
  Parse({"--type=renderer"});
  ASSERT_EQ(log_.messages().size(), 3U);
  EXPECT_EQ(log_.messages()[2], (CapturedMessage{20, "TarnUtils", "CommandLineParser", "", "",
                                                 "Argument specified is --type=renderer"}));
}

TEST_F(CommandLineParserTest, ValueFollowsFirstEqualsSign) {
  EXPECT_TRUE(Parse({"--type=renderer", "--a=b=c", "--b==", "--sp ace= x "}));
  EXPECT_EQ(Value("type"), "renderer");
  EXPECT_EQ(Value("a"), "b=c");
  EXPECT_EQ(Value("b"), "=");
  EXPECT_EQ(Value("sp ace"), " x ");
}

TEST_F(CommandLineParserTest, RejectsEmptyKeyAndEmptyValue) {
  EXPECT_TRUE(Parse({"--type=", "--=x", "--="}));
  EXPECT_EQ(
      ArgumentLines(),
      (Lines{"20 Argument specified is --type=",
             "50 The argument key or value is empty for --type=", "20 Argument specified is --=x",
             "50 The argument key or value is empty for --=x",
             "20 Argument specified is --=", "50 The argument key or value is empty for --="}));
  EXPECT_EQ(Value("type"), "(none)");
  EXPECT_EQ(Value(""), "(none)");
}

TEST_F(CommandLineParserTest, RejectsArgumentWithoutTwoDashes) {
  const std::string message =
      R"(50 The "--" is not there for the argument. Every argument should have "--")";
  EXPECT_TRUE(Parse({"type=renderer", "-type=renderer", "=x", "-=x"}));
  EXPECT_EQ(ArgumentLines(), (Lines{"20 Argument specified is type=renderer", message,
                                    "20 Argument specified is -type=renderer", message,
                                    "20 Argument specified is =x", message,
                                    "20 Argument specified is -=x", message}));
  EXPECT_EQ(Value("type"), "(none)");
}

TEST_F(CommandLineParserTest, RejectsArgumentWithoutEqualsSign) {
  const std::string message = R"(50 The argument does not contain any "=")";
  EXPECT_TRUE(Parse({"--type", "renderer", ""}));
  EXPECT_EQ(ArgumentLines(),
            (Lines{"20 Argument specified is --type", message, "20 Argument specified is renderer",
                   message, "20 Argument specified is ", message}));
}

TEST_F(CommandLineParserTest, KeepsFirstValueOfKey) {
  EXPECT_TRUE(Parse({"--type=a", "--type=b"}));
  EXPECT_EQ(Value("type"), "a");
  EXPECT_EQ(ArgumentLines().back(), "50 The argument type already sepecified");
}

TEST_F(CommandLineParserTest, SecondCallAddsArguments) {
  EXPECT_TRUE(Parse({"--type=a"}));
  EXPECT_TRUE(Parse({"--type=b", "--other=c"}));
  EXPECT_EQ(Value("type"), "a");
  EXPECT_EQ(Value("other"), "c");
}

TEST_F(CommandLineParserTest, SkipsProcessSerialNumberSilently) {
  EXPECT_TRUE(Parse({"-psn_0_4711", "-psn", "-psn=1"}));
  EXPECT_EQ(ArgumentLines(),
            (Lines{"20 Argument specified is -psn_0_4711", "20 Argument specified is -psn",
                   "20 Argument specified is -psn=1"}));
}

TEST_F(CommandLineParserTest, OnlyExactPrefixMarksProcessSerialNumber) {
  EXPECT_TRUE(Parse({"--psn=1", "-PSN_0_1", "-ps"}));
  EXPECT_EQ(Value("psn"), "1");
  EXPECT_EQ(ArgumentLines(),
            (Lines{"20 Argument specified is --psn=1", "20 Argument specified is -PSN_0_1",
                   R"(50 The argument does not contain any "=")", "20 Argument specified is -ps",
                   R"(50 The argument does not contain any "=")"}));
}

TEST_F(CommandLineParserTest, LooksUpKeysAsGiven) {
  EXPECT_TRUE(Parse({"--type=renderer"}));
  EXPECT_EQ(Value("--type"), "(none)");
  EXPECT_EQ(Value("Type"), "(none)");
  EXPECT_EQ(Value("typ"), "(none)");
}

TEST_F(CommandLineParserTest, KeysAreCaseSensitive) {
  EXPECT_TRUE(Parse({"--type=a", "--Type=b"}));
  EXPECT_EQ(Value("type"), "a");
  EXPECT_EQ(Value("Type"), "b");
}

TEST_F(CommandLineParserTest, NulDoesNotEndKey) {
  EXPECT_TRUE(Parse({"--type=renderer"}));
  EXPECT_EQ(Value(std::string("type\0", 5)), "(none)");
}

TEST_F(CommandLineParserTest, ReturnsWhetherKeyExists) {
  EXPECT_TRUE(Parse({"--type=renderer"}));
  std::string value = "untouched";
  EXPECT_FALSE(parser_.getValueForArgument("other", value));
  EXPECT_EQ(value, "untouched");
  EXPECT_TRUE(parser_.getValueForArgument("type", value));
  EXPECT_EQ(value, "renderer");
}

TEST_F(CommandLineParserTest, PercentSignsAreText) {
  EXPECT_TRUE(Parse({"--a=%s%n", "--%d="}));
  EXPECT_EQ(Value("a"), "%s%n");
  EXPECT_EQ(ArgumentLines().back(), "50 The argument key or value is empty for --%d=");
}

// Sets the parser's own logger, which only a derived class can access.
class ParserWithLogger : public TarnUtils::CommandLineParser {
 public:
  explicit ParserWithLogger(tarn::AbstractLogger& own) { logger = &own; }
};

TEST_F(CommandLineParserTest, OwnLoggerReplacesRoute) {
  RecordingLogger own;
  ParserWithLogger parser(own);
  EXPECT_FALSE(parser.parseCommandLineArguments(0, nullptr));
  EXPECT_EQ(own.lines,
            (Lines{"30 [] [CommandLineParser] Parsing the command line provided. Number of command "
                   "line arguments is 0",
                   "50 [] [CommandLineParser] Argument count is zero. There should be at least one "
                   "i.e. name of application."}));
  EXPECT_TRUE(log_.messages().empty());
}

}  // namespace
