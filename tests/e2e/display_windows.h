#pragma once

#include <string>

// Returns how many visible windows of that size an X display has; -1 when it does not answer.
int CountWindows(const std::string& display, int width, int height);
