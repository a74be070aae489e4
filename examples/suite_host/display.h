#pragma once

// True when the X display that the environment names can be opened. Chromium wants one even
// off-screen, and crashes without.
bool HasDisplay();
