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

  // Before the processes are forked, and after all of them ended. The file exists.
  virtual bool Prepare(const std::string& /*path*/) { return true; }
  virtual void CleanUp() {}

  // In each process: before its threads start, and after they have ended.
  virtual bool Open(const std::string& path) = 0;
  virtual void Close() = 0;

  // In each thread, at the same time: appends so many lines, one after the other as a user would.
  // `name` is the PageName() of the thread.
  virtual void Log(const std::string& name, long lines) = 0;
};

// Null when the program has no contender of that name. Every program has its own: what one library
// does on loading, such as starting threads, would slow down the others.
std::unique_ptr<Contender> MakeContender(const std::string& kind);
