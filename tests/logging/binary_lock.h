#pragma once

#include "logging/binary_lock.h"

#include <gtest/gtest.h>
#include <string>

#include "tests/support/lock_objects.h"
#include "tests/support/temporary_folder.h"

// Provides the lock of a file in a temporary folder.
class BinaryLockTest : public testing::Test {
 protected:
  bool Attach(tarn::BinaryLock& lock) const { return lock.create(path_, LockObjects::kProject); }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/file";
  const LockObjects objects_{path_};
};
