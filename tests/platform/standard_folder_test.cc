#include "platform/standard_folder.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstring>
#include <filesystem>
#include <string>

#include "support/files.h"
#include "tests/support/long_folder.h"
#include "tests/support/own_root_test.h"
#include "tests/support/test_home.h"

namespace {

using platform::FolderDomain;
using platform::FolderType;
using platform::GetStandardFolder;

struct LocalFolder {
  const char* path;
  FolderType type;
  int mode;
};

constexpr LocalFolder kLocalFolders[] = {
    {"/Applications", FolderType::kApplications, 0755},
    {"/Library/Application Support", FolderType::kApplicationSupport, 0755},
    {"/Users/Shared", FolderType::kSharedUserData, 01777},
    {"/Library/Preferences", FolderType::kPreferences, 0755},
    {"/Applications/Utilities", FolderType::kUtilities, 0755},
};

struct UserFolder {
  FolderType type;
  const char* path;  // relative to the home
};

constexpr UserFolder kUserFolders[] = {
    {FolderType::kApplicationSupport, "/Library/Application Support"},
    {FolderType::kDocuments, "/Documents"},
};

// Expects the call to fail and to leave the path unchanged.
void ExpectNone(FolderDomain domain, FolderType type) {
  std::string path = "before";
  EXPECT_FALSE(GetStandardFolder(domain, type, path));
  EXPECT_EQ(path, "before");
}

class StandardFolderTest : public OwnRootTest {};

TEST_F(StandardFolderTest, CreatesLocalFoldersForEveryone) {
  for (const LocalFolder& folder : kLocalFolders) {
    InOwnRoot([&folder] {
      for (int time = 0; time < 2; ++time) {
        std::string path;
        EXPECT_TRUE(GetStandardFolder(FolderDomain::kLocal, folder.type, path));
        EXPECT_EQ(path, folder.path);
        EXPECT_TRUE(std::filesystem::is_directory(path));
        EXPECT_EQ(ModeOf(path), folder.mode) << path;
        EXPECT_EQ(ModeOf(path.substr(0, path.find('/', 1))), 0755);
      }
    });
  }
}

TEST_F(StandardFolderTest, ModesDoNotDependOnMask) {
  InOwnRoot([] {
    umask(0077);
    for (const LocalFolder& folder : kLocalFolders) {
      std::string path;
      EXPECT_TRUE(GetStandardFolder(FolderDomain::kLocal, folder.type, path));
      EXPECT_EQ(ModeOf(path), folder.mode) << path;
    }
    EXPECT_EQ(ModeOf("/Library"), 0755);
  });
}

TEST_F(StandardFolderTest, ExistingFolderKeepsItsMode) {
  InOwnRoot([] {
    ASSERT_EQ(mkdir("/Library", 0700), 0);
    ASSERT_EQ(mkdir("/Library/Preferences", 0711), 0);
    std::string path;
    EXPECT_TRUE(GetStandardFolder(FolderDomain::kLocal, FolderType::kPreferences, path));
    EXPECT_EQ(ModeOf("/Library"), 0700);
    EXPECT_EQ(ModeOf(path), 0711);
  });
}

TEST_F(StandardFolderTest, FollowsLinkToFolder) {
  InOwnRoot([] {
    ASSERT_EQ(mkdir("/elsewhere", 0755), 0);
    ASSERT_EQ(symlink("/elsewhere", "/Applications"), 0);
    std::string path;
    EXPECT_TRUE(GetStandardFolder(FolderDomain::kLocal, FolderType::kUtilities, path));
    EXPECT_EQ(path, "/Applications/Utilities");
    EXPECT_TRUE(std::filesystem::is_directory("/elsewhere/Utilities"));
  });
}

TEST_F(StandardFolderTest, ReturnsFalseWhenFolderCannotBeCreated) {
  InOwnRoot([] {
    ASSERT_TRUE(MakeOwnRootReadOnly());
    for (const LocalFolder& folder : kLocalFolders)
      ExpectNone(FolderDomain::kLocal, folder.type);
  });
}

TEST_F(StandardFolderTest, ReturnsFalseForFileInPlaceOfFolder) {
  InOwnRoot([] {
    WriteFile("/Applications", "");
    ASSERT_EQ(symlink("/nowhere", "/Library"), 0);
    ASSERT_EQ(mkdir("/Users", 0755), 0);
    WriteFile("/Users/Shared", "");
    for (const LocalFolder& folder : kLocalFolders)
      ExpectNone(FolderDomain::kLocal, folder.type);
    EXPECT_FALSE(std::filesystem::exists("/nowhere"));
  });
}

TEST(StandardUserFolderTest, IsCreatedInHomeForUserAlone) {
  const TestHome home;
  const mode_t mask = umask(0);
  for (const UserFolder& folder : kUserFolders) {
    for (int time = 0; time < 2; ++time) {
      std::string path;
      EXPECT_TRUE(GetStandardFolder(FolderDomain::kUser, folder.type, path));
      EXPECT_EQ(path, home.path() + folder.path);
      EXPECT_EQ(ModeOf(path), 0700);
    }
  }
  umask(mask);
  EXPECT_EQ(ModeOf(home.path() + "/Library"), 0700);
}

TEST(StandardUserFolderTest, MissingHomeIsCreatedForUserAlone) {
  const TestHome home;
  const mode_t mask = umask(0);
  for (const UserFolder& folder : kUserFolders) {
    const std::string missing = home.path() + "/missing";
    const ScopedVariable variable("HOME", missing.c_str());
    std::string path;
    EXPECT_TRUE(GetStandardFolder(FolderDomain::kUser, folder.type, path));
    EXPECT_EQ(path, missing + folder.path);
    EXPECT_EQ(ModeOf(missing), 0700);
    std::filesystem::remove_all(missing);
  }
  umask(mask);
}

TEST(StandardUserFolderTest, ReturnsFalseWhenHomeCannotBeCreated) {
  const TestHome home;
  const ScopedVariable variable("HOME", (home.path() + "/missing/home").c_str());
  for (const UserFolder& folder : kUserFolders)
    ExpectNone(FolderDomain::kUser, folder.type);
}

TEST(StandardUserFolderTest, ReturnsFalseForFileInItsPlace) {
  const TestHome home;
  WriteFile(home.path() + "/Library", "");
  WriteFile(home.path() + "/Documents", "");
  for (const UserFolder& folder : kUserFolders)
    ExpectNone(FolderDomain::kUser, folder.type);
}

TEST(StandardUserFolderTest, PathHasAtMost1023Bytes) {
  const TestHome home;
  for (const UserFolder& folder : kUserFolders) {
    const std::string longest = CreateLongFolder(home.path(), 1023 - std::strlen(folder.path));
    const ScopedVariable variable("HOME", longest.c_str());
    std::string path;
    EXPECT_TRUE(GetStandardFolder(FolderDomain::kUser, folder.type, path));
    EXPECT_EQ(path, longest + folder.path);
    EXPECT_EQ(path.size(), 1023U);
  }
  for (const UserFolder& folder : kUserFolders) {
    const std::string too_long = CreateLongFolder(home.path(), 1024 - std::strlen(folder.path));
    const ScopedVariable variable("HOME", too_long.c_str());
    ExpectNone(FolderDomain::kUser, folder.type);
    EXPECT_TRUE(std::filesystem::is_empty(too_long));
  }
}

TEST(StandardUserFolderTest, PathIsUtf8) {
  const TestHome home;
  for (const char* const name : {"/J\xC3\xBCrgen", "/J\xFCrgen"}) {
    const bool valid = name[2] == '\xC3';
    const ScopedVariable variable("HOME", (home.path() + name).c_str());
    std::string path = "before";
    EXPECT_EQ(GetStandardFolder(FolderDomain::kUser, FolderType::kDocuments, path), valid);
    EXPECT_EQ(path, valid ? home.path() + name + "/Documents" : "before");
  }
}

TEST_F(StandardFolderTest, HomeMayBeRootFolder) {
  InOwnRoot([] {
    const ScopedVariable variable("HOME", "/");
    std::string path;
    EXPECT_TRUE(GetStandardFolder(FolderDomain::kUser, FolderType::kDocuments, path));
    EXPECT_EQ(path, "/Documents");
  });
}

TEST(StandardUserFolderTest, ReturnsFalseForUserWithoutHome) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can take on another identity";
  constexpr uid_t kUnknown = 3999999999;
  ASSERT_EQ(getpwuid(kUnknown), nullptr);
  ASSERT_EQ(seteuid(kUnknown), 0);
  for (const UserFolder& folder : kUserFolders)
    ExpectNone(FolderDomain::kUser, folder.type);
  ASSERT_EQ(seteuid(0), 0);
}

TEST(StandardUserFolderTest, ReturnsFalseForPairWithoutFolder) {
  const TestHome home;
  ExpectNone(FolderDomain::kLocal, FolderType::kDocuments);
  for (const FolderType type : {FolderType::kApplications, FolderType::kSharedUserData,
                                FolderType::kPreferences, FolderType::kUtilities}) {
    ExpectNone(FolderDomain::kUser, type);
  }
  ExpectNone(static_cast<FolderDomain>(7), FolderType::kApplicationSupport);
  ExpectNone(FolderDomain::kUser, static_cast<FolderType>(-1));
  EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

}  // namespace
