#pragma once

#include <string>

// Moves this process to new namespaces; `kinds` are the flags of unshare(). For an ordinary user,
// it also creates a user namespace in which that user is root. Other processes do not see mounts in
// a new mount namespace. The process must have no other threads. Returns false, with the reason in
// errno, when the system does not allow new namespaces, for example a mount namespace when the root
// folder is not a mount point.
bool Unshare(int kinds);

// Returns true when Unshare() would succeed. Tries that in another process.
bool CanUnshare(int kinds);

// Gives this process its own mount namespace, and a root folder in memory for the rest of its life.
// The process must have no other threads; its working folder becomes the root. The new root shows
// the folders of the machine, but other processes do not see entries that are created next to them.
// The standard folders that the suite uses (/Library, /Users, /Applications) are initially missing.
// The root is mounted on the existing folder `mount_point` for this process alone. Returns false,
// with a line on standard error, on failure.
bool EnterOwnRoot(const std::string& mount_point);

// Makes the root of EnterOwnRoot() read-only, except for the machine's folders in it. Returns
// false, with a line on standard error, on failure.
bool MakeOwnRootReadOnly();
