#pragma once

// Opens the X display that the environment names, and keeps the connection open. Returns false when
// the display cannot be opened. Without a display, Chromium crashes even off-screen.
bool HasDisplay();

// Ignores errors of the X server. With --window, Chromium may query the window of a popup that has
// closed, and Xlib's default handler would end the process. Call after CefInitialize().
void IgnoreDisplayErrors();
