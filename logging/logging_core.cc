#include "logging/logging_core.h"

#include <unistd.h>
#include <algorithm>
#include <string_view>

#include "logging/text_utils.h"

namespace tarn {

LoggingCore* LoggingCore::getInstance() {
  static LoggingCore instance;
  return &instance;
}

bool LoggingCore::registerTarget(LogTargetBase* target) {
  if (!target || !target->onRegisterTarget()) return false;
  std::vector<LogTargetBase*>& registered = targets_[target->getIdentifier()];
  if (std::find(registered.begin(), registered.end(), target) != registered.end()) return true;
  target->incrementRefCount();
  registered.push_back(target);
  return true;
}

bool LoggingCore::unregisterTarget(LogTargetBase* target) {
  if (!target) return false;
  const auto entry = targets_.find(std::string_view(target->getIdentifier()));
  if (entry == targets_.end()) return true;
  std::vector<LogTargetBase*>& registered = entry->second;
  const auto position = std::find(registered.begin(), registered.end(), target);
  if (position == registered.end()) return false;
  target->decrementRefCount();
  const bool result = target->getRefCount() != 0 || target->onUnregisterTarget();
  registered.erase(position);
  if (registered.empty()) targets_.erase(entry);
  return result;
}

void LoggingCore::log(const char* identifier, Log_Level level, const char* sessionId,
                      const char* domain, const char* subDomain, const char* component,
                      const char* detail1, const char* detail2, const char* format, va_list args,
                      unsigned long long timestampMs) {
  if (!identifier || !format) return;
  const auto entry = targets_.find(std::string_view(identifier));
  if (entry == targets_.end()) return;
  for (LogTargetBase* const target : entry->second) {
    if (!args) {
      target->writeLog(level, sessionId, domain, subDomain, component, detail1, detail2, format,
                       args, timestampMs, true);
      continue;
    }
    va_list own;  // a target uses up its list
    va_copy(own, args);
    target->writeLog(level, sessionId, domain, subDomain, component, detail1, detail2, format, own,
                     timestampMs, true);
    va_end(own);
  }
}

std::string LoggingCore::generateSessionId() { return getStringFromInt(getpid()); }

}  // namespace tarn
