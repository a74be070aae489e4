#pragma once

namespace platform {

// Waits until the open file or folder `file` is on the disk and has left the drive's own cache, so
// that it survives a power loss. Returns true for a file that cannot be on a disk, such as a pipe.
// Returns false, with the reason in errno, when the system reports an error. Any thread may call
// it.
//
// On macOS, true does not mean that the data has left the drive's cache where flushing that cache
// failed, for example on a file system that does not support it.
bool SyncToDisk(int file);

}  // namespace platform
