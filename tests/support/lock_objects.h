#pragma once

#include <string>

// What the locks of one log file keep in the system: found by the file's key, and removed at the
// end of this object's life, as a killed process leaves them behind. The file has to exist during
// all of that life, and nothing that uses it may run any more at the end.
class LockObjects {
 public:
  // The project number that the file target gives with its path.
  static constexpr int kProject = 11;

  // Creates the file if there is none, and removes what an earlier file of that key left behind.
  explicit LockObjects(std::string path);
  // Looks at an existing file's, which stay as they are until the end of the object's life.
  struct Keep {};
  LockObjects(std::string path, Keep keep);
  LockObjects(const LockObjects&) = delete;
  LockObjects& operator=(const LockObjects&) = delete;
  ~LockObjects();

  // The set's number, -1 without one.
  int semaphore_set() const;
  // The segment's number, -1 without one.
  int memory_segment() const;

  // The value of a semaphore of the set, -1 without a set.
  int users() const;
  int free() const;

  // Gives the user count another value. False without a set.
  bool set_users(int users) const;

  // How many processes sleep until the lock is free.
  int waiting() const;

  // The process that took the lock or gave it back last, -1 without a set.
  int last_holder() const;

  // Whether there is neither a set nor a segment.
  bool gone() const { return semaphore_set() == -1 && memory_segment() == -1; }

  void Remove() const;

 private:
  int Ask(int semaphore, int command) const;

  std::string path_;
};
