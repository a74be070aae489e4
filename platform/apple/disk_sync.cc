#include "platform/disk_sync.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>

namespace platform {

// fsync() of this system leaves the data in the drive's cache. Not every file system supports the
// other call. EINVAL and ENOTSUP stand for a file that supports neither.
bool SyncToDisk(int file) {
  return fcntl(file, F_FULLFSYNC) == 0 || fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace platform
