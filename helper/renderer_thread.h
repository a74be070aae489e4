#pragma once

#include <functional>

// Posts `task` to the main thread of this render process, which runs it after its current work.
// Returns false and drops the task if the process has no such thread. Any thread may call it once
// CEF is set up. An earlier call crashes.
bool PostToRendererThread(std::function<void()> task);
