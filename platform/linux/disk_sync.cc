#include "platform/disk_sync.h"

#include <unistd.h>
#include <cerrno>

namespace platform {

// EINVAL: the file does not support fsync().
bool SyncToDisk(int file) { return fsync(file) == 0 || errno == EINVAL; }

}  // namespace platform
