#pragma once

#include "bridge/array_packing.h"
#include "bridge/message_callbacks.h"

// The name of the extension that adds the object `app` to each script context.
extern const char kAppExtensionName[];

// The script of the extension, which runs in each script context before the page's own scripts.
// Adds its functions to an existing `app`.
extern const char kAppExtensionSource[];

// Registers the extension. Its native functions send messages to the browser process and store the
// page's callbacks in `callbacks`. They hold one reference to `callbacks` and one to `packing` as
// long as CEF keeps the extension. Neither argument may be null. Must be called once in each render
// process, from OnWebKitInitialized.
void RegisterAppExtension(CefRefPtr<MessageCallbacks> callbacks, CefRefPtr<ArrayPacking> packing);
