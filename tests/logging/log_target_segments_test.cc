// When a log file is copied and emptied, and what comes after that. The clock that names copies is
// this program's own.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <ctime>
#include <filesystem>

#include "logging/rotation.h"
#include "tests/logging/log_file.h"
#include "tests/support/namespaces.h"
#include "tests/support/process_pool.h"

namespace {

std::time_t g_now = 0;

}  // namespace

// In place of the C library's.
extern "C" std::time_t time(std::time_t* __timer) noexcept {
  if (__timer) *__timer = g_now;
  return g_now;
}

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr long long kLimit = 10485760;
constexpr std::time_t kNow = 1794776707;  // 2026-11-15 21:05:07 UTC
constexpr char kCopy[] = "test 2026-11-15 21-05-07.log";

class LogTargetSegmentsTest : public LogFileTest {
 protected:
  LogTargetSegmentsTest() { g_now = kNow; }

  // The name of what is in the log's folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
      names.push_back(entry.path().filename());
    return names;
  }
  std::string At(const std::string& name) const { return folder_.path() + "/" + name; }

  // Fills the log up to a size with lines, and gives back its content.
  std::string Fill(long long size) const {
    std::string content;
    while (static_cast<long long>(content.size()) + 64 < size)
      content += "a line of before, of thirty-two.\n";
    content.resize(static_cast<std::size_t>(size - 1), '.');
    WriteFile(path_, content += "\n");
    return content;
  }
  void FillSparsely(long long size) const {
    WriteFile(path_, "");
    ASSERT_EQ(truncate(path_.c_str(), size), 0);
  }
  bool WasRotated() const { return std::filesystem::exists(At(kCopy)); }
};

TEST_F(LogTargetSegmentsTest, FileAtItsLimitBecomesACopyWhenTheTargetIsRegistered) {
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_TRUE(ReadFile(At(kCopy)) == content);
  EXPECT_EQ(Text(), "");
  Close();
}

TEST_F(LogTargetSegmentsTest, FileBelowItsLimitIsAppendedToWithoutAHeader) {
  FillSparsely(kLimit - 1);
  ASSERT_TRUE(Open());
  EXPECT_FALSE(WasRotated());
  Close();
  WriteFile(path_, "before\n");
  ASSERT_TRUE(Open());
  Write("x");
  Close();
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(LogTargetSegmentsTest, LimitDependsOnTheLevel) {
  constexpr struct {
    long long size;
    tarn::Log_Level level;
    bool rotated;
  } kCases[] = {
      {30 << 20, tarn::TRACE, false}, {(50 << 20) - 1, tarn::TRACE, false},
      {50 << 20, tarn::TRACE, true},  {(20 << 20) - 1, tarn::DEBUG, false},
      {30 << 20, tarn::DEBUG, true},  {10 << 20, tarn::FATAL, true},
  };
  for (const auto& tried : kCases) {
    target_.setLogLevel(tried.level);
    FillSparsely(tried.size);
    ASSERT_TRUE(Open());
    EXPECT_EQ(WasRotated(), tried.rotated) << tried.level << " " << tried.size;
    Close();
    std::filesystem::remove(At(kCopy));
  }
}

TEST_F(LogTargetSegmentsTest, SizeIsLookedUp900SecondsAfterTheLastLook) {
  target_.setSegmentLimitsForTests(100, 900);
  const unsigned long long begin = static_cast<unsigned long long>(kNow) * 1000;
  ASSERT_TRUE(Open());
  // The look at the registration was at the true time, which this line is far from.
  Write("of another time, over the limit of one hundred characters for a file of this test", begin);
  EXPECT_FALSE(WasRotated());  // the time of the line before counts
  Write("x", begin + 100000);
  EXPECT_TRUE(WasRotated());
  std::filesystem::remove(At(kCopy));
  for (const unsigned long long second : {899U, 900U}) {
    Write("over the limit of one hundred characters for a file of this test",
          begin + second * 1000);
    EXPECT_FALSE(WasRotated()) << second;
  }
  Write("x", begin + 901000);
  EXPECT_TRUE(WasRotated());
  Close();
}

TEST_F(LogTargetSegmentsTest, SizeThatCannotBeReadIsNoRotation) {
  ASSERT_TRUE(Open());
  EXPECT_TRUE(target_.SegmentLogFile(true));
  std::filesystem::remove(path_);
  EXPECT_FALSE(target_.SegmentLogFile(true));
  Close();
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(LogTargetSegmentsTest, NextLineIsPrecededByTheHeaderOnce) {
  Fill(kLimit);
  ASSERT_TRUE(Open());
  Write("first");
  Write("second");
  Close();
  const ::testing::Matcher<std::string> star =
      "****************************************"
      "**************************************";
  EXPECT_THAT(Messages(),
              ElementsAre(star, testing::StartsWith("Bit: "), testing::StartsWith("OS Locale: "),
                          testing::StartsWith("OS Name: Mac OS "),
                          testing::StartsWith("OS Version: "), star, "first", "second"));
  const std::string line = Lines()[1];
  EXPECT_EQ(line.substr(line.find(" | ")).substr(0, 35), " | [INFO] | s | d | sd | c |  |  | ");
}

TEST_F(LogTargetSegmentsTest, TargetForWarningsWritesNoHeader) {
  for (const tarn::Log_Level level : {tarn::WARN, tarn::ERROR}) {
    target_.setLogLevel(level);
    Fill(kLimit);
    ASSERT_TRUE(Open());
    logger_.fatal("", "first");
    Close();
    EXPECT_THAT(Messages(), ElementsAre("first"));
  }
}

TEST_F(LogTargetSegmentsTest, HeaderIsWrittenByWhoeverWritesNext) {
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(other.onRegisterTarget());
  Fill(kLimit);
  ASSERT_TRUE(Open());
  other.writeLog(tarn::INFO, "", "", "", "", "", "", "of the other", nullptr, 0, true);
  Write("of the one");
  Close();
  other.onUnregisterTarget();
  ASSERT_EQ(Messages().size(), 8U);
  EXPECT_EQ(Messages()[6], "of the other");
  EXPECT_EQ(Messages()[7], "of the one");
}

TEST_F(LogTargetSegmentsTest, HeaderCanBeWrittenByHand) {
  ASSERT_TRUE(Open());
  tarn::stLogHeader alone{"begin", {{"a: ", "%d %s"}}, "", false};
  EXPECT_TRUE(target_.logHeader(tarn::ERROR, "s", "d", "sd", "c", &alone, true));
  EXPECT_THAT(Messages(), ElementsAre("begin", "a: %d %s"));
  EXPECT_THAT(Lines()[0], testing::HasSubstr(" | [ERROR] | s | d | sd | c |  |  | "));
  EXPECT_TRUE(target_.logHeader(tarn::DEBUG, "s", "d", "sd", "c", &alone, true));
  EXPECT_EQ(Lines().size(), 2U);  // below the target's level
  ASSERT_TRUE(target_.cleanFile());
  ASSERT_TRUE(target_.onRegisterTarget());
  tarn::stLogHeader merged{"", {{"Bit: ", "many"}}, "end", true};
  EXPECT_TRUE(target_.logHeader(tarn::INFO, "", "", "", "", &merged, true));
  EXPECT_TRUE(target_.logHeader(tarn::INFO, "", "", "", "", nullptr, true));
  Close();
  ASSERT_EQ(Messages().size(), 12U);
  for (const std::size_t block : {0U, 6U}) {
    EXPECT_EQ(Messages()[block], std::string(78, '*'));
    EXPECT_EQ(Messages()[block + 1], "Bit: many");
    EXPECT_EQ(Messages()[block + 5], "end");
  }
}

TEST_F(LogTargetSegmentsTest, CopyOfTheSameSecondIsNotOverwritten) {
  target_.setSegmentLimitsForTests(1, 900);
  for (const char* const content : {"first\n", "second\n", "third\n"}) {
    WriteFile(path_, content);
    ASSERT_TRUE(Open());
    Close();
  }
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-07_002.log")), "second\n");
  EXPECT_EQ(ReadFile(At("test 2026-11-15 21-05-07_003.log")), "third\n");
}

TEST_F(LogTargetSegmentsTest, AllCopiesStayWithTheMarker) {
  target_.setSegmentLimitsForTests(1, 900);
  WriteFile(At("pvx.trace"), "keeplogs");
  WriteFile(At("test of old"), "");
  for (int i = 0; i < 20; ++i, g_now += 86400) {
    WriteFile(path_, "content\n");
    ASSERT_TRUE(Open());
    Close();
  }
  EXPECT_EQ(Names().size(), 23U);
}

TEST_F(LogTargetSegmentsTest, OldCopiesGoWithTheRotation) {
  for (const char* const name :
       {"test 2026-11-10 09-00-00.log", "test 2026-11-14 10-00-00.log",
        "test 2026-11-15 08-00-00.log", "Other.log", "testextra.txt", "testfolder/file"}) {
    std::filesystem::create_directories(std::filesystem::path(At(name)).parent_path());
    WriteFile(At(name), name);
  }
  WriteFile(At("pvx.trace"), "keeplogs\n");
  Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy, "test 2026-11-15 08-00-00.log",
                                            "Other.log", "pvx.trace", "testfolder"));
  EXPECT_THAT(ReadFile(At("testfolder/file")), "");
  Close();
}

TEST_F(LogTargetSegmentsTest, LinksAndPipesAreRemovedThemselves) {
  const TemporaryFolder outside;
  WriteFile(outside.path() + "/file", "kept");
  std::filesystem::create_directory_symlink(outside.path(), At("test_folder_link"));
  std::filesystem::create_symlink(outside.path() + "/file", At("test_link"));
  ASSERT_EQ(mkfifo(At("test_pipe").c_str(), 0600), 0);
  if (geteuid() == 0) {
    ASSERT_EQ(mknod(At("test_device").c_str(), S_IFCHR | 0600, makedev(1, 3)), 0);
  }
  Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
  EXPECT_EQ(ReadFile(outside.path() + "/file"), "kept");
  Close();
}

TEST_F(LogTargetSegmentsTest, NothingIsRemovedForNoDays) {
  WriteFile(At("testextra.txt"), "");
  ASSERT_TRUE(Open());
  target_.removeLogFilesExceptLastN(0);
  target_.removeLogFilesExceptLastN(-1);
  EXPECT_TRUE(std::filesystem::exists(At("testextra.txt")));
  target_.removeLogFilesExceptLastN(1);
  EXPECT_FALSE(std::filesystem::exists(At("testextra.txt")));
  EXPECT_TRUE(std::filesystem::exists(path_));
  Close();
}

TEST_F(LogTargetSegmentsTest, FolderInThePlaceOfTheCopyKeepsTheFile) {
  std::filesystem::create_directory(At(kCopy));
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  EXPECT_TRUE(Text() == content);
  Write("x");
  Close();
  EXPECT_EQ(Messages().back(), "x");
  EXPECT_THAT(Names(), UnorderedElementsAre("test.log", kCopy));
}

TEST_F(LogTargetSegmentsTest, LinkInThePlaceOfACopyIsNotFollowed) {
  const TemporaryFolder outside;
  WriteFile(outside.path() + "/file", "kept");
  std::filesystem::create_symlink(outside.path() + "/file", At(kCopy));
  std::filesystem::create_symlink(outside.path() + "/file", tarn::UnfinishedCopy(path_));
  const std::string content = Fill(kLimit);
  ASSERT_TRUE(Open());
  Close();
  EXPECT_EQ(ReadFile(outside.path() + "/file"), "kept");
  EXPECT_TRUE(ReadFile(At("test 2026-11-15 21-05-07_002.log")) == content);
}

TEST_F(LogTargetSegmentsTest, FileWithoutAnExtensionIsNotRotated) {
  ASSERT_TRUE(target_.setLogFile("name", folder_.path().c_str()));
  for (const char* const hour : {"01", "02", "03"})
    WriteFile(At("name 2026-11-15 " + std::string(hour) + "-00-00.log"), "");
  WriteFile(At("name"), std::string(kLimit, '\n'));
  ASSERT_TRUE(core_->registerTarget(&target_));
  Close();
  EXPECT_EQ(std::filesystem::file_size(At("name")), static_cast<std::uintmax_t>(kLimit));
  EXPECT_TRUE(std::filesystem::remove(At("name")));
}

TEST_F(LogTargetSegmentsTest, CopyThatIsCutShortKeepsTheFile) {
  if (!CanUnshare(CLONE_NEWNS)) GTEST_SKIP() << "this system does not allow namespaces";
  ProcessPool pool;
  pool.Start([this] {
    if (!Unshare(CLONE_NEWNS) || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=15m") != 0) {
      return false;
    }
    const std::string content = Fill(kLimit);
    const bool opened = Open();
    EXPECT_TRUE(Text() == content);
    EXPECT_THAT(Names(), ElementsAre("test.log"));
    Write("x");
    EXPECT_THAT(Lines().back(), EndsWith(" | x"));
    Close();
    return opened && !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(LogTargetSegmentsTest, HeaderComesBeforeTheNextLineOfTheLocksHolderToo) {
  ASSERT_TRUE(Open());
  ASSERT_TRUE(target_.cleanFile());
  target_.setSegmentLimitsForTests(1, 900);
  WriteFile(path_, "content\n");
  EXPECT_TRUE(target_.SegmentLogFile(true));
  target_.writeLog(tarn::INFO, "", "", "", "", "", "", "x", nullptr, 0, false);
  EXPECT_EQ(Messages().size(), 7U);
  EXPECT_EQ(Messages().back(), "x");
  Write("y");
  Close();
  EXPECT_EQ(Messages().size(), 8U);
}

TEST_F(LogTargetSegmentsTest, HeaderThatIsWrittenByHandIsTheOneThatIsDue) {
  for (const bool use_lock : {false, true}) {
    target_.setSegmentLimitsForTests(1, 900);
    ASSERT_TRUE(Open());
    WriteFile(path_, "content\n");
    EXPECT_TRUE(target_.SegmentLogFile(true));
    target_.logHeader(tarn::INFO, "", "", "", "", nullptr, use_lock);
    Write("x");
    Close();
    EXPECT_EQ(Messages().size(), 7U) << use_lock;
    std::filesystem::remove(path_);
  }
}

TEST_F(LogTargetSegmentsTest, HeaderStaysDueFromOneRegistrationToTheNext) {
  Fill(kLimit);
  ASSERT_TRUE(Open());
  Close();
  ASSERT_TRUE(core_->registerTarget(&target_));
  Write("x");
  Close();
  EXPECT_EQ(Messages().size(), 7U);
  EXPECT_TRUE(LockObjects(path_, LockObjects::Keep{}).gone());
}

TEST_F(LogTargetSegmentsTest, HeaderStaysDueWhenAnotherDoesNotWriteIt) {
  tarn::LogTargetDefault warnings("warnings");
  warnings.setLogLevel(tarn::WARN);
  tarn::LogTargetDefault broken("broken");
  for (tarn::LogTargetDefault* const target : {&warnings, &broken}) {
    ASSERT_TRUE(target->setLogFile("test.log", folder_.path().c_str()));
    ASSERT_TRUE(target->onRegisterTarget());
  }
  broken.WriteStream(nullptr);
  Fill(kLimit);
  ASSERT_TRUE(Open());
  for (tarn::LogTargetDefault* const target : {&warnings, &broken})
    target->writeLog(tarn::WARN, "", "", "", "", "", "", "of another", nullptr, 0, true);
  Write("x");
  Close();
  warnings.onUnregisterTarget();
  broken.onUnregisterTarget();
  EXPECT_EQ(Messages().size(), 8U);
  EXPECT_EQ(Messages().front(), "of another");
  EXPECT_EQ(Messages().back(), "x");
}

class CountingTarget : public tarn::LogTargetDefault {
 public:
  using tarn::LogTargetDefault::LogTargetDefault;
  bool writeLog(tarn::Log_Level /*level*/, const char* /*sessionId*/, const char* /*domain*/,
                const char* /*subDomain*/, const char* /*component*/, const char* /*detail1*/,
                const char* /*detail2*/, const char* /*format*/, va_list /*args*/,
                unsigned long long /*timestampMs*/, bool /*useLock*/) override
      TARN_PRINTF_METHOD(9, 0) {
    ++lines;
    return true;
  }
  int lines = 0;
};

TEST_F(LogTargetSegmentsTest, HeaderLinesAreOrdinaryLines) {
  CountingTarget target("counting");
  target.logHeader(tarn::INFO, "", "", "", "", nullptr, false);
  EXPECT_EQ(target.lines, 6);
}

TEST_F(LogTargetSegmentsTest, FileThatTookThePlaceOfTheOpenOneIsLeftToItsOwnWriters) {
  target_.setSegmentLimitsForTests(1, 0);
  ASSERT_TRUE(Open());
  Write("x");
  std::filesystem::rename(path_, At("moved.log"));
  WriteFile(path_, "of another program\n");
  Write("y");
  Close();
  EXPECT_EQ(Text(), "of another program\n");
  EXPECT_EQ(ReadLines(At("moved.log")).size(), 2U);
}

// What a process leaves that is killed between two steps of a rotation.
class InterruptedRotationTest : public LogTargetSegmentsTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(marks_.attach(path_, LockObjects::kProject));
    content_ = Fill(1000);
  }
  void TearDown() override {
    Close();
    EXPECT_EQ(marks_.emptying().size, 0U);
  }

  // The copy is complete, and has that name.
  void MakeCopy(const std::string& path) {
    WriteFile(path, content_);
    struct stat attributes {};
    ASSERT_EQ(stat(path.c_str(), &attributes), 0);
    marks_.setEmptying({content_.size(), attributes.st_ino});
  }

  tarn::LogFileMarks marks_;
  std::string content_;
};

TEST_F(InterruptedRotationTest, FileIsEmptiedThatHasItsCopy) {
  MakeCopy(At(kCopy));
  Write("x");
  EXPECT_EQ(Messages().size(), 7U);  // the header and the line
  EXPECT_EQ(Messages().back(), "x");
}

TEST_F(InterruptedRotationTest, FileThatWasEmptiedGetsItsHeader) {
  MakeCopy(At(kCopy));
  WriteFile(path_, "");
  Write("x");
  EXPECT_EQ(Messages().size(), 7U);
}

TEST_F(InterruptedRotationTest, CopyWithoutItsNameDoesNotCount) {
  MakeCopy(tarn::UnfinishedCopy(path_));
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
  EXPECT_THAT(Names(), ElementsAre("test.log"));
}

TEST_F(InterruptedRotationTest, CopyThatIsGoneDoesNotCount) {
  MakeCopy(At(kCopy));
  std::filesystem::remove(At(kCopy));
  WriteFile(At("test 2026-11-15 21-05-08.log"), "another\n");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
}

TEST_F(InterruptedRotationTest, CopyUnderTheNameOfALinkDoesNotCount) {
  const TemporaryFolder elsewhere;
  std::filesystem::create_symlink(path_, elsewhere.path() + "/alias.log");
  MakeCopy(elsewhere.path() + "/.alias.log.rotating");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size()), content_);
}

TEST_F(InterruptedRotationTest, FileThatWasWrittenToStaysAsItIs) {
  MakeCopy(At(kCopy));
  WriteFile(path_, content_ + "more\n");
  Write("x");
  EXPECT_EQ(Text().substr(0, content_.size() + 5), content_ + "more\n");
}

TEST_F(InterruptedRotationTest, IsFinishedByTheNextTarget) {
  MakeCopy(At(kCopy));
  tarn::LogTargetDefault other("other");
  ASSERT_TRUE(other.setLogFile("test.log", folder_.path().c_str()));
  ASSERT_TRUE(other.onRegisterTarget());
  EXPECT_EQ(Text(), "");
  other.onUnregisterTarget();
}

}  // namespace
