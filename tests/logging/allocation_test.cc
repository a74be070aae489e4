#include <cstdlib>
#include <new>

#include "tests/logging/log_file.h"

namespace {

long g_allocations = 0;

}  // namespace

// In place of the library's. Inlined, they would look to g++ like a new that ends in free().
__attribute__((noinline)) void* operator new(std::size_t size) {
  ++g_allocations;
  void* const memory = std::malloc(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}
__attribute__((noinline)) void operator delete(void* memory) noexcept { std::free(memory); }
__attribute__((noinline)) void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

class AllocationTest : public LogFileTest {};

TEST_F(AllocationTest, LineNeedsNoneOnceWarm) {
  logger_.setSubDomain("a name that does not fit into a short string");
  ASSERT_TRUE(Open());
  logger_.info("%s is the %dth of these lines, which is as long as any of them", "this", 1000);
  const long before = g_allocations;
  for (int i = 0; i < 1000; ++i) {
    logger_.setSubDomain("another name that is not a short string");
    logger_.info("%s is the %dth of these lines", "this", i);
  }
  EXPECT_EQ(g_allocations, before);
  Close();
  EXPECT_EQ(Lines().size(), 1001U);
}

}  // namespace
