#include "platform/shared/block_copy.h"

#include <unistd.h>
#include <cstddef>

#include "platform/retry.h"

namespace platform {
namespace {

bool WriteAll(int to, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = RetryWhenInterrupted([&] { return write(to, data, size); });
    if (written < 0) return false;
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace

bool CopyBlocks(int from, int to) {
  char block[64 << 10];
  for (;;) {
    const ssize_t size = RetryWhenInterrupted([&] { return read(from, block, sizeof block); });
    if (size == 0) return true;
    if (size < 0 || !WriteAll(to, block, static_cast<std::size_t>(size))) return false;
  }
}

}  // namespace platform
