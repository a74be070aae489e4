#include "bench/logging/worker.h"

#include <pthread.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <new>
#include <thread>
#include <vector>

#include "bench/logging/contender.h"
#include "bench/logging/line.h"

namespace {

constexpr int kMaxWorkers = 16;

struct Slot {  // nanoseconds
  long long started = 0;
  long long ended = 0;
  long long processor = 0;
};

// Memory that all processes share.
struct Board {
  pthread_barrier_t barrier{};
  std::atomic<bool> failed{false};
  Slot slots[kMaxWorkers];
};

long long Read(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<long long>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

long long Now() { return Read(CLOCK_MONOTONIC); }

// Returns the user and system time of the calling thread, with a finer resolution than getrusage()
// on some kernels.
long long ProcessorTime() { return Read(CLOCK_THREAD_CPUTIME_ID); }

void RunWorker(Contender& contender, const Work& work, Board& board, Slot& slot) {
  const std::string name = PageName();
  pthread_barrier_wait(&board.barrier);
  if (board.failed) return;
  const long long processor = ProcessorTime();
  slot.started = Now();
  contender.Log(name, work.lines);
  slot.ended = Now();
  slot.processor = ProcessorTime() - processor;
}

void RunProcess(Contender& contender, const Work& work, Board& board, Slot* slots) {
  if (!contender.Open(work.path))
    board.failed = true;  // continue, because the others wait at the barrier
  if (work.threads == 1) {
    RunWorker(contender, work, board, *slots);
  } else {
    std::vector<std::thread> threads;
    threads.reserve(static_cast<std::size_t>(work.threads));
    for (int i = 0; i < work.threads; ++i) {
      threads.emplace_back([&, slot = slots + i] { RunWorker(contender, work, board, *slot); });
    }
    for (std::thread& thread : threads)
      thread.join();
  }
  contender.Close();
}

void EndAll(const std::vector<pid_t>& children) {
  for (const pid_t child : children)
    kill(child, SIGKILL);
}

// Returns whether all children succeeded. Kills the others when one fails, because they may wait
// for it at the barrier.
bool AwaitAll(std::vector<pid_t> children) {
  bool good = true;
  while (!children.empty()) {
    int status = 0;
    const pid_t ended = wait(&status);
    if (ended == -1) return false;  // the children cannot be awaited
    children.erase(std::remove(children.begin(), children.end(), ended), children.end());
    if (status == 0) continue;
    good = false;
    EndAll(children);
  }
  return good;
}

bool RunProcesses(Contender& contender, const Work& work, Board& board) {
  std::vector<pid_t> children;
  for (int i = 0; i < work.processes; ++i) {
    const pid_t child = fork();
    if (child == 0) {
      RunProcess(contender, work, board,
                 board.slots + static_cast<std::ptrdiff_t>(i) * work.threads);
      _exit(board.failed ? 1 : 0);
    }
    if (child == -1) {
      EndAll(children);
      AwaitAll(children);
      return false;
    }
    children.push_back(child);
  }
  return AwaitAll(children);
}

Cost Sum(const Slot* slots, int count) {
  Slot all = slots[0];
  for (const Slot* slot = slots + 1; slot != slots + count; ++slot) {
    all.started = std::min(all.started, slot->started);
    all.ended = std::max(all.ended, slot->ended);
    all.processor += slot->processor;
  }
  return {static_cast<double>(all.ended - all.started) / 1e6,
          static_cast<double>(all.processor) / 1e6};
}

}  // namespace

bool Measure(Contender& contender, const Work& work, Cost& cost) {
  const int workers = work.processes * work.threads;
  void* memory = workers > kMaxWorkers ? MAP_FAILED
                                       : mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE,
                                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) {
    std::fputs("no memory for so many workers\n", stderr);
    return false;
  }
  Board& board = *new (memory) Board;
  pthread_barrierattr_t shared;
  pthread_barrierattr_init(&shared);
  pthread_barrierattr_setpshared(&shared, PTHREAD_PROCESS_SHARED);
  pthread_barrier_init(&board.barrier, &shared, static_cast<unsigned>(workers));
  const bool good = RunProcesses(contender, work, board);
  if (good) cost = Sum(board.slots, workers);
  if (!good) std::fputs("a worker failed\n", stderr);
  munmap(memory, sizeof(Board));
  return good;
}
