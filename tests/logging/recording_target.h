#pragma once

#include <cstdarg>
#include <string>
#include <vector>

#include "logging/log_target_base.h"
#include "logging/text_utils.h"

// A target without a file that records its calls. "|" joins the columns of a message; a null column
// is "null".
class RecordingTarget : public tarn::LogTargetBase {
 public:
  explicit RecordingTarget(const char* identifier) { setIdentifier(identifier); }

  std::vector<std::string> lines;
  int registrations = 0;
  int unregistrations = 0;
  bool accepts = true;
  bool last_answer = true;
  bool opens = true;
  std::vector<std::string> opened;

  bool SetStreamHandle(std::fstream& stream) override {
    opened.push_back((&stream == &stream_ ? "own " : "other ") + file_path_);
    return opens;
  }

  bool onRegisterTarget() override {
    ++registrations;
    return accepts && valid_;
  }

  bool onUnregisterTarget() override {
    ++unregistrations;
    return last_answer;
  }

  bool writeLog(tarn::Log_Level level, const char* sessionId, const char* domain,
                const char* subDomain, const char* component, const char* detail1,
                const char* detail2, const char* format, va_list args,
                unsigned long long timestampMs, bool useLock) override TARN_PRINTF_METHOD(9, 0) {
    char text[256] = "";
    tarn::getLogMessage(text, sizeof text, format, args);
    std::string line = std::to_string(level);
    for (const char* const column :
         {sessionId, domain, subDomain, component, detail1, detail2, args ? text : format}) {
      line += std::string("|") + (column ? column : "null");
    }
    lines.push_back(line + "|" + std::to_string(timestampMs) + (useLock ? "|lock" : "|no lock"));
    return false;
  }

  bool logHeader(tarn::Log_Level /*level*/, const char* /*sessionId*/, const char* /*domain*/,
                 const char* /*subDomain*/, const char* /*component*/,
                 tarn::stLogHeader* /*header*/, bool /*useLock*/) override {
    return true;
  }

  const std::string& file_name() const { return file_name_; }
  const std::string& file_path() const { return file_path_; }
  bool valid() const { return valid_; }
  void set_registered() { registered_ = true; }
};
