#include <atomic>
#include <cstddef>

#include "tests/logging/log_file.h"

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

// The C library's allocator. Its malloc is a weak alias of __libc_malloc; operator new calls
// malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t nmemb, std::size_t size);
void* __libc_realloc(void* ptr, std::size_t size);

void* malloc(std::size_t size) {
  ++g_allocations;
  return __libc_malloc(size);
}
void* calloc(std::size_t nmemb, std::size_t size) {
  ++g_allocations;
  return __libc_calloc(nmemb, size);
}
void* realloc(void* ptr, std::size_t size) {
  ++g_allocations;
  return __libc_realloc(ptr, size);
}
}

namespace {

class AllocationTest : public LogFileTest {};

TEST_F(AllocationTest, LineAllocatesNothingOnceWarm) {
  logger_.setSubDomain("a name that does not fit into a short string");
  ASSERT_TRUE(Open());
  logger_.info("%s is the %dth of these lines, which is as long as any of them", "this", 1000);
  const long before = g_allocations;
  for (int i = 0; i < 1000; ++i) {
    logger_.setSubDomain("another name that is not a short string");
    logger_.info("%s is the %dth of these lines", "this", i);
  }
  EXPECT_EQ(g_allocations, before);
  EXPECT_GT(before, 0) << "none is counted";
  Close();
  EXPECT_EQ(Lines().size(), 1001U);
}

}  // namespace
