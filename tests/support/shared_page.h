#pragma once

#include <sys/mman.h>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <type_traits>

// Holds a value in memory that this process shares with all processes forked from it, at the same
// address in all of them. Members that several processes access must be atomic.
template <typename T>
class SharedPage {
  static_assert(std::is_trivially_destructible_v<T>, "no process runs the destructor of the value");

 public:
  SharedPage() {
    void* memory =
        mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
      std::perror("mmap");
      std::abort();
    }
    value_ = new (memory) T();
  }
  SharedPage(const SharedPage&) = delete;
  SharedPage& operator=(const SharedPage&) = delete;
  ~SharedPage() { munmap(value_, sizeof(T)); }

  T& operator*() const { return *value_; }
  T* operator->() const { return value_; }

 private:
  T* value_;
};
