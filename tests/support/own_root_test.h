#pragma once

#include <gtest/gtest.h>
#include <sched.h>
#include <functional>

#include "support/namespaces.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

// Fixture for tests that create files in the root folder, which the machine itself does not see.
class OwnRootTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!CanUnshare(CLONE_NEWNS)) {
      GTEST_SKIP() << "this system does not allow a mount namespace, as containers often do not";
    }
  }

  // Runs `body`, with its expectations, in a child process with its own root folder.
  void InOwnRoot(const std::function<void()>& body) {
    ProcessPool pool;
    pool.Start([&] {
      if (!EnterOwnRoot(mount_point_.path())) return false;
      body();
      return !HasFailure();
    });
    EXPECT_EQ(pool.WaitForAll(), "");
  }

 private:
  const TemporaryFolder mount_point_;
};
