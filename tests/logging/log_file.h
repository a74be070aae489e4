#pragma once

#include <gtest/gtest.h>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "logging/logger.h"
#include "logging/logging_core.h"
#include "support/files.h"
#include "tests/support/limited_target.h"
#include "tests/support/lock_objects.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

// Provides a log file in a temporary folder and a target for it. Times are in UTC.
class LogFileTest : public testing::Test {
 protected:
  LogFileTest() { tzset(); }
  // Removes the objects that a target leaves for the next start, because the file of the next test
  // can have the same inode.
  ~LogFileTest() override {
    if (std::filesystem::exists(path_)) LockObjects(path_, LockObjects::Keep{}).Remove();
  }

  bool Open() {
    return target_->setLogFile("test.log", folder_.path().c_str()) &&
           core_->registerTarget(target_.get());
  }
  void Close() { core_->unregisterTarget(target_.get()); }

  // Replaces the target with one that checks the size after that many seconds.
  void UseLimits(long long segment_size, unsigned long long check_interval) {
    tarn::LogRotation::Limits limits;
    limits.segment_size = segment_size;
    limits.check_interval = check_interval;
    target_ = std::make_unique<LimitedTarget>("id", limits);
  }

// Passes no arguments, so the format is the text itself.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  // Passes the text directly to the target, not as a format.
  bool Write(const char* text, unsigned long long timestamp = 1700000000123) {
    return target_->writeLog(tarn::INFO, "s", "d", "sd", "c", "1", "2", text, nullptr, timestamp,
                             true);
  }
#pragma GCC diagnostic pop

  std::string Text() const { return ReadFile(path_); }
  std::vector<std::string> Lines() const { return ReadLines(path_); }
  // Returns the last column of each line.
  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const std::string& line : Lines())
      messages.push_back(line.substr(line.rfind(" | ") + 3));
    return messages;
  }

  const TestHome home_;
  const ScopedVariable zone_{"TZ", "UTC"};
  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/test.log";
  tarn::LoggingCore* const core_ = tarn::LoggingCore::getInstance();
  std::unique_ptr<tarn::LogTargetDefault> target_ = std::make_unique<tarn::LogTargetDefault>("id");
  tarn::Logger logger_{"id"};
};
