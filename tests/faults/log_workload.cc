// Uses a log like a program of the suite. Each byte of standard input is a step: 'a' attaches, 'w'
// writes a numbered line, 'd' detaches, and 's' stops the faults. The end of the input ends the
// program. Each step prints a line on standard output: whether a fault has happened, the step's
// result, and the number of the last written line.
//
//   log_workload FOLDER WRITER SEGMENT_SIZE MAX_COPIED_SIZE
//
// An empty FOLDER selects the log's default folder in the home folder. Exit status: 0, or 3 when
// descriptors are still open.

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "tests/faults/descriptors.h"
#include "tests/stress/log_user.h"

namespace {

constexpr long kMaxText = 40;

// Functions of the preloaded library; null without that library.
auto* const g_has_happened =
    reinterpret_cast<bool (*)()>(dlsym(RTLD_DEFAULT, "fault_has_happened"));
auto* const g_pause = reinterpret_cast<void (*)(bool)>(dlsym(RTLD_DEFAULT, "fault_pause"));

// The system calls below belong to the test, so they bypass the hooks.
bool ReadStep(char& step) { return syscall(SYS_read, 0, &step, 1) == 1; }

void Answer(const char* result, long number) {
  const bool happened = g_has_happened && g_has_happened();
  char line[64];
  std::snprintf(line, sizeof line, "%s %s %ld\n", happened ? "fault" : "calm", result, number);
  syscall(SYS_write, 1, line, std::strlen(line));
}

class Steps {
 public:
  explicit Steps(char** arguments) : arguments_(arguments) {}

  const char* Take(char step) {
    try {
      if (step == 'a') return Attach() ? "done" : "refused";
      if (step == 'w') return Write();
      if (step == 'd') return Detach() ? "done" : "refused";
      if (step == 's') return StopFaults();
      return "unknown";
    } catch (const std::bad_alloc&) {
      return "no-memory";
    }
  }

  // Returns the number of the last written line.
  long written() const { return logger_ ? logger_->written() : 0; }

 private:
  bool Attach() {
    if (!user_) {
      user_ = std::make_unique<LogUser>(arguments_[1], "shared.log",
                                        std::strtoll(arguments_[3], nullptr, 10),
                                        std::strtoll(arguments_[4], nullptr, 10));
    }
    attached_ = user_->Attach();
    return attached_;
  }

  const char* Write() {
    if (!logger_) {
      const auto writer = static_cast<int>(std::strtol(arguments_[2], nullptr, 10));
      logger_ = std::make_unique<NumberedLogger>(writer, kMaxText);
    }
    logger_->WriteNext();
    return "done";
  }

  bool Detach() {
    if (attached_) attached_ = !user_->Detach();
    const bool detached = !attached_;
    if (detached) user_.reset();
    return detached;
  }

  // Later calls neither fail nor count.
  static const char* StopFaults() {
    if (g_pause) g_pause(true);
    return "done";
  }

  char** const arguments_;
  std::unique_ptr<LogUser> user_;
  std::unique_ptr<NumberedLogger> logger_;
  bool attached_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const int descriptors = OpenDescriptors();
  {
    Steps steps(argv);
    char step = 0;
    while (ReadStep(step)) {
      const char* const result = steps.Take(step);
      Answer(result, steps.written());
    }
  }
  return OpenDescriptors() == descriptors ? 0 : 3;
}
