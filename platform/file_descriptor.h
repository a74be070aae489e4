#pragma once

#include <unistd.h>

namespace platform {

// Owns an open file descriptor, or is empty (-1).
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { Close(); }

  int number() const { return number_; }
  bool is_open() const { return number_ != -1; }

  // Closes the descriptor. Returns false if the file system reports that earlier writes are lost,
  // and true if the object is empty.
  bool Close() {
    const int number = number_;
    number_ = -1;
    return number == -1 || close(number) == 0;
  }

 private:
  int number_;
};

}  // namespace platform
