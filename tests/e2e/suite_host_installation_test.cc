// The files that the example browser requires. Chromium crashes without some of them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <filesystem>

#include "tests/e2e/host_output.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::StartsWith;

// Creates an installation in a temporary folder: copies of the executables, and links to CEF's
// files.
class InstallationTest : public testing::Test {
 protected:
  InstallationTest() {
    const fs::path built = fs::path(SUITE_HOST).parent_path();
    fs::create_directory(folder("bin"));
    for (const char* program : {"suite_host", "HexHelper"})
      fs::copy_file(built / program, folder("bin") / program);
    for (const char* file : {"icudtl.dat", "natives_blob.bin", "snapshot_blob.bin"})
      fs::create_symlink("../CEF/" + std::string(file), folder("bin") / file);
    fs::create_directory(folder("CEF"));
    for (const auto& entry : fs::directory_iterator(built / "../CEF")) {
      const fs::path name = entry.path().filename();
      if (name != "locales") fs::create_symlink(fs::canonical(entry), folder("CEF") / name);
    }
    fs::create_directory(folder("CEF/locales"));
    fs::create_symlink(fs::canonical(built / "../CEF/locales/en-US.pak"),
                       folder("CEF/locales/en-US.pak"));
  }

  fs::path folder(const std::string& name) const { return fs::path(folder_.path()) / name; }

  HostOutput Run(const std::vector<std::string>& options = {},
                 const std::map<std::string, std::string>& environment = {}) const {
    std::vector<std::string> arguments = options;
    arguments.emplace_back("/dev/null");
    return RunHost(folder("bin/suite_host"), arguments, environment);
  }

 private:
  const TemporaryFolder folder_;
};

TEST_F(InstallationTest, CompleteInstallationNeedsOnlyDisplay) {
  EXPECT_THAT(Run({"--devtools=0"}).lines,
              ElementsAre(StartsWith("suite_host: cannot open the X display")));
}

TEST_F(InstallationTest, MissingDataFileIsNamedWithItsFolder) {
  for (const std::string file :
       {"bin/icudtl.dat", "bin/natives_blob.bin", "bin/snapshot_blob.bin", "CEF/cef.pak",
        "CEF/cef_100_percent.pak", "CEF/cef_200_percent.pak", "CEF/cef_extensions.pak"}) {
    const fs::path path = folder(file);
    const fs::path saved = folder("saved");
    fs::rename(path, saved);
    const HostOutput output = Run();
    EXPECT_THAT(output.lines, ElementsAre("suite_host: cannot read " + path.filename().string() +
                                          ", which is expected in " + path.parent_path().string()));
    EXPECT_EQ(output.status, 1);
    fs::rename(saved, path);
  }
}

TEST_F(InstallationTest, MissingLocaleIsReported) {
  fs::remove(folder("CEF/locales/en-US.pak"));
  EXPECT_THAT(Run().lines, ElementsAre("suite_host: cannot read locales/en-US.pak, which is "
                                       "expected in " +
                                       folder("CEF").string()));
}

TEST_F(InstallationTest, DanglingLinkCountsAsMissingFile) {
  fs::remove(folder("CEF/icudtl.dat"));
  EXPECT_THAT(Run().lines, ElementsAre("suite_host: cannot read icudtl.dat, which is expected in " +
                                       folder("bin").string()));
}

TEST_F(InstallationTest, OnlyDevtoolsNeedTheirResources) {
  fs::remove(folder("CEF/devtools_resources.pak"));
  EXPECT_THAT(Run().lines, ElementsAre(StartsWith("suite_host: cannot open the X display")));
  EXPECT_THAT(Run({"--devtools=0"}).lines,
              ElementsAre(StartsWith("suite_host: cannot read devtools_resources.pak")));
}

TEST_F(InstallationTest, MissingHelperIsReported) {
  fs::remove(folder("bin/HexHelper"));
  const HostOutput output = Run();
  EXPECT_THAT(output.lines, ElementsAre("suite_host: cannot execute HexHelper, which is expected "
                                        "in " +
                                        folder("bin").string()));
  EXPECT_EQ(output.status, 1);
}

TEST_F(InstallationTest, LinkedHelperNeedsDataFilesNextToItsTarget) {
  fs::create_directory(folder("elsewhere"));
  fs::rename(folder("bin/HexHelper"), folder("elsewhere/helper"));
  fs::create_symlink("../elsewhere/helper", folder("bin/HexHelper"));
  EXPECT_THAT(Run().lines, ElementsAre("suite_host: cannot read icudtl.dat, which is expected in " +
                                       folder("elsewhere").string()));
}

TEST_F(InstallationTest, NamedHelperNeedsNoDataFilesNextToItself) {
  fs::create_directory(folder("elsewhere"));
  fs::rename(folder("bin/HexHelper"), folder("elsewhere/helper"));
  EXPECT_THAT(Run({"--helper=" + folder("elsewhere/helper").string()}).lines,
              ElementsAre(StartsWith("suite_host: cannot open the X display")));
}

TEST_F(InstallationTest, MissingCefFolderIsReported) {
  fs::rename(folder("CEF"), folder("moved"));
  // The loader must still find the library.
  const HostOutput output = Run({}, {{"LD_LIBRARY_PATH", folder("moved")}});
  EXPECT_THAT(output.lines,
              ElementsAre("suite_host: cannot find the folder CEF, which is expected in " +
                          folder("bin").parent_path().string()));
  EXPECT_EQ(output.status, 1);
}

}  // namespace
