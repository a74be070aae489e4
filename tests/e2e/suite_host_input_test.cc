// The commands that the example browser reads from standard input.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <functional>

#include "support/files.h"
#include "tests/e2e/picture.h"
#include "tests/e2e/suite_host_run.h"
#include "tests/support/addresses.h"

namespace {

using testing::ElementsAre;

bool IsError(const SuiteHostRun::Event& event) { return event["event"] == "error"; }

bool IsScreenshot(const SuiteHostRun::Event& event) { return event["event"] == "screenshot"; }

class SuiteHostInput : public testing::Test {
 protected:
  explicit SuiteHostInput(const std::vector<std::string>& options = {"--stdin", "--size=320x200"})
      : run_("input.html", options) {
    EXPECT_FALSE(run_.WaitForMessage("ready").is_null());
  }

  // Waits until `count` events fit, and returns the last of these events.
  SuiteHostRun::Event WaitForNth(
      int count, const std::function<bool(const SuiteHostRun::Event& event)>& fits) {
    const auto event = run_.WaitFor(
        [count, &fits](const auto& next) mutable { return fits(next) && --count == 0; });
    EXPECT_FALSE(event.is_null());
    return event;
  }

  void WaitForMessageOf(int browser, const std::string& name) {
    WaitForNth(1, [browser, &name](const auto& event) {
      return event["event"] == "message" && event["browser"] == browser && event["name"] == name;
    });
  }

  // Takes pictures until one has `color` in the middle. The run's timeout limits the wait. The
  // browser paints a page's changes some frames later, or some seconds on a busy machine.
  void ExpectPicture(int browser, const Picture::Color& color) {
    const std::string path = run_.home() + "/picture.png";
    const nlohmann::json command = {{"screenshot", path}, {"browser", browser}};
    Picture::Color shown;
    while (shown != color) {
      run_.Write(command.dump());
      ASSERT_EQ(WaitForNth(++pictures_, [](const auto& event) { return IsScreenshot(event); }),
                (nlohmann::json{{"event", "screenshot"}, {"browser", browser}, {"file", path}}));
      const Picture picture(path);
      EXPECT_EQ(picture.width(), 320U);
      EXPECT_EQ(picture.height(), 200U);
      shown = picture.ColorAt(160, 100);
    }
  }

  SuiteHostRun run_;

 private:
  int pictures_ = 0;
};

class SuiteHostInputKinds : public SuiteHostInput {
 protected:
  SuiteHostInputKinds() : SuiteHostInput({"--stdin", "--helper=" PROBE_HELPER}) {}
};

class SuiteHostInputWindow : public SuiteHostInput {
 protected:
  SuiteHostInputWindow() : SuiteHostInput({"--stdin", "--size=320x200", "--window"}) {}
};

TEST_F(SuiteHostInputKinds, ElementsKeepTheirKind) {
  const std::string list =
      R"([1,1.0,-0.0,1e+20,-2147483648,2147483647,true,null,"ä€𝄞\u0000\n","",[],[[2.0],2]])";
  run_.Write(R"({"send": "probe.echo", "args": )" + list + "}");
  run_.Write(R"({"send": "probe.echo"})");
  WaitForNth(2, [](const auto& event) { return event.value("name", "") == "probe.echo"; });
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
  const auto echoed = run_.Messages("probe.echo");
  ASSERT_EQ(echoed.size(), 2U);
  EXPECT_EQ(echoed[0].dump(), list);
  EXPECT_EQ(echoed[1].dump(), "[]");
}

TEST_F(SuiteHostInput, FastMessagesArriveInOrder) {
  std::string lines;
  for (int i = 0; i < 5000; ++i)
    lines += R"({"send": "count"})"
             "\n";
  run_.Write(lines + R"({"send": "counted"})");
  EXPECT_EQ(run_.WaitForMessage("counted")["args"].dump(), "[5000]");
  run_.Write(R"({"quit": 7})");
  EXPECT_EQ(run_.Finish(), 7);
}

TEST_F(SuiteHostInput, QuitIgnoresRestOfInput) {
  run_.Write("{\"quit\": 3}\n{\"quit\": 4}\n{\"quit\": ");
  EXPECT_EQ(run_.Finish(), 3);
  EXPECT_EQ(run_.Count("quit"), 1);
}

TEST_F(SuiteHostInput, EndOfInputDoesNotEndRun) {
  run_.Write(R"({"send": "quitLater", "args": [9]})");
  run_.EndInput();
  EXPECT_EQ(run_.Finish(), 9);
  EXPECT_THAT(run_.Errors(), ElementsAre());
}

TEST_F(SuiteHostInput, LastLineNeedsNoNewline) {
  run_.EndInput(R"({"quit": 5})");
  EXPECT_EQ(run_.Finish(), 5);
}

TEST_F(SuiteHostInput, IncompleteLastLineIsReported) {
  const std::string signal = run_.home() + "/signal.js";
  run_.Write(R"({"send": "quitWhenFileExists", "args": [9, ")" + signal + "\"]}");
  run_.EndInput(R"({"quit": 5)");
  EXPECT_EQ(run_.WaitFor(IsError)["text"], "line 2: not JSON at byte 11, expected an object");
  WriteFile(signal, "'use strict';\n");
  EXPECT_EQ(run_.Finish(), 9);
}

TEST_F(SuiteHostInput, LoadAndReloadReplacePage) {
  const std::string url = FileUrl(E2E_PAGES "/blank.html");
  const auto is_load = [&url](const auto& event) {
    return event["event"] == "load" && event["url"] == url;
  };
  run_.Write(R"({"load": ")" + url + "\"}");
  WaitForNth(1, is_load);
  run_.Write(R"({"reload": true})");
  WaitForNth(2, is_load);
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
}

TEST_F(SuiteHostInput, KeyBrowserSelectsBrowser) {
  run_.Write(R"({"send": "open"})");
  WaitForMessageOf(2, "ready");
  run_.Write(R"({"send": "echo", "browser": 2, "args": ["second"]})");
  WaitForMessageOf(2, "echoed");
  run_.Write(R"({"send": "echo", "args": ["first"]})");
  WaitForMessageOf(1, "echoed");
  run_.Write(R"({"send": "echo", "browser": 3})");
  EXPECT_EQ(run_.WaitFor(IsError)["text"], "line 4: there is no browser 3, only 1, 2");
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
  EXPECT_EQ(run_.Messages("echoed").size(), 2U);
}

TEST_F(SuiteHostInput, ScreenshotShowsPaintedPage) {
  run_.Write(R"({"send": "paint", "args": ["#ff0000"]})");
  ExpectPicture(1, {255, 0, 0});
  run_.Write(R"({"send": "paint", "args": ["#00ff00"]})");
  ExpectPicture(1, {0, 255, 0});
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
}

TEST_F(SuiteHostInput, ScreenshotIsWrittenBeforeRunEnds) {
  const std::string path = run_.home() + "/last.png";
  run_.Write(R"({"screenshot": ")" + path + "\"}\n{\"quit\": 0}");
  EXPECT_EQ(run_.Finish(), 0);
  EXPECT_EQ(run_.Count("screenshot"), 1);
  EXPECT_EQ(Picture(path).width(), 320U);
}

TEST_F(SuiteHostInput, ScreenshotThatCannotBeWrittenIsReported) {
  run_.Write(R"({"screenshot": "/nonexistent/a.png"})");
  EXPECT_EQ(run_.WaitFor(IsError)["text"],
            "cannot write the picture /nonexistent/a.png: No such file or directory");
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
  EXPECT_EQ(run_.Count("screenshot"), 0);
}

TEST_F(SuiteHostInput, ScreenshotShowsPopupInSizeOfOptions) {
  run_.Write(R"({"send": "popup"})");
  WaitForMessageOf(2, "ready");
  run_.Write(R"({"send": "paint", "args": ["#00ff00"], "browser": 2})");
  ExpectPicture(2, {0, 255, 0});
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
}

TEST_F(SuiteHostInputWindow, WindowHasNoScreenshot) {
  run_.Write(R"({"send": "popup"})");
  WaitForMessageOf(2, "ready");
  run_.Write(R"({"screenshot": "popup.png", "browser": 2})");
  EXPECT_EQ(run_.WaitFor(IsError)["text"],
            "line 2: browser 2 is a window, and only off-screen browsers have pictures");
  run_.Write(R"({"quit": 0})");
  EXPECT_EQ(run_.Finish(), 0);
}

TEST(SuiteHostWithoutInput, InputIsIgnored) {
  SuiteHostRun run("host_commands.html");
  run.Write(R"({"quit": 1})");
  EXPECT_EQ(run.Finish(), 42);
}

}  // namespace
