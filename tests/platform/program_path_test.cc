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

class ProgramPathTest : public testing::Test {
 protected:
  // A program in a folder of its own.
  std::string Install(const std::string& folder, const std::string& name) {
    fs::create_directories(folder_.path() + folder);
    const std::string program = folder_.path() + folder + "/" + name;
    fs::copy_file(PROGRAM_PATH_PROBE, program);
    return program;
  }

  // What the program tells of itself.
  static void Ask(const std::vector<std::string>& command, std::string& executable,
                  std::string& bundle) {
    ChildProcess child(command, {});
    EXPECT_TRUE(child.ReadLine(executable) && child.ReadLine(bundle));
    EXPECT_EQ(child.Wait(), 0);
  }

  static void ExpectAt(const std::string& program, const std::vector<std::string>& command) {
    std::string executable;
    std::string bundle;
    Ask(command, executable, bundle);
    EXPECT_EQ(executable, program);
    EXPECT_EQ(bundle, fs::path(program).parent_path());
  }

  const TemporaryFolder folder_;
};

TEST_F(ProgramPathTest, IsTheRunningProgram) {
  std::string executable;
  std::string bundle;
  EXPECT_TRUE(platform::GetProgramPath(executable, bundle));
  EXPECT_TRUE(fs::is_regular_file(executable));
  EXPECT_EQ(executable, fs::canonical(executable));
  EXPECT_EQ(bundle, fs::path(executable).parent_path());
}

TEST_F(ProgramPathTest, OutsideOfABundleItsFolderIsOne) {
  const std::string program = Install("/with space/\xC3\xA4", "probe");
  ExpectAt(program, {program});
}

TEST_F(ProgramPathTest, DoesNotDependOnHowItWasStarted) {
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

TEST_F(ProgramPathTest, MovedProgramIsAtOneOfItsPlaces) {
  const std::string program = Install("", "probe");
  const std::string moved = folder_.path() + "/moved";
  std::string executable;
  std::string bundle;
  Ask({program, "move", moved}, executable, bundle);
  EXPECT_TRUE(executable == program || executable == moved) << executable;
  EXPECT_EQ(bundle, folder_.path());
}

TEST_F(ProgramPathTest, NameMayLookLikeThatOfADeletedProgram) {
  const std::string program = Install("", "probe (deleted)");
  ExpectAt(program, {program});
  ExpectAt(program, {program, "delete"});
}

TEST_F(ProgramPathTest, NameMayLookLikeThatOfADeletedProgramBesideAnother) {
  Install("", "probe");
  const std::string program = Install("", "probe (deleted)");
  ExpectAt(program, {program});
}

class UnknownProgramPathTest : public OwnRootTest {};

TEST_F(UnknownProgramPathTest, IsFalse) {
  InOwnRoot([] {
    std::string executable = "before";
    std::string bundle = "before";
    ASSERT_EQ(mount("tmpfs", "/proc", "tmpfs", 0, nullptr), 0);
    const bool told = platform::GetProgramPath(executable, bundle);
    ASSERT_EQ(umount("/proc"), 0);
    EXPECT_FALSE(told);
    EXPECT_EQ(executable, "before");
    EXPECT_EQ(bundle, "before");
  });
}

}  // namespace
