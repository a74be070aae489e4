#include "include/cef_task.h"

#include "client_object.h"

namespace {

using TaskObject = cef_binding::ClientObject<CefTask, cef_task_t>;

void FillTask(cef_task_t& slots) {
  slots.execute = [](cef_task_t* self) { TaskObject::Of(self).Execute(); };
}

}  // namespace

bool CefCurrentlyOn(CefThreadId threadId) { return cef_currently_on(threadId) != 0; }

bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task) {
  return cef_post_task(threadId, TaskObject::Wrap(task, FillTask)) != 0;
}

bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64 delay_ms) {
  return cef_post_delayed_task(threadId, TaskObject::Wrap(task, FillTask), delay_ms) != 0;
}
