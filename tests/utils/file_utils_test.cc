#include "utils/file_utils.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <climits>
#include <filesystem>
#include <string>

#include "support/files.h"
#include "tests/support/own_root_test.h"
#include "tests/support/test_home.h"

namespace {

using TarnUtils::FileUtils;

bool Resolve(int kind, std::string& path) {
  return FileUtils::GetDirectoryPath(static_cast<FileUtils::PathType>(kind), path, nullptr);
}

// Kinds

static_assert(sizeof(FileUtils::PathType) == 4, "callers hand it over as a number of 32 bits");

TEST(PathTypeTest, NumbersMatchSuite) {
  EXPECT_EQ(FileUtils::LocalApplications, 0);
  EXPECT_EQ(FileUtils::LocalApplicationSupport, 2);
  EXPECT_EQ(FileUtils::LocalApplicationSupportShared, 3);
  EXPECT_EQ(FileUtils::UserHome, 9);
  EXPECT_EQ(FileUtils::ConsoleUserDocuments, 10);
  EXPECT_EQ(FileUtils::ConsoleUserApplicationSupport, 12);
  EXPECT_EQ(FileUtils::SharedUserData, 13);
  EXPECT_EQ(FileUtils::Temporary, 15);
  EXPECT_EQ(FileUtils::ProgramLocation, 16);
  EXPECT_EQ(FileUtils::ProgramParent, 17);
  EXPECT_EQ(FileUtils::VelmoraLocalSupport, 18);
  EXPECT_EQ(FileUtils::VelmoraUserSupport, 19);
  EXPECT_EQ(FileUtils::VelmoraSharedData, 20);
  EXPECT_EQ(FileUtils::TarnLocalSupport, 21);
  EXPECT_EQ(FileUtils::TarnUserSupport, 22);
  EXPECT_EQ(FileUtils::TarnSharedData, 23);
  EXPECT_EQ(FileUtils::PackageKeeperUtilities, 24);
  EXPECT_EQ(FileUtils::SprigLocalSupport, 25);
  EXPECT_EQ(FileUtils::SprigUserSupport, 26);
  EXPECT_EQ(FileUtils::PackageKeeperRefs, 27);
  EXPECT_EQ(FileUtils::SharedRuntimeRefs, 28);
  EXPECT_EQ(FileUtils::SharedRuntime, 29);
  EXPECT_EQ(FileUtils::CirraneUtilities, 30);
  EXPECT_EQ(FileUtils::LocalPreferences, 31);
  EXPECT_EQ(FileUtils::ConsoleUserLogs, 32);
}

TEST(DirectoryPathTest, ReturnsFalseForNumberWithoutKind) {
  for (const int kind : {1, 4, 5, 6, 7, 8, 11, 14, 33, 34, 1000, -1, INT_MAX, INT_MIN}) {
    std::string path = "before";
    EXPECT_FALSE(Resolve(kind, path)) << kind;
    EXPECT_EQ(path, "before") << kind;
  }
}

TEST(DirectoryPathTest, TemporaryFolderIsThatOfSystem) {
  const ScopedVariable variable("TMPDIR", "/elsewhere");
  std::string path = "before";
  EXPECT_TRUE(Resolve(15, path));
  EXPECT_EQ(path, "/tmp");
}

TEST(DirectoryPathTest, HomeIsThatOfUser) {
  const TestHome home;
  std::string path = "before";
  EXPECT_TRUE(Resolve(9, path));
  EXPECT_EQ(path, home.path());
}

TEST(DirectoryPathTest, IgnoresContext) {
  std::string path = "a";
  void* const nowhere = &path;
  EXPECT_TRUE(FileUtils::GetDirectoryPath(FileUtils::Temporary, path, nowhere));
  EXPECT_EQ(path, "/tmp");
  EXPECT_TRUE(FileUtils::AppendPath(path, "b", nowhere));
  EXPECT_EQ(path, "/tmp/b");
}

// The folder of each local kind, and whether its result is that of the look-up.
struct LocalKind {
  const char* folder;
  const char* suffix;
  int kind;
  bool result_of_look_up;
};

constexpr LocalKind kLocalKinds[] = {
    {"/Applications", "", 0, true},
    {"/Library/Application Support", "", 2, true},
    {"/Library/Application Support", "", 3, true},
    {"/Users/Shared", "", 13, false},
    {"/Library/Application Support", "/Velmora", 18, false},
    {"/Users/Shared", "/Velmora", 20, false},
    {"/Library/Application Support", "/Velmora/TARN", 21, false},
    {"/Users/Shared", "/Velmora/TARN", 23, false},
    {"/Applications/Utilities", "/Velmora Package Keeper/", 24, false},
    {"/Library/Application Support", "/Velmora/TARN/Sprig", 25, false},
    {"/Library/Application Support", "/Velmora/VelmoraPackageKeeper/VPKRefs", 27, false},
    {"/Library/Application Support", "/Velmora/VSRRefs", 28, false},
    {"/Library/Application Support", "/Velmora/Velmora Shared Runtime", 29, false},
    {"/Applications/Utilities", "/Velmora Cirrane/", 30, false},
    {"/Library/Preferences", "", 31, true},
};

class LocalDirectoryTest : public OwnRootTest {};

TEST_F(LocalDirectoryTest, CreatesSystemFolderButNotSuiteFolder) {
  InOwnRoot([] {
    for (const LocalKind& local : kLocalKinds) {
      std::string path = "before";
      EXPECT_TRUE(Resolve(local.kind, path)) << local.kind;
      EXPECT_EQ(path, std::string(local.folder) + local.suffix);
      EXPECT_TRUE(std::filesystem::is_directory(local.folder)) << local.folder;
    }
    EXPECT_TRUE(std::filesystem::is_empty("/Library/Application Support"));
    EXPECT_TRUE(std::filesystem::is_empty("/Applications/Utilities"));
    EXPECT_TRUE(std::filesystem::is_empty("/Users/Shared"));
  });
}

TEST_F(LocalDirectoryTest, FailureKeepsPathAndAppendsSuffix) {
  InOwnRoot([] {
    ASSERT_TRUE(MakeOwnRootReadOnly());
    for (const LocalKind& local : kLocalKinds) {
      std::string path = "before";
      EXPECT_EQ(Resolve(local.kind, path), !local.result_of_look_up) << local.kind;
      EXPECT_EQ(path, std::string("before") + local.suffix) << local.kind;
    }
  });
}

// AppendPath

TEST(AppendPathTest, JoinsWithOneSlash) {
  struct Case {
    const char* path;
    const char* component;
    const char* joined;
  };
  for (const Case& item : {
           Case{"a", "b", "a/b"},
           Case{"a/", "/b", "a/b"},
           Case{"a", "///b", "a/b"},
           Case{"a", "/", "a/"},
           Case{"a", "///", "a/"},
           Case{"a/", "/", "a/"},
           Case{"a/", "b", "a/b"},
           Case{"a//", "b", "a//b"},  // adds no slash here
           Case{"/", "b", "/b"},
           Case{"/", "//", "/"},
           Case{"a", "b/", "a/b/"},
           Case{"a", "b//c", "a/b//c"},
           Case{"/a b", "\xC3\xA4.txt", "/a b/\xC3\xA4.txt"},
       }) {
    std::string path = item.path;
    EXPECT_TRUE(FileUtils::AppendPath(path, item.component, nullptr)) << item.joined;
    EXPECT_EQ(path, item.joined);
  }
}

TEST(AppendPathTest, RejectsEmptyPathAndEmptyComponent) {
  std::string path;
  EXPECT_FALSE(FileUtils::AppendPath(path, "b", nullptr));
  EXPECT_EQ(path, "");
  EXPECT_FALSE(FileUtils::AppendPath(path, "", nullptr));
  EXPECT_EQ(path, "");
  path = "a";
  EXPECT_FALSE(FileUtils::AppendPath(path, "", nullptr));
  EXPECT_EQ(path, "a");
}

TEST(AppendPathTest, AppendsPathToItself) {
  std::string path = "/a";
  EXPECT_TRUE(FileUtils::AppendPath(path, path, nullptr));
  EXPECT_EQ(path, "/a/a");
}

// Files

class FileTest : public testing::Test {
 protected:
  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
};

TEST_F(FileTest, FileFolderAndLinkTargetExist) {
  EXPECT_FALSE(FileUtils::PathExists("", nullptr));
  EXPECT_FALSE(FileUtils::PathExists(path_, nullptr));
  EXPECT_TRUE(FileUtils::PathExists(folder_.path(), nullptr));
  EXPECT_TRUE(FileUtils::PathExists(folder_.path() + "/", nullptr));
  const std::string link = folder_.path() + "/link";
  std::filesystem::create_symlink(path_, link);
  EXPECT_FALSE(FileUtils::PathExists(link, nullptr));
  WriteFile(path_, "");
  EXPECT_TRUE(FileUtils::PathExists(link, nullptr));
  EXPECT_TRUE(FileUtils::PathExists(path_, nullptr));
  EXPECT_FALSE(FileUtils::PathExists(path_ + "/below", nullptr));
}

TEST_F(FileTest, ReadsUtf8OrUtf16) {
  for (const std::string& bytes : {
           std::string("\xE2\x82\xAC"),
           std::string("\xFF\xFE\xAC\x20"),
           std::string("\xFE\xFF\x20\xAC"),
       }) {
    WriteFile(path_, bytes);
    std::string content = "before";
    EXPECT_TRUE(FileUtils::LoadContentOfFileAtPath(path_, content, nullptr));
    EXPECT_EQ(content, "\xE2\x82\xAC");
  }
  WriteFile(path_, "");
  std::string content = "before";
  EXPECT_TRUE(FileUtils::LoadContentOfFileAtPath(path_, content, nullptr));
  EXPECT_EQ(content, "");
}

TEST_F(FileTest, ReturnsFalseForUnreadableContent) {
  WriteFile(path_, "\xFF");
  for (const std::string& path : {path_, folder_.path(), folder_.path() + "/none", std::string()}) {
    std::string content = "before";
    EXPECT_FALSE(FileUtils::LoadContentOfFileAtPath(path, content, nullptr)) << path;
    EXPECT_EQ(content, "before");
  }
}

// Versions of applications

class ApplicationVersionTest : public testing::Test {
 protected:
  // Writes the bundle's property list with the entries of an XML dictionary.
  void WriteList(const std::string& entries) {
    std::filesystem::create_directories(bundle_ + "/Contents");
    WriteFile(bundle_ + "/Contents/Info.plist",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" +
                  entries + "</dict></plist>\n");
  }

  void ExpectNone() {
    std::string version = "before";
    EXPECT_FALSE(FileUtils::getApplicationVersion(bundle_, version));
    EXPECT_EQ(version, "before");
  }

  const TemporaryFolder folder_;
  const std::string bundle_ = folder_.path() + "/Cirrane.app";
};

constexpr char kVersion[] = "<key>CFBundleShortVersionString</key><string>4.3.0.256</string>";

TEST_F(ApplicationVersionTest, IsShortVersion) {
  WriteList(std::string("<key>CFBundleVersion</key><string>1</string>") + kVersion);
  for (const std::string& path : {bundle_, bundle_ + "/"}) {
    std::string version = "before";
    const std::string given = path;
    EXPECT_TRUE(FileUtils::getApplicationVersion(path, version));
    EXPECT_EQ(version, "4.3.0.256");
    EXPECT_EQ(path, given);
  }
}

TEST_F(ApplicationVersionTest, ReturnsFalseWithoutPropertyList) {
  ExpectNone();
  std::filesystem::create_directories(bundle_ + "/Contents");
  ExpectNone();
  std::filesystem::create_directory(bundle_ + "/Contents/Info.plist");
  ExpectNone();
  std::string version = "before";
  EXPECT_FALSE(FileUtils::getApplicationVersion("", version));
  EXPECT_EQ(version, "before");
}

TEST_F(ApplicationVersionTest, ReturnsFalseWithoutEntry) {
  WriteList("");
  ExpectNone();
  WriteList("<key>CFBundleVersion</key><string>1</string>");
  ExpectNone();
  WriteList("<key>CFBundleShortVersionString</key><integer>4</integer>");
  ExpectNone();
}

TEST_F(ApplicationVersionTest, ReturnsFalseForInvalidList) {
  for (const char* const list : {"", "4.3", "<plist><dict>", "bplist00"}) {
    std::filesystem::create_directories(bundle_ + "/Contents");
    WriteFile(bundle_ + "/Contents/Info.plist", list);
    ExpectNone();
  }
}

}  // namespace
