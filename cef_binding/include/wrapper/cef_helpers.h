#pragma once

#include <cassert>

#include "include/cef_task.h"

// Assertions of debug builds on the thread of a callback.
#define CEF_REQUIRE_UI_THREAD() assert(CefCurrentlyOn(TID_UI))
#define CEF_REQUIRE_RENDERER_THREAD() assert(CefCurrentlyOn(TID_RENDERER))
