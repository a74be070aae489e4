#pragma once

#include <functional>
#include <string>
#include <vector>

#include "include/capi/cef_app_capi.h"
#include "include/capi/cef_client_capi.h"
#include "support/fake_cef/fake_v8.h"

namespace fake_cef {

// The state behind the exported functions: what tests set for them to answer, and what they were
// given. Tests reset it by assigning a new one. References that the library was given stay in it,
// as the library keeps them.
struct Library {
  const char* api_hash = "1f9f9e15bf7cf13de2557ddd411dfc9f694503b0";
  // Every function that creates or finds an object returns null.
  bool gives_nothing = false;
  // The result of the functions that return a truth value.
  bool succeeds = true;
  std::function<bool(cef_thread_id_t)> currently_on = [](cef_thread_id_t) { return true; };

  Own<FakeV8Context> current_context;
  int written_texts = 0;                         // of cef_write_json
  int entered_contexts = 0;                      // arrays can be made while it is not 0
  std::function<bool(int length)> allows_array;  // asked before an array is made; may be empty

  // Runs in place of a child process or of the browser's set-up.
  std::function<int(const cef_main_args_t&, cef_app_t&)> child_process;
  const cef_settings_t* settings = nullptr;
  void* sandbox_info = nullptr;
  Own<cef_app_t> application;

  struct Extension {
    std::u16string name;
    std::u16string source;
    Own<cef_v8handler_t> handler;
  };
  std::vector<Extension> extensions;

  Own<FakeCommandLine> command_line;  // the process's own
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

  std::string calls;  // of functions without arguments, each followed by a blank
};

Library& library();

}  // namespace fake_cef
