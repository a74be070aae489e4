#include "tests/faults/fault_plan.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace faults {
namespace {

#define FAULT_NAME(family, name) name,
constexpr const char* kFamilyNames[] = {FAULT_FAMILIES(FAULT_NAME)};
#undef FAULT_NAME
constexpr int kFamilies = sizeof kFamilyNames / sizeof kFamilyNames[0];

constexpr int kShortError = -1;

struct NamedError {
  const char* name;
  int number;
};
constexpr NamedError kErrors[] = {
    {"SHORT", kShortError},
    {"EACCES", EACCES},
    {"EAGAIN", EAGAIN},
    {"EBUSY", EBUSY},
    {"ECONNREFUSED", ECONNREFUSED},
    {"ECONNRESET", ECONNRESET},
    {"EIDRM", EIDRM},
    {"EINTR", EINTR},
    {"EINVAL", EINVAL},
    {"EIO", EIO},
    {"EMFILE", EMFILE},
    {"ENOENT", ENOENT},
    {"ENOMEM", ENOMEM},
    {"ENOSPC", ENOSPC},
    {"EPERM", EPERM},
    {"EROFS", EROFS},
    {"EXDEV", EXDEV},
};

using Counter = std::atomic<std::uint64_t>;
struct Report {
  Counter failed;
  Counter calls[kFamilies];
};

struct Plan {
  int family = -1;
  std::uint64_t number = 0;
  int error = 0;
  bool lasting = false;
};

Report g_own_report;
Report* g_report = &g_own_report;
Plan g_plan;
std::atomic<bool> g_active{false};
// This model avoids an allocation by the dynamic linker on first use.
__attribute__((tls_model("initial-exec"))) thread_local int t_pauses = 0;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "fault injection: %s\n", what);
  std::abort();
}

int FamilyNamed(const char* name) {
  for (int i = 0; i < kFamilies; ++i) {
    if (std::strcmp(name, kFamilyNames[i]) == 0) return i;
  }
  Fail("unknown family in FAULT");
}

int ErrorNamed(const char* name) {
  for (const NamedError& named : kErrors) {
    if (std::strcmp(name, named.name) == 0) return named.number;
  }
  Fail("unknown error in FAULT");
}

// Parses FAULT. Modifies `text`.
void ReadPlan(char* text) {
  char* parts[4];
  char* rest = nullptr;
  for (char*& part : parts) {
    part = strtok_r(text, ":", &rest);
    if (!part) Fail("FAULT is not FAMILY:NUMBER:ERRNO:MODE");
    text = nullptr;
  }
  g_plan.family = FamilyNamed(parts[0]);
  g_plan.number = std::strtoull(parts[1], nullptr, 10);
  g_plan.error = ErrorNamed(parts[2]);
  g_plan.lasting = std::strcmp(parts[3], "on") == 0;
}

void MapReport(const char* path) {
  const int file = open(path, O_RDWR | O_CLOEXEC);
  void* const memory = mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (file == -1 || memory == MAP_FAILED) Fail("FAULT_REPORT cannot be mapped");
  close(file);
  g_report = static_cast<Report*>(memory);
}

void StopInChild() { g_active = false; }

// Faults begin in main(), because calls of the program's static constructors do not count.
int (*g_main)(int, char**, char**) = nullptr;

int StartedMain(int argc, char** argv, char** environment) {
  char* const plan = std::getenv("FAULT");
  const char* const report = std::getenv("FAULT_REPORT");
  if (plan && *plan) ReadPlan(plan);
  if (report) MapReport(report);
  unsetenv("FAULT");
  unsetenv("FAULT_REPORT");
  unsetenv("LD_PRELOAD");
  pthread_atfork(nullptr, nullptr, StopInChild);
  g_active = true;
  return g_main(argc, argv, environment);
}

}  // namespace

Outcome Decide(Family family) {
  if (!g_active || t_pauses != 0) return Outcome::kPass;
  const int index = static_cast<int>(family);
  const std::uint64_t number = ++g_report->calls[index];
  if (index != g_plan.family) return Outcome::kPass;
  if (number != g_plan.number && !(g_plan.lasting && number > g_plan.number)) return Outcome::kPass;
  ++g_report->failed;
  if (g_plan.error == kShortError) return Outcome::kShort;
  errno = g_plan.error;
  return Outcome::kFail;
}

Pause::Pause() { ++t_pauses; }
Pause::~Pause() { --t_pauses; }

void* RealFunction(const char* name) {
  const Pause pause;
  void* const function = dlsym(RTLD_NEXT, name);
  if (!function) Fail(name);
  return function;
}

}  // namespace faults

extern "C" {

// Programs that run with the library find these two functions by dlsym().
bool fault_has_happened() { return faults::g_report->failed != 0; }
void fault_pause(bool begin) { faults::t_pauses += begin ? 1 : -1; }

int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*linker_fini)(), void* stack_end) {
  faults::g_main = main;
  static auto* const real =
      reinterpret_cast<decltype(&__libc_start_main)>(faults::RealFunction("__libc_start_main"));
  return real(faults::StartedMain, argc, argv, init, fini, linker_fini, stack_end);
}

}  // extern "C"
