#pragma once

#include <gtest/gtest.h>

#include "support/fake_cef/fake_library.h"
#include "support/fake_cef/fake_strings.h"

namespace fake_cef {

// Gives each test a new library. Fails a test that misuses an object, or that leaves strings or
// live objects of the fake library behind. Also counts live objects of the binding if the build
// does.
class FakeCefTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

 private:
  long client_objects_ = 0;
  long strings_ = 0;
};

}  // namespace fake_cef
