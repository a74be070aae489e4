#pragma once

namespace platform {

// Appends what is in the open file `from`, from its position to its end, to the open file `to` at
// its position; both are moved. By the kernel alone where the system can. False when it is cut
// short by an error, such as a full disk, with the reason in errno: then some of it may be written.
// Any thread may call it.
bool CopyFileContent(int from, int to);

}  // namespace platform
