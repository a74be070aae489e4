#include "support/namespaces.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>

#include "support/files.h"

namespace {

const char* const kSuiteFolders[] = {"Library", "Users", "Applications"};

bool IsSuiteFolder(const std::string& name) {
  return std::any_of(std::begin(kSuiteFolders), std::end(kSuiteFolders),
                     [&name](const char* folder) { return name == folder; });
}

// Shows an entry of the machine's root folder in the root folder `root`.
bool Show(const std::filesystem::directory_entry& entry, const std::string& root) {
  const std::string target = root + entry.path().string();
  std::error_code error;
  if (entry.is_symlink(error)) {
    std::filesystem::copy_symlink(entry.path(), target, error);
    return !error;
  }
  if (!entry.is_directory(error)) return true;
  if (!std::filesystem::create_directory(target, error)) return false;
  // Includes the mounts below the entry: ordinary users cannot bind the entry without them.
  return mount(entry.path().c_str(), target.c_str(), nullptr, MS_BIND | MS_REC, nullptr) == 0;
}

// Ordinary users also enter a new user namespace.
bool EnterNamespaces(int kinds) {
  if (unshare(kinds) == 0) return true;
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(kinds | CLONE_NEWUSER) != 0) return false;
  WriteFile("/proc/self/uid_map", "0 " + user + " 1");
  // Creating files requires a group of the new namespace.
  WriteFile("/proc/self/setgroups", "deny");
  WriteFile("/proc/self/gid_map", "0 " + group + " 1");
  return true;
}

bool Fail(const char* what) {
  std::perror(what);
  return false;
}

}  // namespace

bool Unshare(int kinds) {
  if (!EnterNamespaces(kinds)) return false;
  return (kinds & CLONE_NEWNS) == 0 ||
         mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool CanUnshare(int kinds) {
  const pid_t pid = fork();
  // Skips the handlers of exit(): this process must not destroy objects of the test program.
  if (pid == 0) _exit(Unshare(kinds) ? 0 : 1);
  int status = 0;
  return pid > 0 && waitpid(pid, &status, 0) == pid && status == 0;
}

bool EnterOwnRoot(const std::string& mount_point) {
  if (!Unshare(CLONE_NEWNS)) return Fail("unshare");
  if (mount("tmpfs", mount_point.c_str(), "tmpfs", 0, "mode=755") != 0) return Fail("tmpfs");
  for (const auto& entry : std::filesystem::directory_iterator("/")) {
    if (IsSuiteFolder(entry.path().filename().string())) continue;
    if (!Show(entry, mount_point)) return Fail(entry.path().c_str());
  }
  if (chroot(mount_point.c_str()) != 0 || chdir("/") != 0) return Fail("chroot");
  return true;
}

bool MakeOwnRootReadOnly() {
  return mount(nullptr, "/", nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0 ||
         Fail("remount");
}
