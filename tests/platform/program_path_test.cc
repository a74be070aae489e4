#include "platform/program_path.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/own_root_test.h"

namespace {

namespace fs = std::filesystem;
using platform::ProgramPath;

class ProgramPathTest : public testing::Test {
 protected:
  // Installs the probe in its own folder, and returns its path.
  std::string Install(const std::string& folder, const std::string& name) {
    fs::create_directories(folder_.path() + folder);
    const std::string program = folder_.path() + folder + "/" + name;
    fs::copy_file(PROGRAM_PATH_PROBE, program);
    return program;
  }

  // Returns the paths that the program reports.
  static ProgramPath PathsReportedBy(const std::vector<std::string>& command) {
    ChildProcess child(command, {});
    ProgramPath path;
    EXPECT_TRUE(child.ReadLine(path.executable) && child.ReadLine(path.folder) &&
                child.ReadLine(path.bundle));
    EXPECT_EQ(child.Wait(), 0);
    return path;
  }

  static void ExpectAt(const std::string& program, const std::vector<std::string>& command) {
    const ProgramPath path = PathsReportedBy(command);
    EXPECT_EQ(path.executable, program);
    EXPECT_EQ(path.folder, fs::path(program).parent_path());
    EXPECT_EQ(path.bundle, path.folder);
  }

  const TemporaryFolder folder_;
};

TEST_F(ProgramPathTest, ReportsRunningProgram) {
  ProgramPath path;
  EXPECT_TRUE(platform::GetProgramPath(path));
  EXPECT_TRUE(fs::is_regular_file(path.executable));
  EXPECT_EQ(path.executable, fs::canonical(path.executable));
  EXPECT_EQ(path.folder, fs::path(path.executable).parent_path());
  EXPECT_EQ(path.bundle, path.folder);
}

TEST_F(ProgramPathTest, BundleIsFolderOutsideBundle) {
  const std::string program = Install("/with space/\xC3\xA4", "probe");
  ExpectAt(program, {program});
}

TEST_F(ProgramPathTest, DoesNotDependOnCommand) {
  const std::string program = Install("", "probe");
  ExpectAt(program, {folder_.path() + "//./../" +
                     fs::path(program).parent_path().filename().string() + "/probe"});
}

TEST_F(ProgramPathTest, DeletedProgramKeepsItsPath) {
  const std::string program = Install("", "probe");
  ExpectAt(program, {program, "delete"});
  EXPECT_FALSE(fs::exists(program));
}

TEST_F(ProgramPathTest, ReplacedProgramKeepsItsPath) {
  const std::string program = Install("", "probe");
  ExpectAt(program, {program, "replace"});
}

TEST_F(ProgramPathTest, MovedProgramHasOldOrNewPath) {
  const std::string program = Install("", "probe");
  const std::string moved = folder_.path() + "/moved";
  const ProgramPath path = PathsReportedBy({program, "move", moved});
  EXPECT_TRUE(path.executable == program || path.executable == moved) << path.executable;
  EXPECT_EQ(path.folder, folder_.path());
  EXPECT_EQ(path.bundle, folder_.path());
}

TEST_F(ProgramPathTest, NameMayLookLikeDeletedProgram) {
  const std::string program = Install("", "probe (deleted)");
  ExpectAt(program, {program});
  ExpectAt(program, {program, "delete"});
}

TEST_F(ProgramPathTest, NameMayLookLikeOtherDeletedProgram) {
  Install("", "probe");
  const std::string program = Install("", "probe (deleted)");
  ExpectAt(program, {program});
}

class UnknownProgramPathTest : public OwnRootTest {};

TEST_F(UnknownProgramPathTest, ReturnsFalse) {
  InOwnRoot([] {
    ProgramPath path = {"before", "before", "before"};
    ASSERT_EQ(mount("tmpfs", "/proc", "tmpfs", 0, nullptr), 0);
    const bool known = platform::GetProgramPath(path);
    ASSERT_EQ(umount("/proc"), 0);
    EXPECT_FALSE(known);
    EXPECT_EQ(path.executable, "before");
    EXPECT_EQ(path.folder, "before");
    EXPECT_EQ(path.bundle, "before");
  });
}

}  // namespace
