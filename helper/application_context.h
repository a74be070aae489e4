#pragma once

#include "logging/log_target_default.h"
#include "logging/logger.h"

// A logger whose domain is its name and whose session identifier is the process identifier.
class C3Logger final : public tarn::Logger {
 public:
  explicit C3Logger(const char* name);
};

// Owns the log of this process: one file target, one logger, and the log route to them. At most one
// context exists at a time. After destroy(), instance() creates another one.
//
// instance(), destroy() and checkMemoryUsage() take no lock: calls must not overlap, and no other
// thread may log during a call. The main thread calls them. Only in a process without a task queue
// for its main thread, the thread that delivers notifications calls checkMemoryUsage().
class ApplicationContext {
 public:
  ApplicationContext(const ApplicationContext&) = delete;
  ApplicationContext& operator=(const ApplicationContext&) = delete;

  // Returns the context. Creates it if it does not exist: opens the log, sets the log route of the
  // helper and of the utility library, and writes the START banner. If the log cannot be opened,
  // the context exists nevertheless, and messages are dropped.
  static ApplicationContext* instance();

  // Writes the END banner, closes the log and deletes the context. Does nothing without a context.
  static void destroy();

  // Ends the process with status 1 if it has dirtied 500 MiB of memory or more. Before that, logs a
  // warning, notifies the suite and destroys the context. The process ends through std::exit(),
  // which runs exit handlers. If the memory cannot be measured, the process continues. In any case,
  // first creates the context if it does not exist.
  static void checkMemoryUsage();

  // Returns the logger, which the context owns.
  C3Logger* logger() const { return logger_; }

 private:
  ApplicationContext();
  ~ApplicationContext() = default;
  void finalize();

  static ApplicationContext* s_instance;

  C3Logger* logger_ = nullptr;
  tarn::LogTargetDefault* log_target_ = nullptr;
};
