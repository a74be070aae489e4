// Messages from a page to the browser: which elements of an array are sent, and as which kinds.

#include <gtest/gtest.h>

#include "tests/e2e/suite_host_run.h"

namespace {

class KindsTest : public testing::Test {
 protected:
  KindsTest() : run_("kinds.html") { EXPECT_EQ(run_.Finish(), 0); }

  std::string Arguments(const std::string& message) { return run_.Message(message).dump(); }

  SuiteHostRun run_;
};

TEST_F(KindsTest, ElementsKeepTheirOrderAndKind) {
  EXPECT_EQ(Arguments("eight"), R"([1,2.5,"a",true,null,null,null,null])");
}

TEST_F(KindsTest, ArraysBecomeNestedLists) { EXPECT_EQ(Arguments("nested"), "[[1,[2]],[]]"); }

TEST_F(KindsTest, EmptyArrayBecomesEmptyList) { EXPECT_EQ(Arguments("empty"), "[]"); }

// 32-bit numbers become ints. The library reinterprets unsigned ones as signed. Infinities and NaN
// become 0 on the way to the browser.
TEST_F(KindsTest, NumbersOf32BitsBecomeIntsAndOthersDoubles) {
  EXPECT_EQ(Arguments("numbers"),
            "[1,1,-0.0,2147483647,-2147483648,-1,4294967296.0,-2147483648,-2147483649.0,"
            "9.007199254740992e+15,0.1,0.0,0.0,0.0]");
}

TEST_F(KindsTest, StringsStayUnchangedExceptLoneSurrogates) {
  EXPECT_EQ(Arguments("strings"), R"(["","äöü","€","👋","a\u0000b","�","x�y"])");
}

TEST_F(KindsTest, OtherKindsBecomeNull) {
  EXPECT_EQ(Arguments("others"), "[null,null,null,null,null,null,null,null,null,[[null]]]");
}

TEST(MessageTest, SecondArgumentOfOtherKindBecomesEmptyList) {
  SuiteHostRun run("second_argument.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("thrown"), std::vector<nlohmann::json>(12, nullptr));
  auto messages = run.Messages("x");
  ASSERT_EQ(messages.size(), 12U);
  EXPECT_EQ(messages.back().dump(), R"(["kept"])");
  messages.pop_back();
  for (const auto& arguments : messages)
    EXPECT_EQ(arguments.dump(), "[]");
}

TEST(MessageTest, InvalidCallThrowsSameTextAndSendsNothing) {
  SuiteHostRun run("wrong_calls.html");
  EXPECT_EQ(run.Finish(), 0);
  const auto thrown = run.Message("thrown");
  EXPECT_EQ(thrown.size(), 19U);
  for (const auto& text : thrown)
    EXPECT_EQ(text, "Invalid method arguments");
  EXPECT_EQ(run.Message("registered").dump(), "[false,true]");
  EXPECT_EQ(run.Count("message"), 3) << "two reports and host.quit";
}

TEST(MessageTest, OnlyRemovalReturnsValue) {
  SuiteHostRun run("return_values.html");
  EXPECT_EQ(run.Finish(), 0);
  const std::string nothing = "undefined undefined";
  EXPECT_EQ(run.Message("send"), (nlohmann::json{nothing, nothing}));
  EXPECT_EQ(run.Message("set"), (nlohmann::json{nothing, nothing, nothing}));
  EXPECT_EQ(run.Message("remove"),
            (nlohmann::json{"boolean true", "boolean false", "boolean true", "boolean false"}));
  EXPECT_EQ(run.Message("app").dump(),
            R"(["removeMessageCallback,sendMessage,setMessageCallback",2,2,1])");
}

TEST(MessageTest, ExistingAppObjectIsKept) {
  SuiteHostRun run("earlier_app.html", {"--helper=" PROBE_HELPER});
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("app").dump(), R"(["kept","function","function","function"])");
}

class CarelessArraysTest : public testing::Test {
 protected:
  CarelessArraysTest() : run_("careless_arrays.html") { EXPECT_EQ(run_.Finish(), 0); }

  std::string Arguments(const std::string& message) { return run_.Message(message).dump(); }

  SuiteHostRun run_;
};

TEST_F(CarelessArraysTest, ElementWithThrowingGetterBecomesNull) {
  EXPECT_EQ(Arguments("getter.throws"), R"(["first",null,"third"])");
  EXPECT_EQ(Arguments("getter.answers"), R"(["first","from the getter","third"])");
  EXPECT_EQ(Arguments("nested"), R"([1,["first",null,"third"],[[]],2])");
}

TEST_F(CarelessArraysTest, LengthIsReadOnce) {
  EXPECT_EQ(Arguments("shrinks"), R"(["first","shrinks",null])");
  EXPECT_EQ(Arguments("grows"), R"(["first","grows","third"])");
}

TEST_F(CarelessArraysTest, GetterMaySendMessages) {
  EXPECT_EQ(Arguments("inner"), "[1]");
  EXPECT_EQ(Arguments("sends"), R"(["first","sends","third"])");
  EXPECT_EQ(Arguments("recursion"), R"(["first","once","third"])");
  EXPECT_EQ(Arguments("recurses"), R"(["first","outer","third"])");
}

TEST_F(CarelessArraysTest, GetterMayRemoveFrame) {
  EXPECT_EQ(Arguments("removes"), R"(["first","removed a frame","third"])");
}

TEST_F(CarelessArraysTest, HolesBecomeNull) {
  EXPECT_EQ(Arguments("holes"), "[null,1,null,2,null]");
}

TEST_F(CarelessArraysTest, LengthOutOfRangeBecomesEmptyList) {
  EXPECT_EQ(Arguments("length"), "[]");
}

TEST(LargeMessageTest, LargePayloadsReturnUnchanged) {
  SuiteHostRun run("large.html", {"--timeout=100"});
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.Message("array").dump(), "[100000,true]");
  EXPECT_EQ(run.Message("string").dump(), "[true]");
  EXPECT_EQ(run.Message("nesting").dump(), "[true]");
}

}  // namespace
