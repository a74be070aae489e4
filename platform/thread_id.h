#pragma once

namespace platform {

// Whether the kernel of that version of this system tells a number for each thread.
bool HasThreadId(int major, int minor);

// The kernel's number of the calling thread, unique among the threads that run now. Costs no system
// call but the first time in a thread. Only where HasThreadId().
unsigned long long GetThreadId();

}  // namespace platform
