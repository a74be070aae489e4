// Tests the logs of a process whose user is not the console user. The tests replace the function of
// platform/ that returns the console user. They change identities, so they run only as root.

#include "platform/console_user.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>

#include "logging/folder_utils.h"
#include "support/files.h"
#include "tests/logging/recording_target.h"
#include "tests/support/test_home.h"

namespace {

uid_t g_console_user = 0;
gid_t g_console_group = 0;
bool g_console_user_known = false;

// An unprivileged user that every system has.
constexpr char kSomebody[] = "nobody";

}  // namespace

namespace platform {

// Replaces the function of platform/.
bool GetConsoleUser(uid_t& user, gid_t& group) {
  if (!g_console_user_known) return false;
  user = g_console_user;
  group = g_console_group;
  return true;
}

}  // namespace platform

namespace {

class ConsoleUserTest : public testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
    const passwd* const entry = getpwnam(kSomebody);
    ASSERT_NE(entry, nullptr);
    user_ = entry->pw_uid;
    group_ = entry->pw_gid;
    user_home_ = entry->pw_dir;
  }

  ~ConsoleUserTest() override { g_console_user_known = false; }

  void SitDown(uid_t user, gid_t group) {
    g_console_user_known = true;
    g_console_user = user;
    g_console_group = group;
  }

  const TestHome home_;
  uid_t user_ = 0;
  gid_t group_ = 0;
  std::string user_home_;
};

TEST_F(ConsoleUserTest, FindsHomeOfConsoleUserAndRestoresIdentity) {
  SitDown(user_, group_);
  std::string path;
  EXPECT_TRUE(tarn::getUserFolder(path));
  EXPECT_EQ(path, user_home_);
  EXPECT_TRUE(tarn::findLogFolder(path));
  EXPECT_EQ(path, user_home_ + "/Library/Logs");
  EXPECT_EQ(geteuid(), 0U);
}

TEST_F(ConsoleUserTest, FindsOwnHomeForSameUser) {
  SitDown(0, 0);
  std::string path;
  EXPECT_TRUE(tarn::getUserFolder(path));
  EXPECT_EQ(path, home_.path());
}

TEST_F(ConsoleUserTest, FindsNoFolderWithoutPermissionToChangeIdentity) {
  SitDown(0, 0);
  EXPECT_EXIT(
      {
        if (setgid(group_) != 0 || setuid(user_) != 0) _exit(3);
        std::string path = "before";
        const bool found =
            tarn::getUserFolder(path) || tarn::getTempPath(path) || tarn::findLogFolder(path);
        _exit(!found && path == "before" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST_F(ConsoleUserTest, OwnsNewLogFolderThatIsOpenToAllUsers) {
  SitDown(0, group_);  // the folder is created in the own home and given to another group
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  for (const std::string& path : {home_.logs() + "/Cirrane", home_.suite_logs()}) {
    struct stat attributes {};
    ASSERT_EQ(stat(path.c_str(), &attributes), 0);
    EXPECT_EQ(attributes.st_gid, group_) << path;
    EXPECT_EQ(ModeOf(path), 0777) << path;
  }
}

TEST_F(ConsoleUserTest, ExistingLogFolderKeepsOwnerAndMode) {
  std::filesystem::create_directories(home_.suite_logs());
  ASSERT_EQ(chmod(home_.suite_logs().c_str(), 0700), 0);
  SitDown(0, group_);
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  struct stat attributes {};
  ASSERT_EQ(stat(home_.suite_logs().c_str(), &attributes), 0);
  EXPECT_NE(attributes.st_gid, group_);
  EXPECT_EQ(ModeOf(home_.suite_logs()), 0700);
}

}  // namespace
