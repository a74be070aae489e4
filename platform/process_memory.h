#pragma once

namespace platform {

// Reports the memory, in bytes, that this process itself has dirtied, less the memory that it
// offered back to the system, which the system may reclaim at any time. Excludes shared memory and
// pages of mapped files. Returns false, and leaves `bytes` unchanged, when the system does not
// report it. Any thread may call it.
bool GetDirtiedMemory(unsigned long long& bytes);

}  // namespace platform
