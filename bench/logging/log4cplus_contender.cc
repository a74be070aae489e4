#include <log4cplus/fileappender.h>
#include <log4cplus/helpers/property.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>
#include <log4cplus/loggingmacros.h>
#include <optional>

#include "bench/logging/contender.h"
#include "bench/logging/line.h"

namespace {

// Uses a lock file between processes and flushes every line.
log4cplus::SharedAppenderPtr MakeAppender(const std::string& path) {
  log4cplus::helpers::Properties properties;
  properties.setProperty("File", path);
  properties.setProperty("UseLockFile", "true");
  properties.setProperty("ImmediateFlush", "true");
  properties.setProperty("Append", "true");
  properties.setProperty("MaxFileSize", "1000MB");  // never rotate
  log4cplus::SharedAppenderPtr appender(new log4cplus::RollingFileAppender(properties));
  const std::string pattern = std::string("%D{%m/%d/%y %H:%M:%S:%q} | [%p] | %i | %c | ") +
                              kSubDomain + " | " + kComponent + " |  |  | %T | %m%n";
  appender->setLayout(std::make_unique<log4cplus::PatternLayout>(pattern));
  return appender;
}

class Log4cplusContender : public Contender {
 public:
  bool Open(const std::string& path) override {
    initializer_.emplace();
    logger_ = log4cplus::Logger::getInstance(kDomain);
    logger_.setLogLevel(log4cplus::INFO_LOG_LEVEL);
    logger_.addAppender(MakeAppender(path));
    return true;
  }

  void Close() override { logger_.removeAllAppenders(); }

  void Log(const std::string& name, long lines) override {
    for (long i = 0; i < lines; ++i) {
      LOG4CPLUS_INFO_FMT(logger_, "%s loaded in %d ms", name.c_str(), LoadTime(i));
    }
  }

 private:
  std::optional<log4cplus::Initializer> initializer_;
  log4cplus::Logger logger_;
};

}  // namespace

std::unique_ptr<Contender> MakeContender(const std::string& kind) {
  return kind == "log4cplus" ? std::make_unique<Log4cplusContender>() : nullptr;
}
