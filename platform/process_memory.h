#pragma once

namespace platform {

// Reports the size, in bytes, of the memory that this process itself has dirtied. Excludes shared
// memory, pages of mapped files, and memory that the process offered back and that the system may
// therefore reclaim at any time. Returns false, and leaves `bytes` unchanged, when the system does
// not report it. Any thread may call it.
bool GetDirtiedMemory(unsigned long long& bytes);

}  // namespace platform
