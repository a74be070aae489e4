#pragma once

#include <functional>
#include <string>
#include <vector>

#include "include/capi/cef_app_capi.h"
#include "include/capi/cef_client_capi.h"
#include "support/fake_cef/fake_v8.h"

namespace fake_cef {

// The state behind the exported functions: the results that tests set, and the arguments that the
// functions received. Tests reset the state by assigning a new one. The state keeps the references
// that the functions received, as the library does.
struct Library {
  const char* api_hash = "1f9f9e15bf7cf13de2557ddd411dfc9f694503b0";
  // Every exported function that creates an object, or returns the cookie manager, returns null.
  bool gives_nothing = false;
  // The result of the functions that return success or failure.
  bool succeeds = true;
  std::function<bool(cef_thread_id_t)> currently_on = [](cef_thread_id_t) { return true; };

  Own<FakeV8Context> current_context;
  int written_texts = 0;     // texts that cef_write_json() has returned
  int entered_contexts = 0;  // arrays can be created while it is not 0
  // Called before an array is created; no array is created when it returns false. May be empty.
  std::function<bool(int length)> allows_array;

  // Runs in place of a child process, or during the browser's initialization, which ignores the
  // result. If empty, cef_execute_process() returns -1.
  std::function<int(const cef_main_args_t&, cef_app_t&)> child_process;
  const cef_settings_t* settings = nullptr;  // the caller's; may dangle after the call
  void* sandbox_info = nullptr;
  Own<cef_app_t> application;

  struct Extension {
    std::u16string name;
    std::u16string source;
    Own<cef_v8handler_t> handler;
  };
  std::vector<Extension> extensions;

  Own<FakeCommandLine> command_line;  // of this process
  Own<FakeCookieManager> cookie_manager;
  int completion_callbacks = 0;

  struct PostedTask {
    cef_thread_id_t thread;
    Own<cef_task_t> task;
    int64 delay_ms;
  };
  std::vector<PostedTask> tasks;

  std::u16string browser_url;
  Own<cef_client_t> client;

  // The called functions that have no arguments, each followed by a space: "run shutdown ".
  std::string calls;
};

Library& library();

}  // namespace fake_cef
