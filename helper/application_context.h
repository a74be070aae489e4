#pragma once

#include "logging/log_target_default.h"
#include "logging/logger.h"

// A logger whose domain is its name and whose session identifier is that of the process.
class C3Logger final : public tarn::Logger {
 public:
  explicit C3Logger(const char* name);
};

// Owns the log of this process: one file target, one logger, and the log route to them. At most one
// context exists at a time. After destroy(), instance() creates another one.
//
// instance() and destroy() take no lock. Only the main thread may call them, and only while no
// other thread logs.
class ApplicationContext {
 public:
  ApplicationContext(const ApplicationContext&) = delete;
  ApplicationContext& operator=(const ApplicationContext&) = delete;

  // Returns the context. If there is none, creates it: opens the log, sets the log route of the
  // helper and of the utility library, and writes the START banner. If the log cannot be opened,
  // the context exists nevertheless, and messages are dropped.
  static ApplicationContext* instance();

  // Writes the END banner, closes the log and deletes the context. Does nothing without a context.
  static void destroy();

  // Ends the process with status 1 if it has dirtied 500 MiB of memory or more. Before that, logs a
  // warning, notifies the suite and writes the END banner. Creates the context if there is none.
  // Only the thread that may use instance() and destroy() may call it.
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
