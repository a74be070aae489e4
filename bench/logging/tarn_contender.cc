#include <optional>

#include "bench/logging/contender.h"
#include "bench/logging/line.h"
#include "logging/log_target_default.h"
#include "logging/logger.h"
#include "logging/logging_core.h"

namespace {

class TarnContender : public Contender {
 public:
  bool Open(const std::string& path) override {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return false;
    target_.emplace(kIdentifier);
    target_->setLogLevel(tarn::INFO);
    const std::string folder = path.substr(0, slash);
    if (!target_->setLogFile(path.c_str() + slash + 1, folder.c_str())) return false;
    logger_.setSessionId(tarn::LoggingCore::generateSessionId().c_str());
    logger_.setDomain(kDomain);
    logger_.setSubDomain(kSubDomain);
    logger_.setComponent(kComponent);
    return tarn::LoggingCore::getInstance()->registerTarget(&*target_);
  }

  void Close() override {
    if (target_) tarn::LoggingCore::getInstance()->unregisterTarget(&*target_);
  }

  void Log(const std::string& name, long lines) override {
    for (long i = 0; i < lines; ++i)
      logger_.info("%s loaded in %d ms", name.c_str(), LoadTime(i));
  }

 private:
  static constexpr char kIdentifier[] = "bench";

  std::optional<tarn::LogTargetDefault> target_;
  tarn::Logger logger_{kIdentifier};
};

}  // namespace

std::unique_ptr<Contender> MakeContender(const std::string& kind) {
  return kind == "ours" ? std::make_unique<TarnContender>() : nullptr;
}
