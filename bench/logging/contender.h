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
  virtual bool Prepare(const std::string& /*path*/) { return true; }
  virtual void CleanUp() {}

  // Called in each process before its threads start, and after they have ended.
  virtual bool Open(const std::string& path) = 0;
  virtual void Close() = 0;

  // Called concurrently in each thread. Appends lines one after the other, like a user of the
  // library. `name` is the PageName() of the thread.
  virtual void Log(const std::string& name, long lines) = 0;
};

// Returns null when the program has no contender of that kind. Each program defines its own
// version, because loading one library, which may start threads, would slow down the others.
std::unique_ptr<Contender> MakeContender(const std::string& kind);
