#pragma once

namespace platform {

// Bytes that this process dirtied itself, less those that it offered back to the system and that
// the system may take at any moment. Neither shared memory nor the pages of mapped files count.
// False, with `bytes` as it was, when the system does not tell. Any thread may call it.
bool GetDirtiedMemory(unsigned long long& bytes);

}  // namespace platform
