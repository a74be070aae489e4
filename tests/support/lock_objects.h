#pragma once

#include <string>

// Finds the semaphore set and the shared memory segment of the locks of one log file by the file's
// key. The destructor removes both, because a killed process leaves them behind. The file must
// exist during the whole life of this object, and no user of the locks may run at its end. A
// program that links lock_objects.cc has its own semaphores and shared memory, if the system allows
// that.
class LockObjects {
 public:
  // The project number that the file target passes to ftok().
  static constexpr int kProject = 11;

  // Creates the file if it does not exist, and removes objects that an earlier file with the same
  // key left behind.
  explicit LockObjects(std::string path);
  // Finds the objects of an existing file, and keeps them until the destructor runs.
  struct Keep {};
  LockObjects(std::string path, Keep keep);
  LockObjects(const LockObjects&) = delete;
  LockObjects& operator=(const LockObjects&) = delete;
  ~LockObjects();

  // Returns the identifier of the semaphore set, or -1 without a set.
  int semaphore_set() const;
  // Returns the identifier of the shared memory segment, or -1 without a segment.
  int memory_segment() const;

  // Return the number of users, and 1 for a free or 0 for a held lock. Both return -1 without a
  // set.
  int users() const;
  int free() const;

  // Sets the user count. Returns false without a set.
  bool set_users(int users) const;

  // Returns the number of processes that wait for the lock, or -1 without a set.
  int waiting() const;

  // Returns the process that last acquired or released the lock, or -1 without a set.
  int last_holder() const;

  // Returns true when neither a set nor a segment exists.
  bool gone() const { return semaphore_set() == -1 && memory_segment() == -1; }

  void Remove() const;

 private:
  int Query(int semaphore, int command) const;

  std::string path_;
};
