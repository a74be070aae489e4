#pragma once

#include "include/capi/cef_app_capi.h"
#include "include/cef_base.h"

typedef cef_thread_id_t CefThreadId;

// A task for another thread. The application implements it.
class CefTask : public virtual CefBaseRefCounted {
 public:
  virtual void Execute() = 0;
};

bool CefCurrentlyOn(CefThreadId threadId);
// Post `task` to a thread, to run at once or after the delay. Return false, and release `task`,
// when this process has no such thread.
bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task);
bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64 delay_ms);
