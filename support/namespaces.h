#pragma once

#include <string>

// New namespaces for this process, of the kinds of unshare(); as an ordinary user in a user
// namespace of its own, where that user is root. What is mounted in a new mount namespace is
// nowhere else. The process has no other threads. False when the system does not allow it, as in a
// root folder that is no mount point.
bool Unshare(int kinds);

// Whether Unshare() would succeed, tried out in another process.
bool CanUnshare(int kinds);

// Gives this process a root folder of its own, kept in memory, for the rest of its life: it shows
// the machine's folders, but what is created beside them is nowhere else. Folders of a standard
// system that the suite uses (/Library, /Users, /Applications) are missing from it at first. The
// new root is mounted, for this process alone, on the folder `place`. False, with a line to
// standard error, when that does not work.
bool EnterOwnRoot(const std::string& place);

// Makes the root of EnterOwnRoot() read-only, the machine's folders in it aside.
bool MakeOwnRootReadOnly();
