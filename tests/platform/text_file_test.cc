#include "platform/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>
#include <string>

#include "support/files.h"
#include "tests/support/descriptor_limit.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

namespace {

enum class Order { kLittle, kBig };

std::string Utf16(const std::u16string& units, Order order) {
  std::string bytes;
  for (const char16_t unit : units) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += order == Order::kLittle ? low : high;
    bytes += order == Order::kLittle ? high : low;
  }
  return bytes;
}

void ExpectText(const std::string& bytes, const std::string& expected) {
  std::string text = "before";
  EXPECT_TRUE(platform::DecodeText(bytes, text)) << testing::PrintToString(bytes);
  EXPECT_EQ(text, expected);
}

void ExpectNoText(const std::string& bytes) {
  std::string text = "before";
  EXPECT_FALSE(platform::DecodeText(bytes, text)) << testing::PrintToString(bytes);
  EXPECT_EQ(text, "before");
}

TEST(DecodeTextTest, KeepsUtf8Unchanged) {
  for (const char* const text :
       {"", "a", "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", "\xF4\x8F\xBF\xBF", "a\r\nb\n",
        "in the middle: \xEF\xBB\xBF", "\xEF\xBF\xBE"}) {
    ExpectText(text, text);
  }
}

TEST(DecodeTextTest, KeepsNulCharacters) {
  ExpectText(std::string("a\0b\0", 4), std::string("a\0b\0", 4));
  ExpectText(std::string("\xFF\xFE\0\0a\0", 6), std::string("\0a", 2));
}

TEST(DecodeTextTest, RemovesOneMark) {
  ExpectText("\xEF\xBB\xBF", "");
  ExpectText("\xEF\xBB\xBFtext", "text");
  ExpectText("\xEF\xBB\xBF\xEF\xBB\xBFtext", "\xEF\xBB\xBFtext");
  for (const Order order : {Order::kLittle, Order::kBig}) {
    ExpectText(Utf16(u"\uFEFF", order), "");
    ExpectText(Utf16(u"\uFEFF\uFEFFx", order), "\xEF\xBB\xBFx");
  }
}

TEST(DecodeTextTest, AcceptsAnyNumberOfMarks) {
  std::string marks;
  for (int i = 0; i < 300000; ++i)
    marks += "\xEF\xBB\xBF";
  ExpectText(marks, marks.substr(3));
}

TEST(DecodeTextTest, Utf16HasByteOrderOfItsMark) {
  for (const Order order : {Order::kLittle, Order::kBig}) {
    ExpectText(Utf16(u"\uFEFFa\u00E4\u20AC\U0001D11E", order),
               "a\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E");
  }
}

TEST(DecodeTextTest, Utf16WithoutMarkIsBigEndian) {
  // For Latin text the bytes would be valid UTF-8, with NUL characters.
  ExpectText(Utf16(u"\u00E4\u20AC", Order::kBig), "\xC3\xA4\xE2\x82\xAC");
  ExpectText(Utf16(u"\uE400\uAC20", Order::kLittle), "\xC3\xA4\xE2\x82\xAC");
}

TEST(DecodeTextTest, RejectsInvalidUtf8) {
  // Each string has an odd length, so that it is not valid UTF-16 either.
  for (const char* const bytes : {
           "\x80",               // a continuation byte without a lead byte
           "\xC3",               // truncated
           "ab\xE2\x82\x41",     // an incomplete character
           "\xC0\xAF\x41",       // an overlong form
           "\xE0\x80\xAF",       // another overlong form
           "\xED\xA0\x80",       // a surrogate
           "\xF4\x90\x80\x80x",  // beyond the last character
           "\xF8\x88\x80\x80\x80",
           "caf\xE9\x21",  // Latin-1
       }) {
    ExpectNoText(bytes);
  }
}

TEST(DecodeTextTest, RejectsUtf16OfOddLength) {
  for (const Order order : {Order::kLittle, Order::kBig}) {
    ExpectNoText(Utf16(u"\uFEFFab", order) + "x");
    ExpectNoText(Utf16(u"\uFEFF", order) + "x");
  }
  ExpectNoText("\xFF");
}

TEST(DecodeTextTest, RejectsUnpairedSurrogates) {
  const std::u16string high(1, 0xD834);
  const std::u16string low(1, 0xDD1E);
  for (const Order order : {Order::kLittle, Order::kBig}) {
    for (const std::u16string& units :
         {high, low, high + u"a", low + u"a", low + high, high + high + low, u"ab" + high}) {
      ExpectNoText(Utf16(u"\uFEFF" + units, order));
    }
  }
}

TEST(DecodeTextTest, DecodesLongTextCompletely) {
  // Has characters across the borders of blocks of any size.
  std::u16string units = u"\uFEFFx";
  std::string expected = "x";
  for (int i = 0; i < 100000; ++i) {
    units += u"\u20AC\U0001D11E";
    expected += "\xE2\x82\xAC\xF0\x9D\x84\x9E";
  }
  ExpectText(Utf16(units, Order::kLittle), expected);
  ExpectText(Utf16(units, Order::kBig), expected);
  ExpectText(expected, expected);
}

class ReadTextFileTest : public testing::Test {
 protected:
  void ExpectFailure(const std::string& path) {
    std::string text = "before";
    EXPECT_FALSE(platform::ReadTextFile(path, text));
    EXPECT_EQ(text, "before");
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
};

TEST_F(ReadTextFileTest, DecodesFile) {
  const std::string euro = "\xE2\x82\xAC";
  for (const std::string& bytes : {euro, Utf16(u"\uFEFF\u20AC", Order::kLittle)}) {
    WriteFile(path_, bytes);
    std::string text = "before";
    EXPECT_TRUE(platform::ReadTextFile(path_, text));
    EXPECT_EQ(text, euro);
  }
}

TEST_F(ReadTextFileTest, EmptyFileIsEmptyText) {
  WriteFile(path_, "");
  std::string text = "before";
  EXPECT_TRUE(platform::ReadTextFile(path_, text));
  EXPECT_EQ(text, "");
}

TEST_F(ReadTextFileTest, FollowsLinks) {
  WriteFile(path_, "text");
  std::filesystem::create_symlink(path_, folder_.path() + "/link");
  std::filesystem::create_symlink(folder_.path() + "/loop", folder_.path() + "/loop");
  std::string text;
  EXPECT_TRUE(platform::ReadTextFile(folder_.path() + "/link", text));
  EXPECT_EQ(text, "text");
  ExpectFailure(folder_.path() + "/loop");
}

TEST_F(ReadTextFileTest, ReturnsFalseForUndecodableFile) {
  WriteFile(path_, "\xFF");
  ExpectFailure(path_);
}

TEST_F(ReadTextFileTest, ReturnsFalseForUnreadableFile) {
  ExpectFailure("");
  ExpectFailure(path_);
  ExpectFailure(folder_.path());
  ExpectFailure(path_ + "/below");
  ExpectFailure("/dev/zero");
}

TEST_F(ReadTextFileTest, DoesNotBlockOnPipe) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  ExpectFailure(path_);
}

TEST_F(ReadTextFileTest, ReturnsFalseWithoutPermission) {
  WriteFile(path_, "secret");
  std::filesystem::permissions(path_, std::filesystem::perms(0));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  ProcessPool pool;
  pool.Start([this] {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0) return false;
    ExpectFailure(path_);
    return !HasFailure();
  });
  EXPECT_EQ(pool.WaitForAll(), "");
}

TEST_F(ReadTextFileTest, ReturnsFalseWithoutDescriptors) {
  WriteFile(path_, "text");
  const DescriptorLimit none(0);
  ExpectFailure(path_);
}

TEST_F(ReadTextFileTest, ReadsLargestFile) {
  WriteFile(path_, std::string(platform::kMaxTextFileSize, 'x'));
  std::string text;
  EXPECT_TRUE(platform::ReadTextFile(path_, text));
  EXPECT_EQ(text.size(), platform::kMaxTextFileSize);

  std::filesystem::resize_file(path_, platform::kMaxTextFileSize + 1);
  ExpectFailure(path_);
  // No machine has enough memory for this size.
  std::filesystem::resize_file(path_, std::uintmax_t{1} << 40);
  ExpectFailure(path_);
}

TEST_F(ReadTextFileTest, ReadsShrinkingFileUpToItsEnd) {
  constexpr std::size_t kLong = std::size_t{4} << 20;
  WriteFile(path_, std::string(kLong, 'x'));
  ProcessPool pool;
  const pid_t changer = pool.Start([this] {
    for (;;) {
      if (truncate(path_.c_str(), 1) != 0 || truncate(path_.c_str(), kLong) != 0) return false;
    }
  });
  for (int i = 0; i < 50; ++i) {
    std::string text;
    EXPECT_TRUE(platform::ReadTextFile(path_, text));
    EXPECT_GE(text.size(), 1U);
    EXPECT_LE(text.size(), kLong);
    EXPECT_EQ(text[0], 'x');
  }
  EXPECT_TRUE(pool.Kill(changer));
}

}  // namespace
