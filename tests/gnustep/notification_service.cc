// Runs GNUstep's daemon with its names in a private folder, so that tests do not affect each other.

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

// Creates the folder in which the daemon, when it is ready, creates a file that contains its name.
// `temporary` must be accessible only to its owner: otherwise the daemon would create another
// folder in it.
std::string MakeNamesFolder(const std::string& temporary) {
  const std::string names = temporary + "/NSMessagePort/names";
  fs::create_directories(names);
  return names;
}

// Waits for the next completely written file in a folder.
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

// Every observer registers with the daemon when it is created.
void NotificationService::WaitForObservers(int /*count*/) {}
