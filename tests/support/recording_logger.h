#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "logging/abstract_logger.h"

// Records the messages of logit() as "level [detail1] [detail2] text". The other methods record
// nothing.
class RecordingLogger : public tarn::AbstractLogger {
 public:
  std::vector<std::string> lines;

  void logit(tarn::Log_Level level, const char* detail1, const char* detail2, const char* format,
             va_list args) override TARN_PRINTF_METHOD(5, 0) {
    char text[4096];
    std::vsnprintf(text, sizeof text, format, args);
    lines.push_back(std::to_string(level) + " [" + detail1 + "] [" + detail2 + "] " + text);
  }

  void trace(const char*, ...) override {}
  void debug(const char*, ...) override {}
  void info(const char*, ...) override {}
  void warn(const char*, const char*, ...) override {}
  void error(const char*, const char*, ...) override {}
  void fatal(const char*, const char*, ...) override {}
  void log(tarn::Log_Level, const char*, const char*, const char*, ...) override {}
  void logTrace(const char*, const char*, ...) override {}
  void logDebug(const char*, const char*, ...) override {}
  void logInfo(const char*, const char*, ...) override {}
  void logWarn(const char*, const char*, const char*, ...) override {}
  void logError(const char*, const char*, const char*, ...) override {}
  void logFatal(const char*, const char*, const char*, ...) override {}
};
