#include "support/fake_cef/fake_library.h"

#include "support/fake_cef/fake_strings.h"

namespace fake_cef {

Library& library() {
  static Library state;
  return state;
}

namespace {

int Truth() { return library().succeeds ? 1 : 0; }

// Returns a new object with one reference, which the caller takes over.
template <class Fake, class... Arguments>
typename Fake::StructType* New(Arguments&&... arguments) {
  if (library().gives_nothing) return nullptr;
  return new Fake(std::forward<Arguments>(arguments)...);
}

int Post(cef_thread_id_t thread, cef_task_t* task, int64 delay_ms) {
  auto owned = Own<cef_task_t>::Take(task);
  if (library().succeeds) library().tasks.push_back({thread, std::move(owned), delay_ms});
  return Truth();
}

}  // namespace
}  // namespace fake_cef

using namespace fake_cef;

extern "C" {

const char* cef_api_hash(int entry) { return entry == 0 ? library().api_hash : "another"; }

int cef_execute_process(const cef_main_args_t* args, cef_app_t* application, void* sandbox_info) {
  const auto owned = Own<cef_app_t>::Take(application);
  library().sandbox_info = sandbox_info;
  return library().child_process ? library().child_process(*args, *application) : -1;
}

int cef_initialize(const cef_main_args_t* args, const cef_settings_t* settings,
                   cef_app_t* application, void* sandbox_info) {
  library().application = Own<cef_app_t>::Take(application);
  library().settings = settings;
  library().sandbox_info = sandbox_info;
  if (library().child_process) library().child_process(*args, *application);
  return Truth();
}

void cef_shutdown() { library().calls += "shutdown "; }
void cef_run_message_loop() { library().calls += "run "; }
void cef_quit_message_loop() { library().calls += "quit "; }

int cef_register_extension(const cef_string_t* extension_name, const cef_string_t* javascript_code,
                           cef_v8handler_t* handler) {
  library().extensions.push_back(
      {TextOf(extension_name), TextOf(javascript_code), Own<cef_v8handler_t>::Take(handler)});
  return Truth();
}

cef_cookie_manager_t* cef_cookie_manager_get_global_manager(cef_completion_callback_t* callback) {
  const auto owned = Own<cef_completion_callback_t>::Take(callback);
  if (callback) ++library().completion_callbacks;
  if (library().gives_nothing) return nullptr;
  if (!library().cookie_manager) library().cookie_manager = Make<FakeCookieManager>();
  return library().cookie_manager.Give();
}

cef_process_message_t* cef_process_message_create(const cef_string_t* name) {
  return library().gives_nothing ? nullptr : New<FakeMessage>(TextOf(name), Make<FakeList>());
}
cef_string_userfree_t cef_write_json(cef_value_t* node, cef_json_writer_options_t) {
  const auto owned = Own<FakeValue>::Take(FakeValue::From(node));
  ++library().written_texts;
  const std::u16string text = owned->Json();
  return text.empty() ? nullptr : NewUserFree(text);
}
cef_value_t* cef_value_create() { return New<FakeValue>(Element()); }
cef_list_value_t* cef_list_value_create() { return New<FakeList>(); }
cef_dictionary_value_t* cef_dictionary_value_create() { return New<FakeDictionary>(); }
cef_binary_value_t* cef_binary_value_create(const void* data, std::size_t size) {
  return New<FakeBinary>(std::string(static_cast<const char*>(data), size));
}
cef_command_line_t* cef_command_line_create() { return New<FakeCommandLine>(); }
cef_command_line_t* cef_command_line_get_global() { return library().command_line.Give(); }

cef_v8context_t* cef_v8context_get_current_context() { return library().current_context.Give(); }

cef_v8value_t* cef_v8value_create_null() { return New<FakeV8Value>(Null{}); }
cef_v8value_t* cef_v8value_create_bool(int value) { return New<FakeV8Value>(value != 0); }
cef_v8value_t* cef_v8value_create_int(int32 value) { return New<FakeV8Value>(value); }
cef_v8value_t* cef_v8value_create_double(double value) { return New<FakeV8Value>(value); }
cef_v8value_t* cef_v8value_create_string(const cef_string_t* value) {
  return New<FakeV8Value>(TextOf(value));
}
cef_v8value_t* cef_v8value_create_array(int length) {
  if (library().entered_contexts == 0) return nullptr;
  if (library().allows_array && !library().allows_array(length)) return nullptr;
  return New<FakeV8Value>(
      Array{std::vector<Own<FakeV8Value>>(static_cast<std::size_t>(length)), {}});
}

// The function calls `handler`.
cef_v8value_t* cef_v8value_create_function(const cef_string_t* name, cef_v8handler_t* handler) {
  const auto owned = Own<cef_v8handler_t>::Take(handler);
  if (library().entered_contexts == 0) return nullptr;
  return New<FakeV8Value>(Function{[owned, text = TextOf(name)](const auto& arguments) {
    std::u16string called = text;
    const cef_string_t given_name{called.data(), called.size(), nullptr};
    std::vector<cef_v8value_t*> given(arguments.begin(), arguments.end());
    for (cef_v8value_t* argument : given)
      argument->base.add_ref(&argument->base);
    cef_v8value_t* retval = nullptr;
    cef_string_t exception{};
    owned->execute(owned.get(), &given_name, New<FakeV8Value>(Object{}), given.size(), given.data(),
                   &retval, &exception);
    return Own<FakeV8Value>::Take(FakeV8Value::From(retval));
  }});
}

int cef_currently_on(cef_thread_id_t thread_id) {
  return library().currently_on(thread_id) ? 1 : 0;
}
int cef_post_task(cef_thread_id_t thread_id, cef_task_t* task) { return Post(thread_id, task, 0); }
int cef_post_delayed_task(cef_thread_id_t thread_id, cef_task_t* task, int64 delay_ms) {
  return Post(thread_id, task, delay_ms);
}

int cef_browser_host_create_browser(const cef_window_info_t*, cef_client_t* client,
                                    const cef_string_t* url, const cef_browser_settings_t*,
                                    struct _cef_request_context_t* request_context) {
  library().client = Own<cef_client_t>::Take(client);
  library().browser_url = TextOf(url);
  if (request_context) ReportMisuse("a browser was made with a request context");
  return Truth();
}

}  // extern "C"
