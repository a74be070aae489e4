// Hooks for semaphores, shared memory, threads, sockets and the clock. pthread_mutex_init() and
// clock_gettime() have no hook, because they cannot fail and libsystemd aborts if they do.

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <cerrno>
#include <cstdarg>
#include <ctime>

#include "tests/faults/fault_plan.h"

namespace {

// Returns whether an operation releases a lock. A release cannot fail, because the kernel allocates
// the memory for it when the process acquires the lock.
bool IsRelease(const sembuf& operation) {
  return operation.sem_op > 0 && (operation.sem_flg & SEM_UNDO) != 0;
}

}  // namespace

extern "C" {

FAULT_HOOK(kSemaphoreSet, int, -1, semget, (key_t key, int count, int flags), (key, count, flags),
           noexcept)

int semop(int set, sembuf* operations, size_t count) noexcept {
  static auto* const real = reinterpret_cast<decltype(&semop)>(faults::RealFunction("semop"));
  if (!IsRelease(*operations) && faults::Fails(faults::Family::kSemaphore)) return -1;
  return real(set, operations, count);
}

int semctl(int set, int number, int command, ...) noexcept {
  static auto* const real = reinterpret_cast<decltype(&semctl)>(faults::RealFunction("semctl"));
  // A union of a number and pointers, which is passed like a pointer.
  va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return faults::Fails(faults::Family::kSemaphoreSet) ? -1 : real(set, number, command, argument);
}

FAULT_HOOK(kShared, int, -1, shmget, (key_t key, size_t size, int flags), (key, size, flags),
           noexcept)
FAULT_HOOK(kShared, void*, reinterpret_cast<void*>(-1), shmat,
           (int segment, const void* at, int flags), (segment, at, flags), noexcept)
FAULT_HOOK(kShared, int, -1, shmdt, (const void* at), (at), noexcept)
FAULT_HOOK(kShared, int, -1, shmctl, (int segment, int command, shmid_ds* state),
           (segment, command, state), noexcept)

FAULT_HOOK(kTime, int, -1, gettimeofday, (timeval * now, void* zone), (now, zone), noexcept)
FAULT_HOOK(kTime, time_t, -1, time, (time_t * now), (now), noexcept)
FAULT_HOOK(kThread, int, errno, pthread_create,
           (pthread_t * thread, const pthread_attr_t* attributes, void* (*run)(void*), void* data),
           (thread, attributes, run, data), noexcept)
FAULT_HOOK(kThread, int, -1, eventfd, (unsigned value, int flags), (value, flags), noexcept)
FAULT_HOOK(kThread, int, -1, poll, (pollfd * waited, nfds_t count, int milliseconds),
           (waited, count, milliseconds), noexcept(false))

FAULT_HOOK(kSocket, int, -1, socket, (int domain, int type, int protocol), (domain, type, protocol),
           noexcept)
FAULT_HOOK(kSocket, int, -1, connect, (int file, const sockaddr* address, socklen_t size),
           (file, address, size), noexcept(false))
FAULT_HOOK(kSocket, ssize_t, -1, send, (int file, const void* data, size_t size, int flags),
           (file, data, size, flags), noexcept(false))
FAULT_HOOK(kSocket, ssize_t, -1, recv, (int file, void* data, size_t size, int flags),
           (file, data, size, flags), noexcept(false))
FAULT_HOOK(kSocket, ssize_t, -1, sendmsg, (int file, const msghdr* message, int flags),
           (file, message, flags), noexcept(false))
FAULT_HOOK(kSocket, ssize_t, -1, recvmsg, (int file, msghdr* message, int flags),
           (file, message, flags), noexcept(false))

}  // extern "C"
