// Uses a log as a program of the suite does, one step for each byte of its standard input: 'a'
// attaches, 'w' writes a numbered line, 'd' detaches, and the end of the input ends the program. A
// line on standard output follows each step: whether a fault has happened, and the step's result.
//
//   log_workload FOLDER WRITER SEGMENT_SIZE
//
// An empty FOLDER stands for the log's own place in the home folder. Exit status: 0, or 3 when
// descriptors are left open.

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "tests/faults/descriptors.h"
#include "tests/stress/log_user.h"

namespace {

constexpr long kMostText = 40;

// A function of the preloaded library; null without that library.
auto* const g_has_happened =
    reinterpret_cast<bool (*)()>(dlsym(RTLD_DEFAULT, "fault_has_happened"));

// The system calls below belong to the test, so they bypass the hooks.
bool ReadStep(char& step) { return syscall(SYS_read, 0, &step, 1) == 1; }

void Answer(const char* result) {
  const bool happened = g_has_happened && g_has_happened();
  char line[32];
  std::strcpy(line, happened ? "fault " : "calm ");
  std::strcat(line, result);
  std::strcat(line, "\n");
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
      return "unknown";
    } catch (const std::bad_alloc&) {
      return "no-memory";
    }
  }

 private:
  bool Attach() {
    if (!user_) {
      user_ = std::make_unique<LogUser>(arguments_[1], "shared.log",
                                        std::strtoll(arguments_[3], nullptr, 10));
    }
    attached_ = user_->Attach();
    return attached_;
  }

  const char* Write() {
    if (!logger_) {
      const auto writer = static_cast<int>(std::strtol(arguments_[2], nullptr, 10));
      logger_ = std::make_unique<NumberedLogger>(writer, kMostText);
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

  char** const arguments_;
  std::unique_ptr<LogUser> user_;
  std::unique_ptr<NumberedLogger> logger_;
  bool attached_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const int descriptors = OpenDescriptors();
  {
    Steps steps(argv);
    char step = 0;
    while (ReadStep(step))
      Answer(steps.Take(step));
  }
  return OpenDescriptors() == descriptors ? 0 : 3;
}
