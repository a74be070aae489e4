#include <gtest/gtest.h>
#include <pthread.h>
#include <cerrno>
#include <thread>

#include "helper/log_message.h"

namespace {

bool g_init_fails = false;

}  // namespace

// Replaces the function of the C library. The linker redirects the calls of this program to it.
extern "C" {
int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes);
int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes) {
  return g_init_fails ? ENOMEM : __real_pthread_mutex_init(mutex, attributes);
}
}

namespace {

// Exit statuses are bytes.
constexpr int StatusOf(int status) { return status & 0xff; }

TEST(LogMutexTest, HolderCanLockAgain) {
  LogMutex mutex;
  EXPECT_TRUE(mutex.init());
  mutex.lock();
  mutex.lock();
  mutex.unlock();
  mutex.unlock();
  mutex.destroy();
}

TEST(LogMutexTest, ExcludesOtherThreads) {
  LogMutex mutex;
  mutex.init();
  int count = 0;
  const auto increment = [&] {
    for (int i = 0; i < 10000; ++i) {
      mutex.lock();
      ++count;
      mutex.unlock();
    }
  };
  std::thread one(increment);
  std::thread other(increment);
  one.join();
  other.join();
  EXPECT_EQ(count, 20000);
  mutex.destroy();
}

TEST(LogMutexTest, CanBeInitializedAgain) {
  LogMutex mutex;
  for (int i = 0; i < 2; ++i) {
    mutex.init();
    mutex.lock();
    mutex.unlock();
    mutex.destroy();
  }
}

TEST(LogMutexDeathTest, EndsProcessWithStatusOfFailedOperation) {
  LogMutex mutex;
  EXPECT_EXIT(
      {
        g_init_fails = true;
        mutex.init();
      },
      testing::ExitedWithCode(StatusOf(-21)), "");
  EXPECT_EXIT(
      {
        mutex.init();
        mutex.destroy();
        mutex.lock();
      },
      testing::ExitedWithCode(StatusOf(-22)), "");
  EXPECT_EXIT(
      {
        mutex.init();
        mutex.unlock();
      },
      testing::ExitedWithCode(StatusOf(-23)), "");
  EXPECT_EXIT(
      {
        mutex.init();
        mutex.lock();
        mutex.destroy();
      },
      testing::ExitedWithCode(StatusOf(-24)), "");
}

}  // namespace
