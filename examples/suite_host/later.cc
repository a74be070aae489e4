#include "examples/suite_host/later.h"

#include <utility>

#include "include/cef_task.h"

namespace {

class Later : public CefTask {
 public:
  explicit Later(std::function<void()> work) : work_(std::move(work)) {}

  void Execute() override { work_(); }

 private:
  const std::function<void()> work_;

  IMPLEMENT_REFCOUNTING(Later)
};

}  // namespace

void RunLater(int milliseconds, std::function<void()> work) {
  CefPostDelayedTask(TID_UI, new Later(std::move(work)), milliseconds);
}
