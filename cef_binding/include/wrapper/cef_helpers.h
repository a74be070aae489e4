#pragma once

#include <cassert>

#include "include/cef_task.h"

// Debug builds assert the thread of a callback.
#define CEF_REQUIRE_UI_THREAD() assert(CefCurrentlyOn(TID_UI))
#define CEF_REQUIRE_RENDERER_THREAD() assert(CefCurrentlyOn(TID_RENDERER))
