#pragma once

#include <functional>
#include <string>
#include <vector>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "support/fake_cef/fake_library.h"

// Application objects for each type of struct that the library receives. They record their calls.

// Completes a type that is opaque to the binding.
struct _cef_popup_features_t {};

struct ProbeNotes {
  std::string call;     // the method and its arguments, "OnLoadEnd object object 1"
  bool answer = false;  // the result of methods that return a bool
  bool keep = false;    // true: keep objects after the call
  std::vector<CefRefPtr<CefBaseRefCounted>> kept;
  // The getters of handlers return the probe itself if this is true, otherwise null.
  bool has_handlers = true;
  // Changes the in-out parameters of OnBeforePopup; may be null.
  std::function<void(CefWindowInfo& info, CefRefPtr<CefClient>& client,
                     CefBrowserSettings& settings, bool& no_javascript_access)>
      change_popup;
};

ProbeNotes& probe_notes();

// Wraps a new probe and returns the struct that the library receives.
template <class Struct>
fake_cef::Own<Struct> NewClientStruct();

// Returns the number of live probes.
int LiveProbes();
