#include "logging/log_target_base.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <filesystem>
#include <thread>

#include "logging/log_target_default.h"
#include "support/files.h"
#include "tests/logging/recording_target.h"
#include "tests/support/lock_objects.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

namespace {

class LogTargetBaseTest : public testing::Test {
 protected:
  LogTargetBaseTest() { std::filesystem::create_directories(home_.logs()); }

  void Mark(const std::string& name) { WriteFile(home_.logs() + "/" + name, ""); }

  // Returns the level of a target for "CRN.log" after a request for `level`.
  static tarn::Log_Level Ask(int level) {
    RecordingTarget target("id");
    target.setLogFile("CRN.log", "");
    target.setLogLevel(static_cast<tarn::Log_Level>(level));
    return target.getLogLevel();
  }

  const TestHome home_;
};

TEST_F(LogTargetBaseTest, StartsAtInfoWithDefaultFileName) {
  const RecordingTarget target("id");
  EXPECT_EQ(target.getLogLevel(), tarn::INFO);
  EXPECT_EQ(target.file_name(), "TARN.log");
  EXPECT_EQ(target.getRefCount(), 0);
  EXPECT_TRUE(target.valid());
}

TEST_F(LogTargetBaseTest, IdentifierIsCopiedAndNullChangesNothing) {
  RecordingTarget target("id");
  EXPECT_FALSE(target.setIdentifier(nullptr));
  EXPECT_STREQ(target.getIdentifier(), "id");
  EXPECT_TRUE(target.setIdentifier("other"));
  EXPECT_STREQ(target.getIdentifier(), "other");
}

TEST_F(LogTargetBaseTest, KeepsRequestedLevelWithoutMarkers) {
  for (const int level : {10, 20, 30, 40, 70, 35, 0})
    EXPECT_EQ(Ask(level), level);
}

TEST_F(LogTargetBaseTest, TraceMarkerMeansTrace) {
  Mark("CRN.trace");
  EXPECT_EQ(Ask(30), 10);
  EXPECT_EQ(Ask(70), 10);
}

TEST_F(LogTargetBaseTest, DebugMarkerMeansAtMostDebug) {
  Mark("CRN.debug");
  EXPECT_EQ(Ask(30), 20);
  EXPECT_EQ(Ask(21), 20);
  EXPECT_EQ(Ask(20), 20);
  EXPECT_EQ(Ask(10), 10);
}

TEST_F(LogTargetBaseTest, SharedMarkersApplyToEveryLog) {
  Mark("pvx.debug");
  EXPECT_EQ(Ask(40), 20);
  EXPECT_EQ(Ask(10), 10);
  Mark("pvx.trace");
  EXPECT_EQ(Ask(40), 10);
}

TEST_F(LogTargetBaseTest, OwnMarkerWinsOverSharedOnes) {
  Mark("CRN.debug");
  Mark("pvx.debug");
  EXPECT_EQ(Ask(40), 20);
  Mark("pvx.trace");
  EXPECT_EQ(Ask(40), 20);
  EXPECT_EQ(Ask(10), 10);
}

TEST_F(LogTargetBaseTest, OwnTraceMarkerWinsOverOwnDebugMarker) {
  Mark("CRN.debug");
  Mark("CRN.trace");
  EXPECT_EQ(Ask(40), 10);
}

TEST_F(LogTargetBaseTest, IgnoresFolderWithNameOfMarker) {
  std::filesystem::create_directory(home_.logs() + "/CRN.trace");
  EXPECT_EQ(Ask(30), 30);
}

TEST_F(LogTargetBaseTest, IgnoresMarkersInFolderOfLog) {
  std::filesystem::create_directories(home_.suite_logs());
  WriteFile(home_.suite_logs() + "/CRN.trace", "");
  EXPECT_EQ(Ask(30), 30);
}

TEST_F(LogTargetBaseTest, MarkerMatchesCurrentName) {
  Mark("CRN.trace");
  RecordingTarget target("id");
  target.setLogLevel(tarn::INFO);
  target.setLogFile("CRN.log", "");
  EXPECT_EQ(target.getLogLevel(), tarn::INFO);
  Mark("TARN.trace");
  EXPECT_EQ(RecordingTarget("id").getLogLevel(), tarn::TRACE);
}

TEST_F(LogTargetBaseTest, KeepsLevelWithoutLogFolder) {
  std::filesystem::remove_all(home_.path() + "/Library");
  WriteFile(home_.path() + "/Library", "");
  EXPECT_EQ(Ask(40), 40);
}

TEST_F(LogTargetBaseTest, SearchForMarkersCreatesNoFolder) {
  std::filesystem::remove_all(home_.path() + "/Library");
  EXPECT_EQ(RecordingTarget("id").getLogLevel(), tarn::INFO);
  EXPECT_TRUE(std::filesystem::is_empty(home_.path()));
  const ScopedVariable variable("HOME", (home_.path() + "/missing").c_str());
  RecordingTarget("id").setLogLevel(tarn::WARN);
  EXPECT_TRUE(std::filesystem::is_empty(home_.path()));
}

TEST_F(LogTargetBaseTest, FileTargetInOwnFolderCreatesNothingInHome) {
  std::filesystem::remove_all(home_.path() + "/Library");
  const TemporaryFolder folder;
  const LockObjects lock(folder.path() + "/x.log");
  tarn::LogTargetDefault target("id");
  ASSERT_TRUE(target.setLogFile("x.log", folder.path().c_str()));
  target.setLogLevel(tarn::INFO);
  ASSERT_TRUE(target.onRegisterTarget());
  EXPECT_TRUE(target.writeLog(tarn::WARN, "", "", "", "", "", "", "text", nullptr, 0, true));
  EXPECT_TRUE(target.onUnregisterTarget());
  EXPECT_NE(ReadFile(folder.path() + "/x.log"), "");
  EXPECT_TRUE(std::filesystem::is_empty(home_.path()));
}

TEST_F(LogTargetBaseTest, EmptyFolderMeansFolderOfSuite) {
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_EQ(target.file_path(), home_.helper_log());
  EXPECT_EQ(target.file_name(), "CRN.log");
  EXPECT_TRUE(std::filesystem::is_directory(home_.suite_logs()));
  EXPECT_TRUE(target.setLogFile("CRN.log", nullptr));
  EXPECT_EQ(target.file_path(), home_.helper_log());
}

TEST_F(LogTargetBaseTest, NullNameKeepsCurrentName) {
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile(nullptr, ""));
  EXPECT_EQ(target.file_path(), home_.suite_logs() + "/TARN.log");
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_TRUE(target.setLogFile("", ""));
  EXPECT_EQ(target.file_path(), home_.helper_log());
}

TEST_F(LogTargetBaseTest, OtherFolderIsUsedUnchanged) {
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile("x.log", (home_.path() + "/").c_str()));
  EXPECT_EQ(target.file_path(), home_.path() + "/x.log");
  EXPECT_FALSE(std::filesystem::exists(home_.logs() + "/Cirrane"));
}

TEST_F(LogTargetBaseTest, RefusesPathAsName) {
  RecordingTarget target("id");
  for (const char* const name : {"a/b.log", "../CRN.log", "/CRN.log", "CRN.log/"}) {
    EXPECT_FALSE(target.setLogFile(name, "")) << name;
    EXPECT_FALSE(target.valid());
  }
  EXPECT_EQ(target.file_name(), "TARN.log");
  EXPECT_TRUE(target.opened.empty());
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_TRUE(target.valid());
}

TEST_F(LogTargetBaseTest, IsInvalidWhenFileCannotBeOpened) {
  RecordingTarget target("id");
  target.opens = false;
  EXPECT_FALSE(target.setLogFile("CRN.log", ""));
  EXPECT_FALSE(target.valid());
}

TEST_F(LogTargetBaseTest, OpensOwnStreamOnlyWhenRegistered) {
  RecordingTarget target("id");
  target.setLogFile("CRN.log", "");
  target.set_registered();
  target.setLogFile("CRN.log", "");
  EXPECT_EQ(target.opened,
            (std::vector<std::string>{"other " + home_.helper_log(), "own " + home_.helper_log()}));
}

TEST_F(LogTargetBaseTest, ExistingFolderKeepsMode) {
  std::filesystem::create_directories(home_.suite_logs());
  ASSERT_EQ(chmod(home_.suite_logs().c_str(), 0750), 0);
  RecordingTarget target("id");
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_TRUE(target.setLogFile("CRN.log", ""));
  EXPECT_EQ(ModeOf(home_.suite_logs()), 0750);
}

TEST_F(LogTargetBaseTest, ReferencesAreCountedFromManyThreads) {
  RecordingTarget target("id");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&target] {
      for (int n = 0; n < 1000; ++n) {
        target.incrementRefCount();
        target.incrementRefCount();
        target.decrementRefCount();
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(target.getRefCount(), 4000);
}

}  // namespace
