#include "logging/retention.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

const tarn::LogFileNames kLog{"/logs", "CRN", "CRN.log"};

Names Gone(const Names& names, const Names& dates = {"2026-11-15", "2026-11-14"},
           const std::string& newest = "") {
  return tarn::SelectCopiesToRemove(names, kLog, newest, dates);
}

TEST(RetentionTest, PathHasThreeNames) {
  const tarn::LogFileNames names = tarn::NamesOf("/a.b/c/CRN.x.log");
  EXPECT_EQ(names.folder, "/a.b/c");
  EXPECT_EQ(names.base, "CRN.x");
  EXPECT_EQ(names.live, "CRN.x.log");
  EXPECT_EQ(tarn::NamesOf("/a.b/c").base, "c");
  EXPECT_EQ(tarn::NamesOf("/a.b/c").live, "c");
}

TEST(RetentionTest, TwoNewestCopiesOfTodayAndYesterdayStay) {
  EXPECT_THAT(Gone({"CRN 2026-11-10 09-00-00.log", "CRN 2026-11-15 09-00-00.log", "CRN.log",
                    "CRN 2026-11-14 10-00-00.log", "CRN 2026-11-15 08-00-00.log"}),
              ElementsAre("CRN 2026-11-10 09-00-00.log", "CRN 2026-11-14 10-00-00.log"));
}

TEST(RetentionTest, KeepsAllowedNumberOfCopies) {
  EXPECT_THAT(Gone({"CRN.log", "CRN 2026-11-14 10-00-00.log", "CRN 2026-11-15 08-00-00.log"}),
              IsEmpty());
  EXPECT_THAT(Gone({}), IsEmpty());
}

TEST(RetentionTest, RemovesCopiesOfOneSecondInOrder) {
  EXPECT_THAT(Gone({"CRN.log", "CRN 2026-11-15 08-00-00_002.log", "CRN 2026-11-15 08-00-00.log",
                    "CRN 2026-11-15 08-00-00_010.log", "CRN 2026-11-15 08-00-01.log"}),
              ElementsAre("CRN 2026-11-15 08-00-00.log", "CRN 2026-11-15 08-00-00_002.log"));
}

TEST(RetentionTest, RemovesOtherNamesThatBeginWithBase) {
  EXPECT_THAT(
      Gone({"CRNextra.txt", "CRN", "CRN.log.gz", "CRN.trace", "CRN 2026-11-16 00-00-00.log",
            "CRN 2026-11-1", "CRN2026-11-15", "CRN\n2026-11-15", "CRN/CRN.log"}),
      ElementsAre("CRNextra.txt", "CRN", "CRN.log.gz", "CRN.trace", "CRN 2026-11-16 00-00-00.log",
                  "CRN 2026-11-1", "CRN2026-11-15", "CRN\n2026-11-15", "CRN/CRN.log"));
}

TEST(RetentionTest, KeepsNamesThatDoNotBeginWithBase) {
  EXPECT_THAT(Gone({"Other.log", "crn.log", "CR", ".CRN.log", " CRN 2026-11-10.log", "a/CRN.old",
                    "Other 2026-11-10 09-00-00.log", "pvx.trace", "\nCRN"}),
              IsEmpty());
}

TEST(RetentionTest, KeepsOnlyGivenDates) {
  EXPECT_THAT(Gone({"CRN 2026-11-15 a", "CRN 2026-11-14 a"}, {"2026-11-15"}),
              ElementsAre("CRN 2026-11-14 a"));
}

TEST(RetentionTest, KeepsLiveFileThatSortsFirst) {
  const tarn::LogFileNames log{"/logs", "CRN", "CRN"};
  EXPECT_THAT(tarn::SelectCopiesToRemove(
                  {"CRN", "CRN 2026-11-15 a", "CRN 2026-11-15 b", "CRN 2026-11-15 c"}, log, "",
                  {"2026-11-15", "2026-11-14"}),
              ElementsAre("CRN 2026-11-15 a"));
}

TEST(RetentionTest, SortsByBytes) {
  EXPECT_THAT(Gone({"CRN.log", "CRN 2026-11-15 \xff", "CRN 2026-11-15 a", "CRN 2026-11-15 Z"}),
              ElementsAre("CRN 2026-11-15 Z"));
}

TEST(RetentionTest, KeepsNewestCopyRegardlessOfName) {
  const Names dates{"2026-11-15", "2026-11-14"};
  EXPECT_THAT(Gone({"CRN.log", "CRN 2026-11-15 01", "CRN 2026-11-15 02", "CRN 2026-11-15 03"},
                   dates, "CRN 2026-11-15 01"),
              ElementsAre("CRN 2026-11-15 02"));
  EXPECT_THAT(
      Gone({"CRN.log", "CRN 2026-11-01 01", "CRN 2026-11-02 01"}, dates, "CRN 2026-11-01 01"),
      ElementsAre("CRN 2026-11-02 01"));
}

}  // namespace
