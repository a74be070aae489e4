// Tests messages whose formatting fails, with the C library's formatter and with a replacement.

#include <algorithm>
#include <cstdarg>
#include <cwchar>

#include "tests/logging/log_file.h"

namespace {

using Formatter = int (*)(char* buffer, std::size_t size);

// Null selects the C library's formatter.
Formatter g_formatter = nullptr;

}  // namespace

extern "C" {
int __real_vsnprintf(char* buffer, std::size_t size, const char* format, va_list args);
int __wrap_vsnprintf(char* buffer, std::size_t size, const char* format, va_list args) {
  return g_formatter ? g_formatter(buffer, size) : __real_vsnprintf(buffer, size, format, args);
}
}

namespace {

using Messages = std::vector<std::string>;

// Fills the stack with nonzero bytes where the next call has its variables.
__attribute__((noinline)) void FillStack() {
  volatile char bytes[1 << 15];
  for (volatile char& byte : bytes)
    byte = 'z';
}

class FormatFailureTest : public LogFileTest {
 protected:
  ~FormatFailureTest() override { g_formatter = nullptr; }

  // Bypasses the compiler's check of the format.
  void Log(const char* format, ...) {
    va_list args;
    va_start(args, format);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    target_->writeLog(tarn::INFO, "", "", "", "", "", "", format, args, 0, true);
#pragma GCC diagnostic pop
    va_end(args);
  }
};

TEST_F(FormatFailureTest, LonePercentSignEndsMessage) {
  ASSERT_TRUE(Open());
  Log("100%");
  Log("%");
  Close();
  EXPECT_EQ(Messages(), (::Messages{"100", ""}));
}

TEST_F(FormatFailureTest, InvalidCharacterEndsMessage) {
  constexpr wint_t kInvalid = 0xD800;
  ASSERT_TRUE(Open());
  Log("name=%s err %lc", "x", kInvalid);
  Log("%lc", kInvalid);
  Log("%s%lc", std::string(5000, 'x').c_str(), kInvalid);
  Log("%s", "next");
  Close();
  EXPECT_EQ(Messages(), (::Messages{"name=x err ", "", std::string(4094, 'x'), "next"}));
}

TEST_F(FormatFailureTest, FormatterThatWritesNothingLeavesMessageEmpty) {
  ASSERT_TRUE(Open());
  Log("%s", "text of the line before");
  g_formatter = [](char* /*buffer*/, std::size_t /*size*/) { return -1; };
  Log("%s", "x");
  Close();
  EXPECT_EQ(Messages(), (::Messages{"text of the line before", ""}));
}

TEST_F(FormatFailureTest, FormatterThatDoesNotTerminateFillsMessage) {
  ASSERT_TRUE(Open());
  g_formatter = [](char* buffer, std::size_t size) {
    std::fill_n(buffer, size, 'y');
    return -1;
  };
  FillStack();
  Log("%s", "x");
  Close();
  EXPECT_EQ(Messages(), ::Messages{std::string(4095, 'y')});
}

}  // namespace
