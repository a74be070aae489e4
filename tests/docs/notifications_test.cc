// Runs the commands of docs/notifications.md.

#include "platform/notifications.h"

#include <gtest/gtest.h>
#include <atomic>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "support/files.h"
#include "tests/support/child_process.h"
#include "tests/support/session_bus.h"

namespace {

// Returns the shell commands of a document.
std::vector<std::string> Commands(const std::string& document) {
  std::vector<std::string> commands;
  bool inside = false;
  for (const std::string& line : ReadLines(document)) {
    if (line == "```sh") {
      commands.emplace_back();
      inside = true;
    } else if (line == "```") {
      inside = false;
    } else if (inside) {
      commands.back() += line + "\n";
    }
  }
  return commands;
}

class NotificationsDocumentTest : public testing::Test {
 protected:
  // Runs a command and waits for its end.
  static void Run(const std::string& command) {
    ChildProcess shell({"sh", "-c", command}, {});
    EXPECT_EQ(shell.Wait(), 0) << command;
  }

  SessionBus bus_;
  const std::vector<std::string> commands_ = Commands(DOCS "/notifications.md");
};

TEST_F(NotificationsDocumentTest, FirstTwoCommandsSendRefresh) {
  ASSERT_EQ(commands_.size(), 3U);
  for (const std::string& command : {commands_[0], commands_[1]}) {
    std::promise<void> received;
    const platform::NotificationObserver observer(
        "com.velmora.crnc.CRNNotifier.Refresh", [&] { received.set_value(); },
        [](const std::string& problem) { ADD_FAILURE() << problem; });
    bus_.WaitForObservers(bus_.observers() + 1);
    Run(command);
    received.get_future().wait();
  }
}

TEST_F(NotificationsDocumentTest, ThirdCommandShowsAnswer) {
  ASSERT_EQ(commands_.size(), 3U);
  ChildProcess monitor({"sh", "-c", "exec " + commands_[2]}, {});
  std::atomic<bool> seen{false};
  // The monitor only receives signals that are posted after its start.
  std::thread helper([&] {
    while (!seen)
      EXPECT_TRUE(
          platform::PostNotification("com.velmora.crnc.CRNNotifier.SendCEFMemoryAnalytics"));
  });
  std::string line;
  while (monitor.ReadLine(line) &&
         line.find("Member=SendCEFMemoryAnalytics") == std::string::npos) {
  }
  seen = true;
  helper.join();
  EXPECT_NE(line.find("Member=SendCEFMemoryAnalytics"), std::string::npos);
}

}  // namespace
