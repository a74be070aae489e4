#include "tests/support/system_facilities.h"

#include <sys/stat.h>
#include <sys/types.h>

// macOS has no such call, so the children of a killed test keep running.
bool EndWithParent(int /*number*/) { return true; }

// macOS has no private lock objects.
bool EnterOwnLockObjects() { return false; }

bool MakeNullDevice(const std::string& path) {
  return mknod(path.c_str(), S_IFCHR | 0600, makedev(3, 2)) == 0;
}
