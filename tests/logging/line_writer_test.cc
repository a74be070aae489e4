#include "logging/line_writer.h"

#include <gtest/gtest.h>
#include <ctime>
#include <thread>
#include <vector>

#include "platform/thread_id.h"
#include "tests/support/test_home.h"

namespace {

constexpr unsigned long long kTime = 1700000000123;

class LineWriter : public testing::Test {
 protected:
  LineWriter() { tzset(); }

  std::string Format(const char* message, unsigned long long timestamp = kTime) {
    std::string line;
    writer_.Format({timestamp, tarn::INFO, "s", "d", "sd", "c", "1", "2", message}, " | ", line);
    return line;
  }

  const ScopedVariable zone_{"TZ", "UTC"};
  tarn::LineWriter writer_;
};

TEST_F(LineWriter, PutsTimeAndThreadIntoTheirColumns) {
  EXPECT_EQ(Format("text"), "11/14/23 22:13:20:123 | [INFO] | s | d | sd | c | 1 | 2 | " +
                                std::to_string(platform::GetThreadId()) + " | text");
}

TEST_F(LineWriter, MasksElementsOnlyWhenNamed) {
  const std::string message = "<user>name</user>";
  EXPECT_NE(Format(message.c_str()).find("name"), std::string::npos);
  writer_.AddSecretElements({"user"});
  EXPECT_EQ(Format(message.c_str()).find("name"), std::string::npos);
}

TEST_F(LineWriter, RemembersSecondOfLastLine) {
  Format("text", 5999);
  EXPECT_EQ(writer_.last_log_time(), 5U);
  char time[tarn::LineWriter::kTimeSize];
  writer_.FormatTime(7000, time);
  EXPECT_EQ(writer_.last_log_time(), 7U);
}

// Two writers and several threads, each with its own seconds, for the thread sanitizer.
TEST_F(LineWriter, FormatsInSeveralThreadsAtOnce) {
  writer_.AddSecretElements({"user"});
  std::vector<std::thread> threads;
  for (unsigned thread = 0; thread < 4; ++thread) {
    threads.emplace_back([this, thread] {
      const std::string second = std::to_string(10 + thread);
      for (int i = 0; i < 1000; ++i) {
        const std::string line = Format("<user>name</user>", (10 + thread) * 1000ULL + 1);
        ASSERT_EQ(line.substr(0, 21), "01/01/70 00:00:" + second + ":001");
        ASSERT_EQ(line.substr(line.rfind('|')), "| <user>****</user>");
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
}

}  // namespace
