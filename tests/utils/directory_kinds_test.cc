// Tests the kinds of folders that depend on the console user and on the program's location.
// Replaces the platform's functions for both.

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/console_user.h"
#include "platform/program_path.h"
#include "support/files.h"
#include "tests/support/long_folder.h"
#include "tests/support/own_root_test.h"
#include "tests/support/test_home.h"
#include "utils/file_utils.h"

namespace {

bool g_console_user_known = false;
uid_t g_console_user = 0;

// Unknown when the executable is empty.
platform::ProgramPath g_program;

}  // namespace

namespace platform {

// Replaces the platform's function.
bool GetConsoleUser(uid_t& user, gid_t& group) {
  if (!g_console_user_known) return false;
  user = g_console_user;
  group = g_console_user;
  return true;
}

bool GetProgramPath(ProgramPath& path) {
  if (g_program.executable.empty()) return false;
  path = g_program;
  return true;
}

}  // namespace platform

namespace {

using TarnUtils::FileUtils;

// Users that the tests add to the user database.
constexpr uid_t kUser = 4001;
constexpr uid_t kHomeless = 4002;  // the home of this user cannot be created

struct Kind {
  FileUtils::PathType kind;
  const char* folder;  // relative to the home
  const char* suffix;
};

constexpr Kind kKinds[] = {
    {FileUtils::ConsoleUserDocuments, "/Documents", ""},
    {FileUtils::ConsoleUserApplicationSupport, "/Library/Application Support", ""},
    {FileUtils::VelmoraUserSupport, "/Library/Application Support", "/Velmora"},
    {FileUtils::TarnUserSupport, "/Library/Application Support", "/Velmora/TARN"},
    {FileUtils::SprigUserSupport, "/Library/Application Support", "/Velmora/TARN/Sprig"},
};

uid_t OwnerOf(const std::string& path) {
  struct stat attributes {};
  return stat(path.c_str(), &attributes) == 0 ? attributes.st_uid : static_cast<uid_t>(-1);
}

void SetConsoleUser(uid_t user) {
  g_console_user_known = true;
  g_console_user = user;
}

// Expects all kinds to return folders in `home`, created for `owner`.
void ExpectFoldersIn(const std::string& home, uid_t owner) {
  for (const Kind& item : kKinds) {
    std::string path = "before";
    EXPECT_TRUE(FileUtils::GetDirectoryPath(item.kind, path, nullptr)) << item.kind;
    EXPECT_EQ(path, home + item.folder + item.suffix);
    EXPECT_EQ(OwnerOf(home + item.folder), owner);
    EXPECT_EQ(ModeOf(home + item.folder), 0700);
    if (*item.suffix) {
      EXPECT_FALSE(std::filesystem::exists(path));
    }
  }
  std::string path = "before";
  EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
  EXPECT_EQ(path, home + "/Library/Logs");
  EXPECT_EQ(OwnerOf(path), owner);
  EXPECT_EQ(ModeOf(path), 0700);
}

// Expects all kinds to fail, as far as their results show it.
void ExpectNoFolders() {
  for (const Kind& item : kKinds) {
    std::string path = "before";
    EXPECT_TRUE(FileUtils::GetDirectoryPath(item.kind, path, nullptr)) << item.kind;
    EXPECT_EQ(path, std::string("before") + item.suffix);
  }
  std::string path = "before";
  EXPECT_FALSE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
  EXPECT_EQ(path, "before");
}

class OwnUserTest : public testing::Test {
 protected:
  OwnUserTest() { g_console_user_known = false; }

  const TestHome home_;
};

TEST_F(OwnUserTest, UsesOwnFoldersWhenNobodyIsAtConsole) {
  ExpectFoldersIn(home_.path(), geteuid());
}

TEST_F(OwnUserTest, UsesOwnFoldersWhenAtConsole) {
  SetConsoleUser(geteuid());
  ExpectFoldersIn(home_.path(), geteuid());
}

TEST_F(OwnUserTest, HasNoFoldersWhenHomeCannotBeCreated) {
  const ScopedVariable variable("HOME", (home_.path() + "/missing/home").c_str());
  ExpectNoFolders();
}

TEST_F(OwnUserTest, MissingHomeHasNoLogFolderAndIsNotCreated) {
  const std::string missing = home_.path() + "/missing";
  const ScopedVariable variable("HOME", missing.c_str());
  std::string path = "before";
  EXPECT_FALSE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
  EXPECT_EQ(path, "before");
  EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::UserHome, path, nullptr));
  EXPECT_EQ(path, missing);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(OwnUserTest, HasNoFoldersWhenFilesAreInTheirPlace) {
  WriteFile(home_.path() + "/Library", "");
  WriteFile(home_.path() + "/Documents", "");
  ExpectNoFolders();
}

TEST_F(OwnUserTest, ExistingLogFolderKeepsItsMode) {
  std::filesystem::create_directories(home_.logs());
  ASSERT_EQ(chmod(home_.logs().c_str(), 0755), 0);
  std::string path;
  EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
  EXPECT_EQ(ModeOf(path), 0755);
}

TEST_F(OwnUserTest, ReturnsFalseForFileInPlaceOfLogFolder) {
  ASSERT_EQ(mkdir((home_.path() + "/Library").c_str(), 0700), 0);
  WriteFile(home_.logs(), "");
  std::string path = "before";
  EXPECT_FALSE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
  EXPECT_EQ(path, "before");
}

TEST_F(OwnUserTest, LogFolderPathHasAtMost511Bytes) {
  const std::string suffix = "/Library/Logs";
  for (const std::size_t size : {511U, 512U}) {
    const ScopedVariable variable("HOME",
                                  CreateLongFolder(home_.path(), size - suffix.size()).c_str());
    std::string path = "before";
    const bool fits = size == 511;
    EXPECT_EQ(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr), fits);
    EXPECT_EQ(path.size(), fits ? size : std::string("before").size());
  }
}

// Runs tests as a user other than the console user, with a user database that contains the users
// above.
class ConsoleUserTest : public OwnRootTest {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
    OwnRootTest::SetUp();
  }

  void RunWithUsers(const std::function<void()>& body) {
    InOwnRoot([&] {
      const std::string users = home_.path() + "/users";
      WriteFile(users,
                "root:x:0:0::/root:/bin/sh\n"
                "user:x:4001:4001::/console-user:/bin/sh\n"
                "homeless:x:4002:4002::/missing/home:/bin/sh\n");
      ASSERT_EQ(mount(users.c_str(), "/etc/passwd", nullptr, MS_BIND, nullptr), 0);
      ASSERT_EQ(mkdir("/console-user", 0700), 0);
      ASSERT_EQ(chown("/console-user", kUser, kUser), 0);
      body();
    });
  }

  const TestHome home_;
};

TEST_F(ConsoleUserTest, UsesFoldersOfConsoleUserAndRestoresIdentity) {
  RunWithUsers([] {
    SetConsoleUser(kUser);
    ExpectFoldersIn("/console-user", kUser);
    EXPECT_EQ(geteuid(), 0U);
  });
}

TEST_F(ConsoleUserTest, RestoresIdentityWhenLookUpFails) {
  RunWithUsers([] {
    SetConsoleUser(kHomeless);
    ExpectNoFolders();
    EXPECT_EQ(geteuid(), 0U);
  });
}

TEST_F(ConsoleUserTest, RestoresIdentityWhenLogFolderCannotBeCreated) {
  RunWithUsers([] {
    SetConsoleUser(kUser);
    WriteFile("/console-user/Library", "");
    std::string path = "before";
    EXPECT_FALSE(FileUtils::GetDirectoryPath(FileUtils::ConsoleUserLogs, path, nullptr));
    EXPECT_EQ(path, "before");
    EXPECT_EQ(geteuid(), 0U);
  });
}

TEST_F(ConsoleUserTest, KeepsOwnHomeAndLocalFolders) {
  RunWithUsers([this] {
    SetConsoleUser(kUser);
    std::string path;
    EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::UserHome, path, nullptr));
    EXPECT_EQ(path, home_.path());
    EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::VelmoraLocalSupport, path, nullptr));
    EXPECT_EQ(OwnerOf("/Library/Application Support"), 0U);
  });
}

TEST_F(ConsoleUserTest, UsesOwnFoldersWithoutPrivilege) {
  RunWithUsers([] {
    ASSERT_EQ(mkdir("/own-home", 0700), 0);
    ASSERT_EQ(chown("/own-home", kHomeless, kHomeless), 0);
    ASSERT_EQ(setuid(kHomeless), 0);
    const ScopedVariable variable("HOME", "/own-home");
    SetConsoleUser(kUser);
    ExpectFoldersIn("/own-home", kHomeless);
    EXPECT_EQ(geteuid(), kHomeless);
  });
}

// Location of the program

class ProgramTest : public testing::Test {
 protected:
  ~ProgramTest() override { g_program = {}; }

  static void Expect(const std::string& location, const std::string& parent) {
    std::string path = "before";
    EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::ProgramLocation, path, nullptr));
    EXPECT_EQ(path, location);
    path = "before";
    EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::ProgramParent, path, nullptr));
    EXPECT_EQ(path, parent);
  }
};

TEST_F(ProgramTest, OutsideBundleIsExecutable) {
  g_program = {"/opt/suite/bin/HexHelper", "/opt/suite/bin", "/opt/suite/bin"};
  Expect("/opt/suite/bin/HexHelper", "/opt/suite/bin");
}

TEST_F(ProgramTest, InBundleIsBundle) {
  g_program = {"/Applications/Helper.app/Contents/MacOS/HexHelper",
               "/Applications/Helper.app/Contents/MacOS", "/Applications/Helper.app"};
  Expect("/Applications/Helper.app", "/Applications");
}

TEST_F(ProgramTest, MayBeInRootFolder) {
  g_program = {"/HexHelper", "/", "/"};
  Expect("/HexHelper", "/");
}

TEST_F(ProgramTest, ExecutableKeepsReportedForm) {
  g_program = {"/opt/./suite//HexHelper", "/opt/suite", "/opt/suite"};
  Expect("/opt/./suite//HexHelper", "/opt/./suite");
  g_program = {"//HexHelper", "/", "/"};
  Expect("//HexHelper", "/");
}

TEST_F(ProgramTest, UnknownProgramLeavesPathUnchanged) { Expect("before", "before"); }

}  // namespace
