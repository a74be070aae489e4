#pragma once

#include <functional>
#include <string>
#include <vector>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "support/fake_cef/fake_library.h"

// Objects of ours behind every kind of struct that the library is given. They note what they are
// called with.

// Opaque to the binding; its content does not matter.
struct _cef_popup_features_t {};

struct ProbeNotes {
  std::string call;     // the method and its arguments, "OnLoadEnd object object 1"
  bool answer = false;  // what methods with a truth value return
  bool keep = false;    // whether objects are kept beyond the call
  std::vector<CefRefPtr<CefBaseRefCounted>> kept;
  // What the getters of handlers return: the probe itself or null.
  bool has_handlers = true;
  // Changes the in-out parameters of OnBeforePopup; may be null.
  std::function<void(CefWindowInfo& info, CefRefPtr<CefClient>& client,
                     CefBrowserSettings& settings, bool& no_javascript_access)>
      change_popup;
};

ProbeNotes& probe_notes();

// Wraps a new probe and returns its struct as the library gets it.
template <class Struct>
fake_cef::Own<Struct> NewClientStruct();

// How many probes live.
int LiveProbes();
