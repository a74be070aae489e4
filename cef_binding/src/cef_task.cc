#include "include/cef_task.h"

#include "client_object.h"

using cef_binding::Rejected;

namespace {

using TaskObject = cef_binding::ClientObject<CefTask, cef_task_t>;

void Execute(cef_task_t* self) {
  if (Rejected(self)) return;
  TaskObject::Of(self).Execute();
}

void FillTask(cef_task_t& slots) { slots.execute = Execute; }

}  // namespace

bool CefCurrentlyOn(CefThreadId threadId) { return cef_currently_on(threadId) != 0; }

bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task) {
  if (Rejected(task)) return false;
  return cef_post_task(threadId, TaskObject::Wrap(task, FillTask)) != 0;
}

bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64 delay_ms) {
  if (Rejected(task)) return false;
  return cef_post_delayed_task(threadId, TaskObject::Wrap(task, FillTask), delay_ms) != 0;
}
