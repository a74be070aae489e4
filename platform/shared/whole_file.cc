#include "platform/shared/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/retry.h"

namespace platform {
namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;

// Reads one byte more than `largest` to detect a larger file.
bool ReadToEnd(int file, std::size_t largest, std::string& bytes) {
  std::size_t size = 0;
  for (;;) {
    bytes.resize(std::min(size + kBlock, largest + 1));
    const ssize_t count =
        RetryWhenInterrupted([&] { return read(file, &bytes[size], bytes.size() - size); });
    if (count < 0) return false;
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
    if (size > largest) return false;
  }
  bytes.resize(size);
  return true;
}

}  // namespace

bool ReadWholeFile(const std::string& path, std::size_t largest, std::string& bytes) {
  // O_NONBLOCK: opening a pipe without a writer would block.
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat attributes {};
  if (!file.is_open() || fstat(file.number(), &attributes) != 0 || !S_ISREG(attributes.st_mode)) {
    return false;
  }
  std::string content;
  if (!ReadToEnd(file.number(), largest, content)) return false;
  bytes = std::move(content);
  return true;
}

}  // namespace platform
