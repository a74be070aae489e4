#include "tests/stress/log_check.h"

#include <gtest/gtest.h>
#include <fstream>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "logging/log_header.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr long kMaxText = 40;

std::string Whole(int writer, long number, const std::string& thread = "77") {
  const NumberedLine line{writer, number, kMaxText};
  return "11/15/26 21:05:07:042 | " + line.Head(100 + writer) + thread + line.Tail();
}

// Checks a file with given bytes. Writer 0 lives and has written two lines; writer 1 was killed
// after its first line.
class LogCheckTest : public testing::Test {
 protected:
  bool Read(const std::string& content) {
    const std::string path = folder_.path() + "/a.log";
    std::ofstream(path, std::ios::binary) << content;
    return check_.Read(path);
  }

  const std::string first_ = Whole(0, 1) + "\n";
  const std::string second_ = Whole(0, 2) + "\n";
  const std::string killed_ = Whole(1, 1) + "\n";
  const std::string more_ = Whole(1, 2);
  TemporaryFolder folder_;
  LogCheck check_{{WriterRecord{100, 2, false}, WriterRecord{101, 1, true}}, kMaxText};
};

TEST_F(LogCheckTest, LinesOfSeveralWritersMayAlternate) {
  EXPECT_TRUE(Read(first_ + killed_ + second_)) << check_.problem();
  EXPECT_EQ(check_.lines(), 3);
  EXPECT_EQ(check_.torn(), 0);
}

TEST_F(LogCheckTest, KilledWriterMayHaveOneMoreWholeLine) {
  EXPECT_TRUE(Read(first_ + killed_ + second_ + more_ + "\n")) << check_.problem();
}

TEST_F(LogCheckTest, KilledWriterMayHavePartialLine) {
  for (std::size_t length = 1; length <= more_.size(); ++length) {
    LogCheck check({WriterRecord{100, 2, false}, WriterRecord{101, 1, true}}, kMaxText);
    std::swap(check_, check);
    EXPECT_TRUE(Read(first_ + killed_ + more_.substr(0, length) + "\n" + second_))
        << check_.problem();
    EXPECT_EQ(check_.torn(), length < more_.size() ? 1 : 0);
  }
}

TEST_F(LogCheckTest, PartialLineMayEndFile) {
  EXPECT_TRUE(Read(first_ + killed_ + second_ + more_)) << check_.problem();
  EXPECT_EQ(check_.torn(), 1);
}

TEST_F(LogCheckTest, CountsEmptyLineSeparately) {
  EXPECT_TRUE(Read(first_ + killed_ + "\n" + second_)) << check_.problem();
  EXPECT_EQ(check_.torn(), 0);
  EXPECT_EQ(check_.empty(), 1);
}

TEST_F(LogCheckTest, RefusesEverythingElse) {
  const std::string partial = more_.substr(0, more_.size() / 2);
  const std::vector<std::string> contents = {
      first_ + killed_,                                 // the second is missing
      first_ + second_,                                 // an acknowledged line is missing
      second_ + first_ + killed_,                       // not in order
      first_ + first_ + second_ + killed_,              // twice
      first_ + second_ + Whole(0, 3) + "\n" + killed_,  // never acknowledged
      first_ + killed_ + partial + second_,             // not on a line of its own
      first_ + killed_ + partial + "\n" + partial + "\n" + second_,  // two partial lines
      first_ + killed_ + partial + "\n" + more_ + "\n" + second_,    // continues after it
      first_ + partial + "\n" + killed_ + second_,                   // partial before its last line
      first_ + Whole(0, 2).substr(0, 50) + "\n" + killed_,           // partial, but not killed
      first_ + killed_ + Whole(0, 2),                                // without its end
      first_ + killed_ + "\n\n" + second_,          // more empty lines than killed writers
      first_ + Whole(0, 2, "78") + "\n" + killed_,  // another thread
      first_ + second_ + killed_ + "text\n",
      first_ + second_ + Whole(2, 1) + "\n" + killed_,  // of an unknown writer
  };
  for (const std::string& content : contents) {
    LogCheck check({WriterRecord{100, 2, false}, WriterRecord{101, 1, true}}, kMaxText);
    std::swap(check_, check);
    EXPECT_FALSE(Read(content)) << content;
    EXPECT_NE(check_.problem(), "");
  }
}

// Checks the file together with one copy.
class LogCheckCopiesTest : public LogCheckTest {
 protected:
  LogCheckCopiesTest() {
    for (const std::string& line : tarn::HeaderLines(tarn::DescribeSystem()))
      header_.push_back("11/15/26 21:05:07:042 | [INFO] | 101 | D1 | S1 | C1 |  |  | 77 | " + line +
                        "\n");
  }

  bool ReadBoth(const std::string& copy, const std::string& content) {
    const std::string path = folder_.path() + "/a.log";
    std::ofstream(folder_.path() + "/a 2026-11-15 21-05-07.log", std::ios::binary) << copy;
    std::ofstream(path, std::ios::binary) << content;
    return check_.ReadWithCopies(path);
  }

  // Returns that many lines of the header.
  std::string Header(std::size_t lines) const {
    return std::accumulate(header_.begin(), header_.begin() + static_cast<std::ptrdiff_t>(lines),
                           std::string());
  }

  std::vector<std::string> header_;
};

TEST_F(LogCheckCopiesTest, LinesContinueInNextFileAfterHeader) {
  EXPECT_TRUE(ReadBoth(first_ + killed_, Header(6) + second_)) << check_.problem();
  EXPECT_EQ(check_.lines(), 3);
  EXPECT_EQ(check_.copies(), 1);
}

TEST_F(LogCheckCopiesTest, KilledWriterMayLeavePartialHeader) {
  for (std::size_t lines = 0; lines <= 6; ++lines) {
    LogCheck check({WriterRecord{100, 2, false}, WriterRecord{101, 1, true}}, kMaxText);
    std::swap(check_, check);
    EXPECT_TRUE(ReadBoth(first_ + killed_, Header(lines) + Header(6) + second_))
        << lines << " " << check_.problem();
  }
}

TEST_F(LogCheckCopiesTest, HeaderIsWholeUniqueAndFirst) {
  const WriterRecord living{101, 1, false};
  const std::string head = Header(6);
  for (const auto& [copy, content] : std::vector<std::pair<std::string, std::string>>{
           {first_ + killed_, second_},                   // no header
           {first_ + killed_, Header(5) + second_},       // not whole
           {first_ + killed_, head + head + second_},     // twice
           {first_ + killed_, second_ + head},            // behind
           {head + first_ + killed_, second_},            // in the first file
           {first_ + killed_, head + killed_ + second_},  // a line is in both
           {first_, head + second_},                      // a line is missing
       }) {
    LogCheck check({WriterRecord{100, 2, false}, living}, kMaxText);
    std::swap(check_, check);
    EXPECT_FALSE(ReadBoth(copy, content)) << content;
  }
}

TEST_F(LogCheckTest, ReportsMissingFile) {
  EXPECT_FALSE(check_.Read(folder_.path() + "/none.log"));
}

}  // namespace
