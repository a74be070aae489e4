// GNUstep and macOS report different paths for a program outside of a bundle and for a deleted
// program. These tests replace NSBundle's answers.

#include "platform/program_path.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <filesystem>
#include <string>

#include "tests/gnustep/replaced_method.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::ProgramPath;

NSString* g_executable = nil;
NSString* g_bundle = nil;

NSString* Executable(id, SEL) { return g_executable; }
NSString* Bundle(id, SEL) { return g_bundle; }

class ReplacedBundle {
 public:
  ReplacedBundle(NSString* executable, NSString* bundle) {
    g_executable = executable;
    g_bundle = bundle;
  }

 private:
  const ReplacedMethod executable_ {
    [NSBundle class], @selector(executablePath), reinterpret_cast<IMP>(Executable)
  };
  const ReplacedMethod bundle_ {
    [NSBundle class], @selector(bundlePath), reinterpret_cast<IMP>(Bundle)
  };
};

TEST(ProgramPathTest, ReportsPathsOfProgramInBundle) {
  const TemporaryFolder folder;
  const std::string bundle = folder.path() + "/with space/\xC3\xA4.app";
  const std::string program = bundle + "/probe";
  fs::create_directories(bundle);
  fs::copy_file(PROGRAM_PATH_PROBE, program);
  ChildProcess child({program}, {});
  ProgramPath path;
  EXPECT_TRUE(child.ReadLine(path.executable) && child.ReadLine(path.folder) &&
              child.ReadLine(path.bundle));
  EXPECT_EQ(child.Wait(), 0);
  EXPECT_EQ(path.executable, program);
  EXPECT_EQ(path.folder, bundle);
  EXPECT_EQ(path.bundle, bundle);
}

TEST(ProgramPathTest, StandardizesOnlyFolders) {
  const ReplacedBundle replaced(@"/usr//bin/./HexHelper", @"/usr/./bin/");
  ProgramPath path;
  EXPECT_TRUE(platform::GetProgramPath(path));
  EXPECT_EQ(path.executable, "/usr//bin/./HexHelper");
  EXPECT_EQ(path.folder, "/usr/bin");
  EXPECT_EQ(path.bundle, "/usr/bin");
}

TEST(ProgramPathTest, ReturnsFalseForUnknownProgram) {
  for (NSString* const executable : {static_cast<NSString*>(nil), @"", @"relative/HexHelper"}) {
    const ReplacedBundle replaced(executable, @"/usr/bin");
    ProgramPath path = {"before", "before", "before"};
    EXPECT_FALSE(platform::GetProgramPath(path));
    EXPECT_EQ(path.executable, "before");
    EXPECT_EQ(path.folder, "before");
    EXPECT_EQ(path.bundle, "before");
  }
}

}  // namespace
