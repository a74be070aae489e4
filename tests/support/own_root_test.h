#pragma once

#include <gtest/gtest.h>
#include <sched.h>
#include <functional>

#include "support/namespaces.h"
#include "tests/support/process_pool.h"
#include "tests/support/temporary_folder.h"

// Tests of what is created in the machine's root folder, of which the machine sees nothing.
class OwnRootTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!CanUnshare(CLONE_NEWNS)) {
      GTEST_SKIP() << "this system does not allow a mount namespace, as containers often do not";
    }
  }

  // Runs `body`, with its expectations, in a process of its own with a root folder of its own.
  void InOwnRoot(const std::function<void()>& body) {
    ProcessPool pool;
    pool.Start([&] {
      if (!EnterOwnRoot(place_.path())) return false;
      body();
      return !HasFailure();
    });
    EXPECT_EQ(pool.WaitForAll(), "");
  }

 private:
  const TemporaryFolder place_;
};
