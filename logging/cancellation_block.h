#pragma once

#include <pthread.h>

namespace tarn {

// Prevents cancellation of the calling thread for as long as the object lives. A cancellation that
// leaves a destructor, such as one that closes a file, would end the process.
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
