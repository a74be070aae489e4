#pragma once

namespace platform {

// Returns whether the kernel numbers its threads in the version `major`.`minor` of this system. Any
// thread may call it. On Linux, always returns true.
bool HasThreadId(int major, int minor);

// Returns the kernel's number of the calling thread, unique among the running threads. Makes a
// system call only the first time in each thread, and again in a forked child, whose thread has a
// number of its own. Must be called only where HasThreadId() returns true.
unsigned long long GetThreadId();

}  // namespace platform
