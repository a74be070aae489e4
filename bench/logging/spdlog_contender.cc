#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <exception>

#include "bench/logging/contender.h"
#include "bench/logging/line.h"

namespace {

// Has no lock between processes. Lines stay intact only because the file is open for appending.
class SpdlogContender : public Contender {
 public:
  bool Open(const std::string& path) override {
    try {
      logger_ = spdlog::basic_logger_mt(kDomain, path);
    } catch (const std::exception&) {
      return false;
    }
    logger_->set_pattern(std::string("%D %H:%M:%S:%e | [INFO] | %P | %n | ") + kSubDomain + " | " +
                         kComponent + " |  |  | %t | %v");
    logger_->flush_on(spdlog::level::info);
    return true;
  }

  void Close() override { logger_.reset(); }

  void Log(const std::string& name, long lines) override {
    for (long i = 0; i < lines; ++i)
      logger_->info("{} loaded in {} ms", name, LoadTime(i));
  }

 private:
  std::shared_ptr<spdlog::logger> logger_;
};

}  // namespace

std::unique_ptr<Contender> MakeContender(const std::string& kind) {
  return kind == "spdlog" ? std::make_unique<SpdlogContender>() : nullptr;
}
