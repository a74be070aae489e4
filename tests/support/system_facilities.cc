#include "tests/support/system_facilities.h"

#include <sched.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

bool EndWithParent(int number) { return prctl(PR_SET_PDEATHSIG, number) == 0; }

bool EnterOwnLockObjects() { return unshare(CLONE_NEWIPC) == 0; }

bool MakeNullDevice(const std::string& path) {
  return mknod(path.c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0;
}
