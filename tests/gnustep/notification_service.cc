// GNUstep's daemon, with its names in a folder of the test's own: two tests do not hear each other.

#include "tests/platform/notification_service.h"

#include <sys/inotify.h>
#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_home.h"

namespace {

namespace fs = std::filesystem;

// Where the daemon makes a file that tells its name once it is ready. `temporary` is for its owner
// alone: otherwise it would make another folder in it.
std::string MakeNamesFolder(const std::string& temporary) {
  const std::string names = temporary + "/NSMessagePort/names";
  fs::create_directories(names);
  return names;
}

// The next file that is complete in a folder.
class NewFile {
 public:
  explicit NewFile(const std::string& folder) : queue_(inotify_init1(IN_CLOEXEC)) {
    if (queue_ < 0 || inotify_add_watch(queue_, folder.c_str(), IN_CLOSE_WRITE) < 0) {
      std::perror("inotify");
      std::abort();
    }
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() { close(queue_); }

  void Wait() const {
    char event[sizeof(inotify_event) + 256];
    if (read(queue_, event, sizeof event) <= 0) std::abort();
  }

 private:
  const int queue_;
};

}  // namespace

class NotificationService::Implementation {
 public:
  Implementation()
      : variable_("TEMP", folder_.path().c_str()),
        ready_(MakeNamesFolder(folder_.path())),
        daemon_({"gdnc", "--no-fork"}, {{}, folder_.path() + "/errors"}) {
    ready_.Wait();
  }

 private:
  const TestHome home_;
  const TemporaryFolder folder_;
  const ScopedVariable variable_;
  const NewFile ready_;
  const ChildProcess daemon_;
};

NotificationService::NotificationService() : implementation_(std::make_unique<Implementation>()) {}

NotificationService::~NotificationService() = default;

// An observer is known to the daemon as soon as it is made.
void NotificationService::WaitForObservers(int /*count*/) {}
