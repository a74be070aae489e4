// Tests the bitness on other machines: replaces the system's uname().

#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <cerrno>
#include <cstring>
#include <string>

#include "utils/os_utils.h"

namespace {

// uname() fails when null.
const char* g_machine = nullptr;
int g_success = 0;

}  // namespace

// Replaces the system's function.
extern "C" int uname(utsname* __name) {
  if (!g_machine) {
    errno = EFAULT;
    return -1;
  }
  std::memset(__name, 0, sizeof(*__name));
  std::strncpy(__name->machine, g_machine, sizeof(__name->machine) - 1);
  return g_success;
}

namespace {

using TarnUtils::OSUtils;

int BitsOf(const char* machine) {
  g_machine = machine;
  OSUtils::OSBitness bitness{};
  EXPECT_TRUE(OSUtils::GetCurrentOSBitness(bitness)) << machine;
  return bitness;
}

TEST(OSBitnessTest, I386Has32Bits) { EXPECT_EQ(BitsOf("i386"), 32); }

TEST(OSBitnessTest, EveryOtherMachineHas64Bits) {
  for (const char* machine : {"x86_64", "arm64", "aarch64", "i686", "I386", "i3860", "i38", " i386",
                              "Power Macintosh", ""}) {
    EXPECT_EQ(BitsOf(machine), 64) << machine;
  }
}

TEST(OSBitnessTest, SuccessMayBeAnyNonNegativeNumber) {
  g_success = 1;
  EXPECT_EQ(BitsOf("i386"), 32);
  g_success = 0;
}

TEST(OSBitnessTest, FailureLeavesBitnessUnchanged) {
  g_machine = nullptr;
  OSUtils::OSBitness bitness = OSUtils::Bits32;
  EXPECT_FALSE(OSUtils::GetCurrentOSBitness(bitness));
  EXPECT_EQ(bitness, OSUtils::Bits32);
  bitness = OSUtils::Bits64;
  EXPECT_FALSE(OSUtils::GetCurrentOSBitness(bitness));
  EXPECT_EQ(bitness, OSUtils::Bits64);
}

}  // namespace
