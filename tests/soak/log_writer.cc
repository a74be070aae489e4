// Writes numbered lines to the log in the home folder until SIGTERM, like another program of the
// suite. Some lines contain secrets. log_lines.py has the same texts.
//
//   soak_log_writer WRITER PROGRESS_FILE LINES_PER_SECOND
//
// PROGRESS_FILE contains the number of the last line whose call has returned, as 8 bytes.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "logging/log_target_default.h"
#include "logging/logger.h"
#include "logging/logging_core.h"
#include "tests/stress/numbered_line.h"

namespace {

constexpr char kIdentifier[] = "soak";
constexpr long kMaxWriters = 1000000;
constexpr long kMaxText = 3900;  // with a secret, still shorter than the longest message
constexpr long kPasswordEvery = 20;
constexpr long kTokenEvery = 50;
constexpr long kNanoseconds = 1000000000;

volatile std::sig_atomic_t g_ended = 0;

void End(int /*signal*/) { g_ended = 1; }

// Returns null if the file cannot be mapped.
std::atomic<std::uint64_t>* MapProgress(const char* path) {
  const int file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file == -1 || ftruncate(file, sizeof(std::uint64_t)) != 0) return nullptr;
  void* const memory =
      mmap(nullptr, sizeof(std::uint64_t), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);  // the mapping stays
  return memory == MAP_FAILED ? nullptr : static_cast<std::atomic<std::uint64_t>*>(memory);
}

std::string TextOf(const NumberedLine& line) {
  const std::string number = std::to_string(line.number);
  if (line.number % kTokenEvery == 0) return line.message() + " x.eyJSECRET" + number;
  if (line.number % kPasswordEvery == 0) {
    return "<Password>SECRET" + number + "</Password>" + line.message();
  }
  return line.message();
}

// Writes the number to its own column, because the message may be masked.
void Write(tarn::Logger& logger, const NumberedLine& line) {
  logger.log(tarn::INFO, std::to_string(line.number).c_str(), line.detail2().c_str(), "%s",
             TextOf(line).c_str());
}

// Waits until the next line is due. After a stop, the process does not catch up.
void WaitForNext(timespec& due, long interval) {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);  // cannot fail for this clock
  if (now.tv_sec - due.tv_sec > 1) due = now;
  due.tv_nsec += interval;
  if (due.tv_nsec >= kNanoseconds) {
    due.tv_nsec -= kNanoseconds;
    ++due.tv_sec;
  }
  // If a signal ends the wait, the next line is early.
  clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &due, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  const long writer = argc == 4 ? std::strtol(argv[1], nullptr, 10) : 0;
  const long rate = argc == 4 ? std::strtol(argv[3], nullptr, 10) : 0;
  if (writer < 1 || writer > kMaxWriters || rate <= 1 || rate > kNanoseconds) {
    std::fputs("usage: soak_log_writer WRITER PROGRESS_FILE LINES_PER_SECOND\n", stderr);
    return 2;
  }
  std::atomic<std::uint64_t>* const progress = MapProgress(argv[2]);
  if (!progress || std::signal(SIGTERM, End) == SIG_ERR) {
    std::perror(argv[2]);
    return 1;
  }

  tarn::LogTargetDefault target(kIdentifier);
  target.setLogLevel(tarn::INFO);
  tarn::LoggingCore& core = *tarn::LoggingCore::getInstance();
  if (!target.setLogFile("CRN.log", "") || !core.registerTarget(&target)) {
    std::fputs("soak_log_writer: the log cannot be opened\n", stderr);
    return 1;
  }
  NumberedLine line{static_cast<int>(writer), 0, kMaxText};
  tarn::Logger logger(kIdentifier);
  logger.setSessionId(tarn::LoggingCore::generateSessionId().c_str());
  logger.setDomain(line.domain().c_str());
  logger.setSubDomain(line.sub_domain().c_str());
  logger.setComponent(line.component().c_str());

  timespec due{};
  while (!g_ended) {
    ++line.number;
    Write(logger, line);
    progress->store(static_cast<std::uint64_t>(line.number));
    WaitForNext(due, kNanoseconds / rate);
  }
  core.unregisterTarget(&target);
  return 0;
}
