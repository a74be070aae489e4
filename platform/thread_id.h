#pragma once

namespace platform {

// Returns whether the kernel of that version of this system has a number for each thread. Any
// thread may call it.
bool HasThreadId(int major, int minor);

// Returns the kernel's number of the calling thread, unique among the running threads. Makes a
// system call only the first time in each thread. Must be called only where HasThreadId() returns
// true.
unsigned long long GetThreadId();

}  // namespace platform
