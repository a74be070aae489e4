#pragma once

#include <sys/types.h>
#include <functional>

// A process that goes from one entry or return of a system call to the next, as the test tells it.
// All that it does to others happens in system calls, so nothing between two stops matters. The
// test program has one thread, and no other children meanwhile that are waited for as a whole.
class SteppedProcess {
 public:
  enum class State { kStopped, kBusy, kGood, kFailed };

  // Stops right before `body`.
  explicit SteppedProcess(const std::function<bool()>& body);
  SteppedProcess(const SteppedProcess&) = delete;
  SteppedProcess& operator=(const SteppedProcess&) = delete;
  ~SteppedProcess();

  // Goes to the next stop. kBusy: it does not get there, as it waits for another process in a call;
  // a next Step() looks again. kGood and kFailed: `body` has returned true or not.
  State Step();

  // So many steps, fewer when it ends or waits.
  State Step(int steps);

  // Goes on to the end. kBusy: it waits for another process; a next Run() looks again.
  State Run();

  // Ends it where it is.
  void Kill();

  pid_t pid() const { return pid_; }

 private:
  State Await(bool stops_count);
  bool Resume(int request);

  pid_t pid_;
  State state_ = State::kStopped;
};
