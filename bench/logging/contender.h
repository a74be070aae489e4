#pragma once

#include <memory>
#include <string>

// A way to append lines to a file that several processes and threads share.
class Contender {
 public:
  Contender() = default;
  Contender(const Contender&) = delete;
  Contender& operator=(const Contender&) = delete;
  virtual ~Contender() = default;

  // Called before the processes are forked, and after all of them have ended. The file exists.
  // CleanUp() is called even if Prepare() returns false, which ends the measurement.
  virtual bool Prepare(const std::string& /*path*/) { return true; }
  virtual void CleanUp() {}

  // Called in each process before its threads start, and after they have ended. Close() is called
  // even if Open() returns false, which makes the measurement fail.
  virtual bool Open(const std::string& path) = 0;
  virtual void Close() = 0;

  // Called concurrently in each thread. Appends lines one after the other, like a user of the
  // library. `name` is the PageName() of the thread.
  virtual void Log(const std::string& name, long lines) = 0;
};

// Returns null when the program has no contender of that kind. Each program defines its own version
// and links only one library, because a loaded library may start threads that slow down the others.
std::unique_ptr<Contender> MakeContender(const std::string& kind);
