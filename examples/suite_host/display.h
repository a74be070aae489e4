#pragma once

// Returns true when the X display that the environment names can be opened. Without a display,
// Chromium crashes even off-screen.
bool HasDisplay();

// Ignores errors of the X server. With --window, Chromium may query the window of a popup that has
// closed, and Xlib's default handler would end the process. Call after CefInitialize().
void IgnoreDisplayErrors();
