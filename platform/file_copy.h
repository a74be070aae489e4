#pragma once

namespace platform {

// Copies the content of the open file `from`, from its position to its end, to the open file `to`
// at its position. Advances both positions. Where the system supports it, the data stays within the
// kernel. Returns false, with the reason in errno, after an error such as a full disk; then part of
// the content may have been written, and both positions are unspecified. Any thread may call it.
bool CopyFileContent(int from, int to);

}  // namespace platform
