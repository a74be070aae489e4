#pragma once

#include <functional>

// Runs `task` on the main thread of this render process, behind what it does now. False, with the
// task dropped, when the process has no such thread. Any thread may call it, once CEF is set up:
// before, it would crash.
bool PostToRendererThread(std::function<void()> task);
