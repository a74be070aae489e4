#include <cstdio>
#include <ctime>

#include "logging/log_utils.h"
#include "utils/os_utils.h"

namespace tarn {

int getCurrentTime(timeval& tv) { return gettimeofday(&tv, nullptr); }

bool getOffSetDate(std::string& out, int days) {
  const std::time_t time = std::time(nullptr) + static_cast<std::time_t>(days) * 86400;
  std::tm local{};
  char text[sizeof "-2147483648-12-31"];
  if (!localtime_r(&time, &local)) return false;
  if (std::strftime(text, sizeof text, "%Y-%m-%d", &local) == 0) return false;
  out = text;
  return true;
}

bool getDatetime(std::string& out) {
  const std::time_t time = std::time(nullptr);
  std::tm local{};
  char text[sizeof "-2147483648-12-31 23-59-59"];
  if (!localtime_r(&time, &local)) return false;
  if (std::strftime(text, sizeof text, "%Y-%m-%d %H-%M-%S", &local) == 0) return false;
  out = text;
  return true;
}

int getLogMessage(char* buffer, unsigned long size, const char* format, va_list args) {
  if (!args || size == 0) return 0;
  return std::vsnprintf(buffer, size - 1, format, args);
}

std::string getStringFromInt(int number) { return std::to_string(number); }

bool utilGetCurrentOSVersion(int& major, int& minor, int& bugfix) {
  TarnUtils::OSUtils::OSVersion version{};
  if (TarnUtils::OSUtils::GetCurrentOSVersion(version)) {
    major = static_cast<int>(version.major);
    minor = static_cast<int>(version.minor);
    bugfix = static_cast<int>(version.patch);
  }
  return true;
}

}  // namespace tarn
