// Runs logrotate with the rule of docs/logging.md and with the rules that the text mentions.

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>

#include "tests/logging/log_file.h"
#include "tests/support/child_process.h"
#include "tests/support/process_pool.h"

namespace {

using Texts = std::vector<std::string>;

void Replace(std::string& text, const std::string& old, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += with.size())
    text.replace(at, old.size(), with);
}

// Returns the last column of each line.
Texts MessagesIn(const std::string& path) {
  Texts messages;
  for (const std::string& line : ReadLines(path))
    messages.push_back(line.substr(line.rfind(" | ") + 3));
  return messages;
}

// Provides a log in the home folder of the rule, open in this process.
class LogrotateTest : public LogFileTest {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder());
    // The mode with which the helper creates the folder.
    ASSERT_EQ(chmod(folder().c_str(), 0777), 0);
    ASSERT_TRUE(target_->setLogFile("CRN.log", folder().c_str()));
    ASSERT_TRUE(core_->registerTarget(target_.get()));
  }
  void TearDown() override {
    Close();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path()))
      LockObjects(entry.path(), LockObjects::Keep{}).Remove();
  }

  std::string folder() const { return folder_.path() + "/Library/Logs/Cirrane/CRN"; }
  std::string old(const std::string& name) const {
    return folder_.path() + "/Library/Logs/Cirrane/logrotate/" + name;
  }

  // Returns the rule for the user who runs the test. Its home folder is the current folder of
  // Rotate(), because logrotate accepts no blanks in olddir and a temporary folder may have any
  // name.
  std::string Rule() const {
    std::string rule = ReadFile(LOGROTATE_RULE);
    Replace(rule, "alice alice",
            std::string(getpwuid(geteuid())->pw_name) + " " + getgrgid(getegid())->gr_name);
    Replace(rule, "/home/alice", "/proc/self/cwd");
    return rule;
  }

  // Rotates with the rule after one text in it was replaced. Returns the exit status of logrotate.
  int RotateWith(const std::string& text, const std::string& other) const {
    std::string rule = Rule();
    Replace(rule, text, other);
    return Rotate(rule);
  }

  int Rotate(const std::string& rule) const {
    WriteFile(folder_.path() + "/rule", rule);
    return ChildProcess({"sh", "-c", R"(cd "$1" && exec "$0" --force --state state rule)",
                         LOGROTATE, folder_.path()},
                        {{}, folder_.path() + "/errors"})
        .Wait();
  }

  // Writes a line like a helper that starts now. Returns the problems.
  std::string WriteByAnotherProcess(const char* text) {
    ProcessPool pool;
    pool.Start([this, text] {
      tarn::LogTargetDefault target("of another process");
      if (!target.setLogFile("CRN.log", folder().c_str()) || !core_->registerTarget(&target)) {
        return false;
      }
      tarn::Logger("of another process").info("%s", text);
      return core_->unregisterTarget(&target);
    });
    return pool.WaitForAll();
  }
};

TEST_F(LogrotateTest, RuleLosesNoLine) {
  Write("before", 0);
  ASSERT_EQ(Rotate(Rule()), 0) << ReadFile(folder_.path() + "/errors");
  Write("after", 0);
  EXPECT_EQ(WriteByAnotherProcess("later"), "");
  EXPECT_EQ(MessagesIn(old("CRN.log.1")), (Texts{"before", "after"}));
  EXPECT_EQ(MessagesIn(folder() + "/CRN.log"), Texts{"later"});

  ASSERT_EQ(Rotate(Rule()), 0) << ReadFile(folder_.path() + "/errors");
  EXPECT_EQ(MessagesIn(old("CRN.log.1")), Texts{"later"});
  EXPECT_TRUE(std::filesystem::exists(old("CRN.log.2.gz")));
}

TEST_F(LogrotateTest, WorldWritableFolderNeedsUser) {
  if (geteuid() != 0)
    GTEST_SKIP() << "logrotate requires the directive `su` only when root runs it";
  Write("before", 0);
  EXPECT_NE(RotateWith("    su ", "    # "), 0);
  EXPECT_EQ(MessagesIn(folder() + "/CRN.log"), Texts{"before"});
}

TEST_F(LogrotateTest, WritersContinueAtBeginningAfterCopyTruncate) {
  Write("before", 0);
  ASSERT_EQ(RotateWith("    nocreate\n", "    copytruncate\n"), 0)
      << ReadFile(folder_.path() + "/errors");
  Write("after", 0);
  EXPECT_EQ(MessagesIn(old("CRN.log.1")), Texts{"before"});
  EXPECT_EQ(MessagesIn(folder() + "/CRN.log"), Texts{"after"});
}

TEST_F(LogrotateTest, NextRotationRemovesCopyNextToLog) {
  Write("before", 0);
  ASSERT_EQ(RotateWith("    olddir ", "    # "), 0) << ReadFile(folder_.path() + "/errors");
  ASSERT_TRUE(std::filesystem::exists(folder() + "/CRN.log.1"));
  Close();
  WriteFile(folder() + "/CRN.log", "an earlier line\n");
  UseLimits(1, 0);
  ASSERT_TRUE(target_->setLogFile("CRN.log", folder().c_str()));
  ASSERT_TRUE(core_->registerTarget(target_.get()));
  EXPECT_FALSE(std::filesystem::exists(folder() + "/CRN.log.1"));
}

}  // namespace
