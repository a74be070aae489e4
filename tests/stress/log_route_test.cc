#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "helper/application_context.h"
#include "helper/log_message.h"
#include "logging/log_level.h"
#include "tests/stress/stress_options.h"
#include "tests/support/lock_objects.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int kThreads = 8;

std::string Module(int thread) { return "Module" + std::to_string(thread); }
std::string Component(int thread) { return "Component" + std::to_string(thread); }
std::string Detail(int thread) { return "detail" + std::to_string(thread); }

void LogNumbers(int thread, long lines) {
  const std::string module = Module(thread);
  const std::string component = Component(thread);
  const std::string detail = Detail(thread);
  for (long i = 1; i <= lines; ++i) {
    logMessage(tarn::INFO, module.c_str(), component.c_str(), "", detail.c_str(),
               "message %ld of %d", i, thread);
  }
}

std::vector<std::string> Split(const std::string& line) {
  const std::string separator = " | ";
  std::vector<std::string> columns;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = line.find(separator, begin)) != std::string::npos;
       begin = end + separator.size())
    columns.push_back(line.substr(begin, end - begin));
  columns.push_back(line.substr(begin));
  return columns;
}

// Returns all columns between the level and the thread's number, and the message.
std::vector<std::string> Expected(int thread, long number) {
  return {std::to_string(getpid()),
          "HXPL",
          Module(thread),
          Component(thread),
          Detail(thread),
          Module(thread),
          "message " + std::to_string(number) + " of " + std::to_string(thread)};
}

// Reads the file that the threads wrote. Returns an empty string if all lines are complete and no
// columns are mixed.
class RouteCheck {
 public:
  std::string Read(const std::string& path, long lines) {
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
      if (line.find("*** ") != std::string::npos) continue;  // the header
      if (!Take(line)) return "not the next line of any thread: " + line;
    }
    for (int thread = 0; thread < kThreads; ++thread) {
      if (numbers_[thread] != lines) {
        return "thread " + std::to_string(thread) + " has " + std::to_string(numbers_[thread]) +
               " lines";
      }
    }
    return {};
  }

 private:
  bool Take(const std::string& line) {
    std::vector<std::string> columns = Split(line);
    if (columns.size() != 10) return false;
    const std::string number = columns[8];
    columns.erase(columns.begin() + 8);
    columns.erase(columns.begin(), columns.begin() + 2);
    for (int thread = 0; thread < kThreads; ++thread) {
      if (columns != Expected(thread, numbers_[thread] + 1)) continue;
      if (++numbers_[thread] == 1) ids_[thread] = number;
      return ids_[thread] == number;
    }
    return false;
  }

  long numbers_[kThreads] = {};
  std::string ids_[kThreads];
};

TEST(LogRouteStressTest, ColumnsOfThreadsAreNeverMixed) {
  const long lines = FullSize() ? 20000 : 200;
  const TemporaryFolder home;
  ASSERT_EQ(setenv("HOME", home.path().c_str(), 1), 0);
  const std::string logs = home.path() + "/Library/Logs/Cirrane/CRN";
  std::filesystem::create_directories(logs);
  const LockObjects objects(logs + "/CRN.log");
  ApplicationContext::instance();

  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back(LogNumbers, i, lines);
  for (std::thread& thread : threads)
    thread.join();
  ApplicationContext::destroy();

  EXPECT_EQ(RouteCheck().Read(logs + "/CRN.log", lines), "");
  EXPECT_TRUE(objects.gone());
}

}  // namespace
