// Observes or posts notifications, for tests between processes:
//   observe NAME COUNT   prints "observing", then "received" COUNT times, and exits
//   post NAME...         posts the names in turn; fails when a name is rejected

#include <cstdio>
#include <string>
#include <thread>

#include "platform/autorelease_scope.h"
#include "platform/notifications.h"
#include "tests/platform/main_loop.h"

namespace {

void Say(const char* text) {
  std::puts(text);
  std::fflush(stdout);
}

int Observe(const std::string& name, int count) {
  const std::thread::id main_thread = std::this_thread::get_id();
  const bool expects_main_thread = platform::GetDeliveryThread() == platform::DeliveryThread::kMain;
  MainLoop loop;
  int received = 0;
  bool problem = false;
  const platform::NotificationObserver observer(
      name,
      [&] {
        const bool on_main_thread = std::this_thread::get_id() == main_thread;
        Say(on_main_thread == expects_main_thread ? "received" : "received on the wrong thread");
        if (++received == count) loop.Quit();
      },
      [&](const std::string& text) {
        Say(text.c_str());
        problem = true;
      });
  Say("observing");
  loop.Run();
  return problem ? 1 : 0;
}

int Post(char** names) {
  for (; *names; ++names) {
    if (!platform::PostNotification(*names)) return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const platform::AutoreleaseScope pool;
  const std::string action = argc > 1 ? argv[1] : "";
  if (action == "observe" && argc == 4) return Observe(argv[2], std::stoi(argv[3]));
  if (action == "post") return Post(argv + 2);
  return 2;
}
