#pragma once

#include <functional>

// Runs `work` on the browser process's main thread, after the delay.
void RunLater(int milliseconds, std::function<void()> work);
