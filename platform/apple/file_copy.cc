#include "platform/file_copy.h"

#include "platform/shared/block_copy.h"

namespace platform {

// Does not use fcopyfile(), which truncates the copy to the length of what it wrote, wherever it
// began to write, and leaves the positions unspecified. This system's kernel has no suitable call
// to copy between files.
bool CopyFileContent(int from, int to) { return CopyBlocks(from, to); }

}  // namespace platform
