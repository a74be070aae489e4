#include "platform/disk_sync.h"

#include <unistd.h>
#include <cerrno>

namespace platform {

// EINVAL stands for a file that does not support it.
bool SyncToDisk(int file) { return fsync(file) == 0 || errno == EINVAL; }

}  // namespace platform
