#include "platform/process_memory.h"

#include <mach/mach.h>
#include <cstdint>

namespace platform {
namespace {

// The first revision of task_vm_info, which ends with the physical footprint: its members, which
// older headers lack, and its size in words, the kernel's unit.
constexpr task_flavor_t kVmInfoPurgeable = 23;
constexpr mach_msg_type_number_t kWords = 38;

#pragma pack(push, 4)
struct VmInfo {
  std::uint64_t virtual_size;
  std::int32_t region_count;
  std::int32_t page_size;
  std::uint64_t resident_size;
  std::uint64_t resident_size_peak;
  std::uint64_t device;
  std::uint64_t device_peak;
  std::uint64_t internal;
  std::uint64_t internal_peak;
  std::uint64_t external;
  std::uint64_t external_peak;
  std::uint64_t reusable;
  std::uint64_t reusable_peak;
  std::uint64_t purgeable_volatile_pmap;
  std::uint64_t purgeable_volatile_resident;
  std::uint64_t purgeable_volatile_virtual;
  std::uint64_t compressed;
  std::uint64_t compressed_peak;
  std::uint64_t compressed_lifetime;
  std::uint64_t physical_footprint;
};
#pragma pack(pop)
static_assert(sizeof(VmInfo) == kWords * sizeof(natural_t), "the kernel's layout");

}  // namespace

bool GetDirtiedMemory(unsigned long long& bytes) {
  VmInfo info{};
  mach_msg_type_number_t words = kWords;
  if (task_info(mach_task_self(), kVmInfoPurgeable, reinterpret_cast<task_info_t>(&info), &words) !=
      KERN_SUCCESS) {
    return false;
  }
  // The kernel does not count both at once: memory that was just freed can still be in one of them.
  bytes = info.internal > info.purgeable_volatile_pmap
              ? info.internal - info.purgeable_volatile_pmap
              : 0;
  return true;
}

}  // namespace platform
