#include "platform/file_copy.h"

#include "platform/shared/block_copy.h"

namespace platform {

// Not fcopyfile(): it cuts the copy to the length of what it wrote, wherever it began to write, and
// does not promise where it leaves the positions. The kernel of this system has no call that copies
// between files and does.
bool CopyFileContent(int from, int to) { return CopyBlocks(from, to); }

}  // namespace platform
