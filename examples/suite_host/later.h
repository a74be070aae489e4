#pragma once

#include <functional>

// Runs `work` on the main thread of the browser process, after the delay. Can be called on any
// thread. Drops `work` if CEF rejects the task.
void RunLater(int milliseconds, std::function<void()> work);
