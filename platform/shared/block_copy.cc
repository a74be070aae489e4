#include "platform/shared/block_copy.h"

#include <unistd.h>
#include <cerrno>
#include <cstddef>

namespace platform {
namespace {

bool WriteAll(int to, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(to, data, size);
    if (written < 0 && errno != EINTR) return false;
    if (written <= 0) continue;
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace

bool CopyBlocks(int from, int to) {
  char block[64 << 10];
  for (;;) {
    const ssize_t size = read(from, block, sizeof block);
    if (size == 0) return true;
    if (size < 0 && errno != EINTR) return false;
    if (size > 0 && !WriteAll(to, block, static_cast<std::size_t>(size))) return false;
  }
}

}  // namespace platform
