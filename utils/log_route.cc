#include "utils/log_route.h"

#include <cstdarg>

namespace TarnUtils {
namespace {

LogFunction g_log_function = nullptr;
tarn::AbstractLogger* g_logger = nullptr;

}  // namespace

const char kLogModule[] = "TarnUtils";

bool SetLogger(void* logFunction, void* logger) {
  g_log_function = reinterpret_cast<LogFunction>(logFunction);
  g_logger = static_cast<tarn::AbstractLogger*>(logger);
  return true;
}

LogFunction LogFunctionFor(const tarn::AbstractLogger* own) {
  return own ? nullptr : g_log_function;
}

void LogToObject(tarn::AbstractLogger* own, tarn::Log_Level level, const char* component,
                 const char* format, ...) {
  tarn::AbstractLogger* const logger = own ? own : g_logger;
  if (!logger) return;
  va_list arguments;
  va_start(arguments, format);
  logger->logit(level, "", component, format, arguments);
  va_end(arguments);
}

}  // namespace TarnUtils
