#include "platform/folder_tree.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <algorithm>
#include <filesystem>

#include "support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FolderTreeTest : public testing::Test {
 protected:
  void Make(const std::string& name) const {
    std::filesystem::create_directories(std::filesystem::path(At(name)).parent_path());
    WriteFile(At(name), name);
  }
  std::string At(const std::string& name) const { return folder_.path() + "/" + name; }

  std::vector<std::string> List(const std::string& prefix) const {
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListTree(folder_.path(), prefix, names));
    return names;
  }

  const TemporaryFolder folder_;
};

TEST_F(FolderTreeTest, ListsMatchingEntriesAtAnyDepth) {
  for (const char* const name : {"ab", "abc/d", "abc/e/f", "a", "b/ab", ".ab", "ab\n\xff"})
    Make(name);
  EXPECT_THAT(List("ab"),
              UnorderedElementsAre("ab", "abc", "abc/d", "abc/e", "abc/e/f", "ab\n\xff"));
  EXPECT_EQ(List("").size(), 10U);
  EXPECT_THAT(List("x"), IsEmpty());
}

TEST_F(FolderTreeTest, FolderPrecedesItsEntries) {
  Make("a/b/c/d");
  EXPECT_THAT(List(""), testing::ElementsAre("a", "a/b", "a/b/c", "a/b/c/d"));
}

TEST_F(FolderTreeTest, ListsLinksWithoutFollowingThem) {
  Make("inside/file");
  std::filesystem::create_directory_symlink(At("inside"), At("link"));
  std::filesystem::create_symlink("/nowhere", At("dangling"));
  std::filesystem::create_directory_symlink(folder_.path(), At("loop"));
  EXPECT_THAT(List(""), UnorderedElementsAre("inside", "inside/file", "link", "dangling", "loop"));
}

TEST_F(FolderTreeTest, FolderItselfMayBeLink) {
  Make("inside/file");
  std::filesystem::create_directory_symlink(At("inside"), At("link"));
  std::vector<std::string> names;
  EXPECT_TRUE(platform::ListTree(At("link"), "", names));
  EXPECT_THAT(names, UnorderedElementsAre("file"));
}

TEST_F(FolderTreeTest, OmitsEntriesNestedTooDeeply) {
  std::string name = "a";
  for (int depth = 0; depth < 100; ++depth)
    name += "/a";
  std::filesystem::create_directories(At(name));
  EXPECT_EQ(List("").size(), platform::kMaxFolderDepth + 1);
}

TEST_F(FolderTreeTest, RejectsFileAndMissingFolder) {
  Make("file");
  std::vector<std::string> names;
  EXPECT_FALSE(platform::ListTree(At("file"), "", names));
  EXPECT_FALSE(platform::ListTree(At("missing"), "", names));
  EXPECT_THAT(names, IsEmpty());
}

TEST_F(FolderTreeTest, RemovesFilesPipesAndEmptyFolders) {
  Make("a/file");
  ASSERT_EQ(mkfifo(At("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(platform::RemoveFromTree(folder_.path(), "a"));  // not empty
  EXPECT_TRUE(platform::RemoveFromTree(folder_.path(), "a/file"));
  EXPECT_TRUE(platform::RemoveFromTree(folder_.path(), "a"));
  EXPECT_TRUE(platform::RemoveFromTree(folder_.path(), "pipe"));
  EXPECT_FALSE(platform::RemoveFromTree(folder_.path(), "pipe"));
  EXPECT_FALSE(platform::RemoveFromTree(folder_.path(), "missing/file"));
  EXPECT_THAT(List(""), IsEmpty());
}

TEST_F(FolderTreeTest, RemovesLinkButNotTarget) {
  Make("outside/file");
  std::filesystem::create_directory_symlink(At("outside"), At("folder_link"));
  std::filesystem::create_symlink(At("outside/file"), At("file_link"));
  EXPECT_TRUE(platform::RemoveFromTree(folder_.path(), "folder_link"));
  EXPECT_TRUE(platform::RemoveFromTree(folder_.path(), "file_link"));
  EXPECT_THAT(List(""), UnorderedElementsAre("outside", "outside/file"));
}

TEST_F(FolderTreeTest, DoesNotFollowLinkThatReplacedFolder) {
  Make("outside/file");
  std::filesystem::create_directory_symlink(At("outside"), At("a"));
  EXPECT_FALSE(platform::RemoveFromTree(folder_.path(), "a/file"));
  EXPECT_THAT(List("outside"), UnorderedElementsAre("outside", "outside/file"));
}

}  // namespace
