#include "platform/process_memory.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>
#include <thread>

#include "tests/support/temporary_folder.h"

namespace {

constexpr std::size_t kSize = 64 << 20;
// The rest of the process may allocate and free memory during a test.
constexpr unsigned long long kMaxGrowth = kSize + (8 << 20);
constexpr unsigned long long kMinGrowth = kSize - (8 << 20);

class ProcessMemoryTest : public testing::Test {
 protected:
  static unsigned long long Dirtied() {
    unsigned long long bytes = 0;
    EXPECT_TRUE(platform::GetDirtiedMemory(bytes));
    return bytes;
  }

  void Map(int kind) {
    pages_ = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, kind | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages_, MAP_FAILED);
  }

  // The thread sanitizer would record each access, in memory that also counts.
  __attribute__((no_sanitize_thread)) void Fill() const {
    volatile char* const bytes = static_cast<char*>(pages_);
    for (std::size_t i = 0; i < kSize; ++i)
      bytes[i] = 1;
  }

  ~ProcessMemoryTest() override {
    if (pages_ != MAP_FAILED) munmap(pages_, kSize);
  }

  void* pages_ = MAP_FAILED;
};

TEST_F(ProcessMemoryTest, GrowsByDirtiedMemory) {
  const unsigned long long before = Dirtied();
  Map(MAP_PRIVATE);
  EXPECT_LT(Dirtied() - before, kMinGrowth);
  Fill();
  EXPECT_GE(Dirtied() - before, kMinGrowth);
  EXPECT_LE(Dirtied() - before, kMaxGrowth);
}

TEST_F(ProcessMemoryTest, ShrinksByOfferedMemory) {
  Map(MAP_PRIVATE);
  Fill();
  const unsigned long long before = Dirtied();
  ASSERT_EQ(madvise(pages_, kSize, MADV_FREE), 0);
  EXPECT_GE(before - Dirtied(), kMinGrowth);
}

TEST_F(ProcessMemoryTest, ExcludesSharedMemory) {
  Map(MAP_SHARED);
  const unsigned long long before = Dirtied();
  Fill();
  EXPECT_LT(Dirtied() - before, kMinGrowth);
}

// Reads a byte of each page.
__attribute__((no_sanitize_thread)) int SumOfPages(const volatile char* bytes, std::size_t size) {
  int sum = 0;
  for (std::size_t i = 0; i < size; i += 4096)
    sum += bytes[i];
  return sum;
}

TEST_F(ProcessMemoryTest, ExcludesCleanFilePages) {
  const TemporaryFolder folder;
  const int file = open((folder.path() + "/file").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_NE(file, -1);
  constexpr std::size_t kGibibyte = 1 << 30;
  ASSERT_EQ(ftruncate(file, kGibibyte), 0);
  void* const pages = mmap(nullptr, kGibibyte, PROT_READ | PROT_WRITE, MAP_PRIVATE, file, 0);
  close(file);
  ASSERT_NE(pages, MAP_FAILED);
  const unsigned long long before = Dirtied();
  EXPECT_EQ(SumOfPages(static_cast<char*>(pages), kGibibyte), 0);
  EXPECT_LT(Dirtied() - before, kMinGrowth);
  munmap(pages, kGibibyte);
}

TEST_F(ProcessMemoryTest, WorksOnAnyThread) {
  unsigned long long bytes = 0;
  bool told = false;
  std::thread([&] { told = platform::GetDirtiedMemory(bytes); }).join();
  EXPECT_TRUE(told);
  EXPECT_GT(bytes, 0U);
}

}  // namespace
