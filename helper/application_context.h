#pragma once

#include "logging/log_target_default.h"
#include "logging/logger.h"

// A logger whose domain is its name and whose session is the process.
class C3Logger final : public tarn::Logger {
 public:
  explicit C3Logger(const char* name);
};

// The log of this process: one file target, one logger, and the log route to them. There is at most
// one, from the first instance() to destroy(); there can be another one after that.
//
// instance() and destroy() take no lock: they are for the main thread, while nobody else logs.
class ApplicationContext {
 public:
  ApplicationContext(const ApplicationContext&) = delete;
  ApplicationContext& operator=(const ApplicationContext&) = delete;

  // Makes it if there is none: opens the log, sets the log route of the helper and of the utility
  // library, and writes the START banner. A log that cannot be opened stops nothing; messages are
  // dropped then.
  static ApplicationContext* instance();

  // Writes the END banner, closes the log and deletes the context, if there is one.
  static void destroy();

  // Ends the process with status 1 when it has dirtied 500 MiB of memory or more: with a warning, a
  // notification to the suite and the END banner. It is about the process, not about an object, and
  // makes the context if there is none. For the thread that may use instance() and destroy().
  static void checkMemoryUsage();

  // Belongs to the context.
  C3Logger* logger() const { return logger_; }

 private:
  ApplicationContext();
  ~ApplicationContext() = default;
  void finalize();

  static ApplicationContext* s_instance;

  C3Logger* logger_ = nullptr;
  tarn::LogTargetDefault* log_target_ = nullptr;
};
