#pragma once

#include <string>

// System-specific functions for tests. system_facilities.cc implements them for Linux.

// Makes the system send the signal `number` to the calling process when its parent ends. Returns
// false when the system cannot do that.
bool EndWithParent(int number);

// Gives the calling process private semaphores and shared memory. Returns false when the system
// does not allow that.
bool EnterOwnLockObjects();

// Creates a null device at `path`, which requires root. Returns false, with the reason in errno, on
// failure.
bool MakeNullDevice(const std::string& path);
