#include "logging/time_utils.h"

#include <ctime>

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

}  // namespace tarn
