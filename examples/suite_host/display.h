#pragma once

// True when the X display that the environment names can be opened. Chromium wants one even
// off-screen, and crashes without.
bool HasDisplay();

// Lets errors of the X server pass. With --window, Chromium may still ask about the window of a
// popup that has closed, at which Xlib would end the process. To be called once CEF is initialised.
void IgnoreDisplayErrors();
