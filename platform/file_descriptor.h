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

  // Closes the descriptor; the object is empty afterwards, even after an error. Returns false, with
  // the reason in errno, after an error, such as an earlier write that failed late. Returns true if
  // the object was already empty.
  bool Close() {
    const int number = number_;
    number_ = -1;
    return number == -1 || close(number) == 0;
  }

 private:
  int number_;
};

}  // namespace platform
