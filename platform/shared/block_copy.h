#pragma once

namespace platform {

// Does what CopyFileContent() does, through this process's memory.
bool CopyBlocks(int from, int to);

}  // namespace platform
