#include "tests/support/lock_objects.h"

#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "tests/support/system_facilities.h"

namespace {

// Gives this process private semaphores and shared memory before main(), if the system allows that.
// Keys hold only 16 bits of a file's number, so concurrent tests could share a lock by accident and
// remove each other's objects.
[[maybe_unused]] const bool g_has_own_objects = EnterOwnLockObjects();

key_t KeyOf(const std::string& path) {
  const key_t key = ftok(path.c_str(), LockObjects::kProject);
  if (key == -1) {
    std::perror(path.c_str());
    std::abort();
  }
  return key;
}

}  // namespace

LockObjects::LockObjects(std::string path) : path_(std::move(path)) {
  std::FILE* file = std::fopen(path_.c_str(), "a");
  if (file) std::fclose(file);
  Remove();
}

LockObjects::LockObjects(std::string path, Keep /*keep*/) : path_(std::move(path)) {}

LockObjects::~LockObjects() { Remove(); }

int LockObjects::semaphore_set() const { return semget(KeyOf(path_), 0, 0); }

int LockObjects::memory_segment() const { return shmget(KeyOf(path_), 0, 0); }

int LockObjects::users() const { return Query(0, GETVAL); }

bool LockObjects::set_users(int users) const {
  const int set = semaphore_set();
  return set != -1 && semctl(set, 0, SETVAL, users) != -1;
}

int LockObjects::free() const { return Query(1, GETVAL); }

int LockObjects::waiting() const { return Query(1, GETNCNT); }

int LockObjects::last_holder() const { return Query(1, GETPID); }

int LockObjects::Query(int semaphore, int command) const {
  const int set = semaphore_set();
  return set == -1 ? -1 : semctl(set, semaphore, command);
}

void LockObjects::Remove() const {
  const int set = semaphore_set();
  if (set != -1) semctl(set, 0, IPC_RMID);
  const int segment = memory_segment();
  if (segment != -1) shmctl(segment, IPC_RMID, nullptr);
}
