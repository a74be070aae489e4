// The example browser's own promises.

#include <gtest/gtest.h>
#include <png.h>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"
#include "tests/support/child_process.h"

namespace {

struct WrongUsage {
  std::vector<std::string> arguments;
  std::string complaint;
};

// GoogleTest prints it.
void PrintTo(const WrongUsage& usage, std::ostream* stream) { *stream << usage.complaint; }

class WrongUsageTest : public testing::TestWithParam<WrongUsage> {};

TEST_P(WrongUsageTest, EndsWithStatusTwoAndOneLine) {
  std::vector<std::string> command = {"sh", "-c", R"(exec "$0" "$@" 2>&1)", SUITE_HOST};
  command.insert(command.end(), GetParam().arguments.begin(), GetParam().arguments.end());
  ChildProcess host(command, {});
  std::string line;
  EXPECT_TRUE(host.ReadLine(line));
  EXPECT_EQ(line.rfind("suite_host: " + GetParam().complaint, 0), 0U) << line;
  EXPECT_FALSE(host.ReadLine(line)) << line;
  EXPECT_EQ(host.Wait(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, WrongUsageTest,
    testing::Values(WrongUsage{{}, "usage: "},
                    WrongUsage{{"no-such-page.html"}, "there is no page "},
                    WrongUsage{{"/dev/null", "/dev/null"}, "more than one PAGE"},
                    WrongUsage{{"--timeout=0", "/dev/null"}, "cannot use --timeout=0"},
                    WrongUsage{{"--timeout=1s", "/dev/null"}, "cannot use --timeout=1s"},
                    WrongUsage{{"--size=800", "/dev/null"}, "cannot use --size=800"},
                    WrongUsage{{"--size=0x600", "/dev/null"}, "cannot use --size=0x600"},
                    WrongUsage{{"--helper=/nonexistent", "/dev/null"}, "cannot use --helper="},
                    WrongUsage{{"--switch=", "/dev/null"}, "cannot use --switch="},
                    WrongUsage{{"--screenshot=", "/dev/null"}, "cannot use --screenshot="},
                    WrongUsage{{"--screenshot=/nonexistent/a.png", "/dev/null"},
                               "cannot use --screenshot=/nonexistent/a.png"},
                    WrongUsage{{"--unknown", "/dev/null"}, "unknown option --unknown"}));

TEST(SuiteHostTest, WithoutADisplayItSaysSo) {
  ChildProcess::Options options;
  options.environment = {{"DISPLAY", ":99999"}};
  ChildProcess host({"sh", "-c", R"(exec "$0" "$@" 2>&1)", SUITE_HOST, "/dev/null"}, options);
  std::string line;
  EXPECT_TRUE(host.ReadLine(line));
  EXPECT_EQ(line.rfind("suite_host: cannot open the X display", 0), 0U) << line;
  EXPECT_EQ(host.Wait(), 1);
}

TEST(SuiteHostTest, WithoutAHelperBesideItSaysSo) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const fs::path bin = fs::path(folder.path()) / "bin";
  fs::create_directory(bin);
  fs::copy_file(SUITE_HOST, bin / "suite_host");
  fs::create_directory_symlink(fs::path(SUITE_HOST).parent_path() / "../CEF",
                               bin.parent_path() / "CEF");
  ChildProcess host({"sh", "-c", R"(exec "$0" "$@" 2>&1)", bin / "suite_host", "/dev/null"}, {});
  std::string line;
  EXPECT_TRUE(host.ReadLine(line));
  EXPECT_EQ(line, "suite_host: there is no HexHelper in " + bin.string());
  EXPECT_FALSE(host.ReadLine(line)) << line;
  EXPECT_EQ(host.Wait(), 2);
}

TEST(SuiteHostTest, EventsTellOfTheRunInOrder) {
  SuiteHostRun run("host_commands.html");
  EXPECT_EQ(run.Finish(), 42);
  const std::string url = FileUrl(E2E_PAGES "/host_commands.html");
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "load"; }),
            (nlohmann::json{{"event", "load"}, {"browser", 1}, {"url", url}, {"status", 0}}));
  EXPECT_EQ(
      run.WaitFor([](const auto& event) { return event["event"] == "console"; }),
      (nlohmann::json{{"event", "console"}, {"browser", 1}, {"text", "text for the console"}}));
  EXPECT_EQ(
      run.WaitForMessage("hostile"),
      (nlohmann::json{{"event", "message"}, {"browser", 1}, {"name", "hostile"}, {"args", {1.5}}}));
  EXPECT_EQ(run.events().back(), (nlohmann::json{{"event", "quit"}, {"code", 42}}));
}

TEST(SuiteHostTest, CommandsThatDoNotFitAreReportedAndIgnored) {
  SuiteHostRun run("host_commands.html");
  EXPECT_EQ(run.Finish(), 42);
  const std::string errors = run.ErrorOutput();
  for (const char* line :
       {"host.quit does not take these arguments", "host.quit: 300 is no exit status",
        "host.load does not take these arguments", "host.send does not take these arguments",
        "host.resend: there is no browser 99", "there is no command host.dance"}) {
    EXPECT_NE(errors.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(errors.find("hostile"), std::string::npos);
}

TEST(SuiteHostTest, SurvivesCommandsWithEmptyNamesAndUrls) {
  SuiteHostRun run("empty_strings.html");
  EXPECT_EQ(run.Finish(), 42);
  const std::string errors = run.ErrorOutput();
  for (const char* command :
       {"host.send", "host.sendKinds", "host.resend", "host.load", "host.open"}) {
    EXPECT_NE(errors.find(command + std::string(" does not take these arguments")),
              std::string::npos)
        << command;
  }
}

TEST(SuiteHostTest, TimeOutEndsWithStatusThree) {
  for (const char* page : {"waiting.html", "busy.html"}) {
    SuiteHostRun run(page, {"--timeout=1"});
    EXPECT_EQ(run.Finish(), 3) << page;
    EXPECT_EQ(run.events().back().dump(), R"({"code":3,"event":"quit"})");
  }
}

TEST(SuiteHostTest, RendererThatIsKilledEndsWithStatusFour) {
  SuiteHostRun run("waiting.html");
  ASSERT_FALSE(run.WaitForMessage("waiting").is_null());
  const auto children = run.Children();
  ASSERT_EQ(children.count("renderer"), 1U);
  kill(children.find("renderer")->second, SIGKILL);
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_EQ(run.WaitFor([](const auto& event) { return event["event"] == "gone"; }).dump(),
            R"({"browser":1,"event":"gone","status":1})");
}

TEST(SuiteHostTest, LastPageThatClosesItselfEndsWithStatusZero) {
  SuiteHostRun run("closes_itself.html");
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(run.events().back().dump(), R"({"code":0,"event":"quit"})");
}

// Whichever of the two comes first, the end of the one renderer or that of the other browser.
TEST(SuiteHostTest, NothingButADeadRendererLeftEndsWithStatusFour) {
  SuiteHostRun run("closes_itself.html?crash");
  EXPECT_EQ(run.Finish(), 4);
  EXPECT_EQ(run.Count("gone"), 1);
}

TEST(SuiteHostTest, BrowsersThatComeAtTheEndDoNotHoldItUp) {
  SuiteHostRun run("opens_and_quits.html");
  EXPECT_EQ(run.Finish(), 5);
  EXPECT_EQ(run.Count("quit"), 1);
}

TEST(SuiteHostTest, PopupMayCloseWhileAnotherIsOpen) {
  SuiteHostRun run("popups.html");
  EXPECT_EQ(run.Finish(), 7);
  EXPECT_EQ(run.Messages("closing").size(), 1U);
}

TEST(SuiteHostTest, PageThatIsMissingIsOneLoadWithANetworkError) {
  const TemporaryFolder folder;
  const std::string signal = folder.path() + "/signal.js";
  SuiteHostRun run("missing_page.html?" + signal);
  const auto of_the_second = [](const auto& event) {
    return event["event"] == "load" && event["browser"] == 2;
  };
  constexpr int kFileNotFound = -6;
  EXPECT_EQ(run.WaitFor(of_the_second),
            (nlohmann::json{{"event", "load"},
                            {"browser", 2},
                            {"url", FileUrl(E2E_PAGES "/no-such-page.html")},
                            {"status", kFileNotFound}}));
  std::ofstream(signal) << "'use strict';\n";
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_EQ(std::count_if(run.events().begin(), run.events().end(), of_the_second), 1)
      << "the page that Chromium shows instead is not mentioned";
}

TEST(SuiteHostTest, ScreenshotShowsThePageInItsSize) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/picture.png";
  SuiteHostRun run("coloured.html", {"--size=320x200", "--screenshot=" + path});
  EXPECT_EQ(run.Finish(), 0);

  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
  EXPECT_EQ(image.width, 320U);
  EXPECT_EQ(image.height, 200U);
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> pixels(PNG_IMAGE_SIZE(image));
  ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
  const auto colour = [&pixels](std::size_t x, std::size_t y) {
    const auto at = pixels.begin() + static_cast<std::ptrdiff_t>((y * 320 + x) * 3);
    return std::vector<png_byte>(at, at + 3);
  };
  EXPECT_EQ(colour(10, 100), (std::vector<png_byte>{0xfe, 0x80, 0x40}));
  EXPECT_EQ(colour(310, 100), (std::vector<png_byte>{0x12, 0x34, 0x56}));
}

}  // namespace
