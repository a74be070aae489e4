#include "helper/renderer_thread.h"

#include <utility>

#include "include/cef_task.h"

namespace {

class FunctionTask : public CefTask {
 public:
  explicit FunctionTask(std::function<void()> function) : function_(std::move(function)) {}

  void Execute() override { function_(); }

 private:
  const std::function<void()> function_;

  IMPLEMENT_REFCOUNTING(FunctionTask)
};

}  // namespace

bool PostToRendererThread(std::function<void()> task) {
  return CefPostTask(TID_RENDERER, new FunctionTask(std::move(task)));
}
