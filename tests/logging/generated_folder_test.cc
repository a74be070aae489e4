// Tests retention in folders with generated entries of all kinds.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <filesystem>
#include <random>
#include <set>
#include <vector>

#include "logging/time_utils.h"
#include "tests/logging/log_file.h"
#include "tests/support/system_facilities.h"

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

// Returns all entries below a folder without following links.
Names Below(const std::string& folder) {
  Names names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    names.insert(entry.path().string().substr(folder.size() + 1));
  return names;
}

class GeneratedFolderTest : public LogFileTest {
 protected:
  GeneratedFolderTest() {
    WriteFile(outside_.path() + "/test 2000-01-01 00-00-00.log", "kept");
    fs::create_directory(outside_.path() + "/testfolder");
    WriteFile(outside_.path() + "/testfolder/file", "kept");
    for (int day : {0, -1}) {
      tarn::getOffSetDate(dates_[day + 1], day);
      beginnings_.push_back("test " + dates_[day + 1]);
    }
  }

  std::size_t Below(std::size_t count) { return random_() % count; }

  std::string InventName() {
    static const char* const kEndings[] = {".log", "",  " 10-00-00.log", "\n",   ".log\n",
                                           "*",    "~", "\xff",          " -rf", "_002.log",
                                           ".LOG", " "};
    return beginnings_[Below(beginnings_.size())] + std::to_string(Below(100)) +
           kEndings[Below(std::size(kEndings))];
  }

  void Make(const std::string& path) {
    switch (Below(8)) {
      case 0:
        fs::create_directory_symlink(outside_.path(), path);
        break;
      case 1:
        fs::create_symlink(outside_.path() + "/testfolder/file", path);
        break;
      case 2:
        ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        break;
      case 3:
        fs::create_directory(path);
        folders_.push_back(path);
        break;
      case 4:
        if (geteuid() == 0) {
          ASSERT_TRUE(MakeNullDevice(path));
          break;
        }
        [[fallthrough]];
      default:
        WriteFile(path, "content");
    }
  }

  // Creates entries; some of the folders are in other folders.
  void Fill(int entries) {
    folders_ = {folder_.path()};
    for (int i = 0; i < entries; ++i) {
      const std::size_t depth = Below(3) == 0 ? Below(folders_.size()) : 0;
      const std::string path = folders_[depth] + "/" + InventName();
      if (fs::exists(fs::symlink_status(path))) continue;
      ASSERT_NO_FATAL_FAILURE(Make(path));
    }
  }

  // Returns the entries that must remain, determined entry by entry.
  Names Remaining(const Names& before) const {
    std::vector<std::string> candidates;
    Names rest;
    for (const std::string& name : before) {
      const bool dated =
          name.rfind("test " + dates_[0], 0) == 0 || name.rfind("test " + dates_[1], 0) == 0;
      if (name.rfind("test", 0) != 0) {
        rest.insert(name);
      } else if (dated || name == "test.log") {
        candidates.push_back(name);
      }
    }
    // A set is sorted.
    const std::size_t first = candidates.size() < 3 ? 0 : candidates.size() - 3;
    rest.insert(candidates.begin() + static_cast<std::ptrdiff_t>(first), candidates.end());
    return rest;
  }

  // A folder that is not empty when it is to be removed stays, and so do its parents.
  static bool IsFolderLeftBehind(const std::string& path) {
    return fs::is_directory(fs::symlink_status(path));
  }

  const TemporaryFolder outside_;
  std::string dates_[2];
  std::vector<std::string> beginnings_{"test", "Other", "tes", " test", "test 2000-01-01",
                                       "TEST", ".test", "a"};
  std::vector<std::string> folders_;
  std::mt19937 random_{std::random_device()()};
};

TEST_F(GeneratedFolderTest, RemovesOnlySelectedEntries) {
  ASSERT_TRUE(Open());
  for (int round = 0; round < 10 && !HasFailure(); ++round) {
    ASSERT_NO_FATAL_FAILURE(Fill(1000));
    const Names outside = ::Below(outside_.path());
    const Names before = ::Below(folder_.path());
    const Names expected = Remaining(before);
    target_->removeLogFilesExceptLastN(2);
    const Names after = ::Below(folder_.path());
    for (const std::string& name : expected)
      EXPECT_EQ(after.count(name), 1U) << "gone: " << name;
    for (const std::string& name : after) {
      EXPECT_EQ(before.count(name), 1U) << "new: " << name;
      if (expected.count(name) == 0) {
        EXPECT_TRUE(IsFolderLeftBehind(folder_.path() + "/" + name)) << "still there: " << name;
      }
    }
    EXPECT_EQ(::Below(outside_.path()), outside);
  }
  Close();
  EXPECT_EQ(ReadFile(outside_.path() + "/testfolder/file"), "kept");
}

}  // namespace
