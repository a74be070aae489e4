#include "helper/zygote.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <string>

#include "helper/application_context.h"
#include "helper/log_message.h"
#include "helper/notification_listener.h"
#include "support/files.h"
#include "tests/support/banners.h"
#include "tests/support/lock_objects.h"
#include "tests/support/process_pool.h"
#include "tests/support/session_bus.h"
#include "tests/support/test_home.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// Matches a line that the only thread of `process` wrote.
auto LineOf(pid_t process, const std::string& text) {
  const std::string id = std::to_string(process);
  return AllOf(HasSubstr("] | " + id + " | HXPL | "), HasSubstr(" | " + id + " | "),
               EndsWith(text));
}

class ZygoteTest : public testing::Test {
 protected:
  std::vector<std::string> Lines() const { return ReadLines(home_.helper_log()); }

  const TestHome home_;
  SessionBus bus_;
};

TEST_F(ZygoteTest, ReleasesLogBeforeForks) {
  ApplicationContext::instance();
  CloseLogBeforeForks(false);
  EXPECT_EQ(gLogger, nullptr);
  EXPECT_TRUE(LockObjects(home_.helper_log(), LockObjects::Keep{}).gone());
  EXPECT_THAT(Lines(), ElementsAre(LineOf(getpid(), kStartBanner),
                                   AllOf(HasSubstr("| [INFO] |"), HasSubstr("| Zygote |"),
                                         LineOf(getpid(), "other forked processes have none")),
                                   LineOf(getpid(), kEndBanner)));
}

TEST_F(ZygoteTest, WarnsIfForksAreSandboxed) {
  ApplicationContext::instance();
  CloseLogBeforeForks(true);
  EXPECT_EQ(gLogger, nullptr);
  EXPECT_THAT(Lines(), ElementsAre(EndsWith(kStartBanner),
                                   AllOf(HasSubstr("| [WARN] |"),
                                         EndsWith("have no log and no memory limit")),
                                   EndsWith(kEndBanner)));
}

TEST_F(ZygoteTest, ForkedRendererCreatesOwnContext) {
  ApplicationContext::instance();
  CloseLogBeforeForks(false);
  ProcessPool pool;
  const pid_t renderer = pool.Start([&] {
    NotificationListener listener;
    SetUpForkedRenderer(listener);
    return LockObjects(home_.helper_log(), LockObjects::Keep{}).users() == 1;
  });
  EXPECT_EQ(pool.WaitForAll(), "");
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_THAT(lines[2], LineOf(getpid(), kEndBanner));
  EXPECT_THAT(lines[3], LineOf(renderer, kStartBanner));
}

TEST_F(ZygoteTest, EndsOnlyForkedRendererAboveLimit) {
  ApplicationContext::instance();
  CloseLogBeforeForks(false);
  ProcessPool pool;
  const auto renderer = [](std::size_t size) {
    return [size] {
      if (mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE,
               -1, 0) == MAP_FAILED) {
        return false;
      }
      NotificationListener listener;
      SetUpForkedRenderer(listener);
      for (;;)
        pause();
    };
  };
  const pid_t small = pool.Start(renderer(1 << 20));
  const pid_t full = pool.Start(renderer(600 << 20));
  bus_.WaitForObservers(2);
  bus_.SendRefresh();
  const ProcessPool::Ended ended = pool.WaitForOne();
  EXPECT_EQ(ended.pid, full);
  EXPECT_EQ(ended.problem, "a process ended with status 1");
  bus_.WaitForAnalytics(1);
  EXPECT_TRUE(pool.Kill(small));
  const std::vector<std::string> lines = Lines();
  ASSERT_EQ(lines.size(), 7U);
  EXPECT_THAT(lines[5], AllOf(HasSubstr("| " + std::to_string(full) + " | HXPL |"),
                              EndsWith(" MB. Quitting !!")));
  LockObjects(home_.helper_log(), LockObjects::Keep{}).Remove();
}

}  // namespace
