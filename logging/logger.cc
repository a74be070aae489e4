#include "logging/logger.h"

#include "logging/logging_core.h"

// Opens and closes the list `args`, which a variadic function needs to pass its arguments on.
#define WITH_ARGUMENTS(format, ...) \
  do {                              \
    va_list args;                   \
    va_start(args, format);         \
    __VA_ARGS__;                    \
    va_end(args);                   \
  } while (false)

namespace tarn {
namespace {

bool SetColumn(std::string& column, const char* text) {
  if (!text) return false;
  column = text;
  return true;
}

const char* OrEmpty(const char* text) { return text ? text : ""; }

}  // namespace

Logger::Logger(const char* identifier)
    : core_(LoggingCore::getInstance()), identifier_(OrEmpty(identifier)) {}

bool Logger::setSessionId(const char* text) { return SetColumn(session_id_, text); }
bool Logger::setDomain(const char* text) { return SetColumn(domain_, text); }
bool Logger::setSubDomain(const char* text) { return SetColumn(sub_domain_, text); }
bool Logger::setComponent(const char* text) { return SetColumn(component_, text); }

void Logger::trace(const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(TRACE, "", "", format, args));
}

void Logger::debug(const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(DEBUG, "", "", format, args));
}

void Logger::info(const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(INFO, "", "", format, args));
}

void Logger::warn(const char* detail1, const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(WARN, OrEmpty(detail1), "", format, args));
}

void Logger::error(const char* detail1, const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(ERROR, OrEmpty(detail1), "", format, args));
}

void Logger::fatal(const char* detail1, const char* format, ...) {
  if (format) WITH_ARGUMENTS(format, logit(FATAL, OrEmpty(detail1), "", format, args));
}

void Logger::log(Log_Level level, const char* detail1, const char* detail2, const char* format,
                 ...) {
  if (!format) return;
  WITH_ARGUMENTS(format, logit(level, OrEmpty(detail1), OrEmpty(detail2), format, args));
}

void Logger::logit(Log_Level level, const char* detail1, const char* detail2, const char* format,
                   va_list args) {
  core_->log(identifier_.c_str(), level, session_id_.c_str(), domain_.c_str(), sub_domain_.c_str(),
             component_.c_str(), detail1, detail2, format, args, 0);
}

void Logger::logTrace(const char* component, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, TRACE, "", format, args));
}

void Logger::logDebug(const char* component, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, DEBUG, "", format, args));
}

void Logger::logInfo(const char* component, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, INFO, "", format, args));
}

void Logger::logWarn(const char* component, const char* detail1, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, WARN, detail1, format, args));
}

void Logger::logError(const char* component, const char* detail1, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, ERROR, detail1, format, args));
}

void Logger::logFatal(const char* component, const char* detail1, const char* format, ...) {
  WITH_ARGUMENTS(format, LogFor(component, FATAL, detail1, format, args));
}

void Logger::LogFor(const char* component, Log_Level level, const char* detail1, const char* format,
                    va_list args) {
  if (!component || !detail1 || !format) return;
  core_->log(identifier_.c_str(), level, session_id_.c_str(), domain_.c_str(), sub_domain_.c_str(),
             component, detail1, "", format, args, 0);
}

}  // namespace tarn
