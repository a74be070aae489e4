#pragma once

#include <sys/types.h>
#include <functional>

// A process that the test steps from one entry or return of a system call to the next. The process
// affects other processes only in system calls, so nothing between two stops matters. The test
// program must have one thread, and must not wait for any child of an unspecified identifier.
class SteppedProcess {
 public:
  enum class State { kStopped, kBusy, kGood, kFailed };

  // Creates the process, which stops right before `body`.
  explicit SteppedProcess(const std::function<bool()>& body);
  SteppedProcess(const SteppedProcess&) = delete;
  SteppedProcess& operator=(const SteppedProcess&) = delete;
  ~SteppedProcess();

  // Continues to the next stop. Returns kBusy when the process waits for another process in a call;
  // the next Step() checks again. Returns kGood or kFailed when `body` has returned true or false.
  State Step();

  // Takes that many steps, or fewer if the process ends or waits.
  State Step(int steps);

  // Continues to the end. Returns kBusy when the process waits for another process; the next Run()
  // checks again.
  State Run();

  // Kills the process at its current stop.
  void Kill();

  pid_t pid() const { return pid_; }

 private:
  State Await(bool stops_count);
  bool Resume(int request);

  pid_t pid_;
  State state_ = State::kStopped;
};
