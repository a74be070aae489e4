#pragma once

// True when the X display that the environment names can be opened. Chromium wants one even
// off-screen, and crashes without.
bool HasDisplay();

// Lets errors of the X server pass. A popup is a window of the display, and Chromium may still ask
// about one that is gone, at which Xlib would end the process. To be called once CEF is
// initialised.
void IgnoreDisplayErrors();
