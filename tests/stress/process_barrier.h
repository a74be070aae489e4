#pragma once

#include <pthread.h>

// A barrier for processes in their shared memory. No process may die while it waits.
class ProcessBarrier {
 public:
  // Must be called before any process waits.
  void Prepare(int processes) {
    processes_ = processes;
    pthread_mutexattr_t mutex_kind;
    pthread_mutexattr_init(&mutex_kind);
    pthread_mutexattr_setpshared(&mutex_kind, PTHREAD_PROCESS_SHARED);
    pthread_mutex_init(&mutex_, &mutex_kind);
    pthread_condattr_t all_here_kind;
    pthread_condattr_init(&all_here_kind);
    pthread_condattr_setpshared(&all_here_kind, PTHREAD_PROCESS_SHARED);
    pthread_cond_init(&all_here_, &all_here_kind);
  }

  // Returns when all processes have called it.
  void Wait() {
    pthread_mutex_lock(&mutex_);
    const long round = round_;
    if (++waiting_ == processes_) {
      waiting_ = 0;
      ++round_;
      pthread_cond_broadcast(&all_here_);
    }
    while (round_ == round)
      pthread_cond_wait(&all_here_, &mutex_);
    pthread_mutex_unlock(&mutex_);
  }

 private:
  pthread_mutex_t mutex_{};
  pthread_cond_t all_here_{};
  int processes_ = 0;
  int waiting_ = 0;
  long round_ = 0;
};
