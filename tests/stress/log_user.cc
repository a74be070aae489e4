#include "tests/stress/log_user.h"

#include "logging/logging_core.h"

namespace {

tarn::LogRotation::Limits LimitsFor(long long segment_size, long long max_copied_size) {
  tarn::LogRotation::Limits limits;
  limits.max_copied_size = max_copied_size;
  if (segment_size == 0) return limits;
  limits.segment_size = segment_size;
  limits.check_interval = 0;
  return limits;
}

}  // namespace

LogUser::LogUser(const std::string& folder, const std::string& file, long long segment_size,
                 long long max_copied_size)
    : folder_(folder),
      file_(file),
      target_(kIdentifier, LimitsFor(segment_size, max_copied_size)) {}

bool LogUser::Attach() {
  // The most verbose level allows the largest file before a user that attaches rotates it.
  target_.setLogLevel(tarn::TRACE);
  return target_.setLogFile(file_.c_str(), folder_.c_str()) &&
         tarn::LoggingCore::getInstance()->registerTarget(&target_);
}

bool LogUser::Detach() { return tarn::LoggingCore::getInstance()->unregisterTarget(&target_); }

NumberedLogger::NumberedLogger(int writer, long max_text)
    : line_{writer, 0, max_text}, logger_(LogUser::kIdentifier) {
  logger_.setSessionId(tarn::LoggingCore::generateSessionId().c_str());
  logger_.setDomain(line_.domain().c_str());
  logger_.setSubDomain(line_.sub_domain().c_str());
  logger_.setComponent(line_.component().c_str());
}

void NumberedLogger::WriteNext() {
  ++line_.number;
  logger_.log(tarn::INFO, line_.detail1().c_str(), line_.detail2().c_str(), "%s",
              line_.message().c_str());
}
