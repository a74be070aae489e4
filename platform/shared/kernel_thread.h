#pragma once

namespace platform {

// The kernel's number of the calling thread, by a system call. Each system has a body of its own,
// in its thread_id.cc.
unsigned long long AskForThreadId();

}  // namespace platform
