#pragma once

#include "include/capi/cef_app_capi.h"
#include "include/cef_base.h"

typedef cef_thread_id_t CefThreadId;

// A piece of work for another thread. Implemented by us.
class CefTask : public virtual CefBaseRefCounted {
 public:
  virtual void Execute() = 0;
};

bool CefCurrentlyOn(CefThreadId threadId);
// False when this process has no such thread; the task is released then.
bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task);
bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64 delay_ms);
