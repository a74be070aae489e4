// A program outside of any bundle has another bundle path in GNUstep than in macOS, and one that
// was deleted another path: those are not tried here.

#include <gtest/gtest.h>
#include <filesystem>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class BundleTest : public testing::Test {
 protected:
  std::string Install(const std::string& folder) const {
    fs::create_directories(folder_.path() + folder);
    const std::string program = folder_.path() + folder + "/probe";
    fs::copy_file(PROGRAM_PATH_PROBE, program);
    return program;
  }

  static void Ask(const std::string& program, std::string& executable, std::string& bundle) {
    ChildProcess child({program}, {});
    EXPECT_TRUE(child.ReadLine(executable) && child.ReadLine(bundle));
    EXPECT_EQ(child.Wait(), 0);
  }

  const TemporaryFolder folder_;
};

TEST_F(BundleTest, ProgramInABundleHasBothPaths) {
  const std::string program = Install("/with space/\xC3\xA4.app");
  std::string executable;
  std::string bundle;
  Ask(program, executable, bundle);
  EXPECT_EQ(executable, program);
  EXPECT_EQ(bundle, folder_.path() + "/with space/\xC3\xA4.app");
}

TEST_F(BundleTest, PathsAreInTheirShortestForm) {
  const std::string program = Install("/a");
  std::string executable;
  std::string bundle;
  Ask(folder_.path() + "//a/.././a/./probe", executable, bundle);
  EXPECT_EQ(executable, program);
}

}  // namespace
