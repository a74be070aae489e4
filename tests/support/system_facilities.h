#pragma once

#include <string>

// What the tests ask of the system in its own way: Linux' bodies are in system_facilities.cc.

// Has the system end the calling process by the signal `number` when its parent ends. False when
// the system cannot do that.
bool EndWithParent(int number);

// Gives the calling process semaphores and shared memory of its own, apart from everybody else's.
// False when the system does not allow it.
bool EnterOwnLockObjects();

// Makes the file `path` a device, the one that is always empty. For root; otherwise, or when the
// system refuses, false with the reason in errno.
bool MakeNullDevice(const std::string& path);
