#pragma once

namespace platform {

// Returns the kernel's number of the calling thread. Makes a system call each time. Each system
// implements it in its thread_id.cc.
unsigned long long QueryThreadId();

}  // namespace platform
