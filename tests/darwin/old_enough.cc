#include <fcntl.h>
#include <sys/time.h>
#include <mutex>
#include <optional>
#include <variant>

std::mutex g_mutex;

int Use(const std::optional<int>& number, const std::variant<int, char>& either) {
  const std::lock_guard<std::mutex> lock(g_mutex);
  timeval now{};
  if (gettimeofday(&now, nullptr) != 0) return open("file", O_RDONLY | O_CLOEXEC);
  const int* const first = std::get_if<int>(&either);
  return (first ? *first : 0) + number.value_or(0);
}
