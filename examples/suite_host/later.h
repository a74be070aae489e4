#pragma once

#include <functional>

// Runs `work` on the main thread of the browser process, after the delay.
void RunLater(int milliseconds, std::function<void()> work);
