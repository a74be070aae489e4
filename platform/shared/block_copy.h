#pragma once

namespace platform {

// What CopyFileContent() does, through memory of this process.
bool CopyBlocks(int from, int to);

}  // namespace platform
