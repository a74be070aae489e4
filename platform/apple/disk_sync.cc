#include "platform/disk_sync.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>

namespace platform {

// This system's fsync() leaves the data in the drive's cache. Not every file system supports
// F_FULLFSYNC. EINVAL and ENOTSUP: the file supports neither call.
bool SyncToDisk(int file) {
  return fcntl(file, F_FULLFSYNC) == 0 || fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace platform
