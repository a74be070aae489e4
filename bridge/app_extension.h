#pragma once

#include "bridge/array_packing.h"
#include "bridge/message_callbacks.h"

// The script object `app` of every page.

extern const char kAppExtensionName[];

// Runs in each script context before the page's own scripts. Keeps an `app` that is there already.
extern const char kAppExtensionSource[];

// Registers the extension with native functions that send messages to the browser process and keep
// the page's callbacks in `callbacks`. They hold one reference to it and one to `packing` for as
// long as the library keeps the extension. To be called once in a render process, from
// OnWebKitInitialized.
void RegisterAppExtension(CefRefPtr<MessageCallbacks> callbacks, CefRefPtr<ArrayPacking> packing);
