#pragma once

#include <pthread.h>

namespace tarn {

// Keeps the calling thread from being canceled for as long as it lives. A destructor that closes a
// file must not be left by a cancellation, which would end the process.
class CancellationBlock {
 public:
  // Both calls fail only for an invalid state.
  CancellationBlock() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }
  CancellationBlock(const CancellationBlock&) = delete;
  CancellationBlock& operator=(const CancellationBlock&) = delete;
  ~CancellationBlock() { pthread_setcancelstate(before_, nullptr); }

 private:
  int before_ = PTHREAD_CANCEL_ENABLE;
};

}  // namespace tarn
