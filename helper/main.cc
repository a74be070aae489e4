#include <optional>

#include "cefapp/cef_app_handler.h"
#include "helper/application_context.h"
#include "helper/notification_listener.h"
#include "helper/process_kind.h"
#include "helper/renderer_thread.h"
#include "helper/zygote.h"
#include "platform/autorelease_scope.h"
#include "utils/command_line_parser.h"

// Chromium starts this program for each child process of the suite's browser, or for a zygote from
// which it forks child processes. CefExecuteProcess returns when the child process is done.
int main(int argc, char** argv) {
  std::optional<platform::AutoreleaseScope> pool(std::in_place);

  TarnUtils::CommandLineParser arguments;
  arguments.parseCommandLineArguments(argc, argv);
  const bool is_gpu_process = IsGpuProcess(arguments);
  const bool is_zygote = IsZygote(arguments);
  const bool has_sandbox = HasSandbox(argc, argv);
  std::optional<NotificationListener> listener;
  if (!is_gpu_process) {
    ApplicationContext::instance();
    listener.emplace(IsRenderer(arguments) || is_zygote ? PostToRendererThread : nullptr);
    if (is_zygote) {
      CloseLogBeforeForks(has_sandbox);
    } else {
      listener->observe();
    }
  }

  const CefMainArgs main_arguments(argc, argv);
  const CefRefPtr<CEFAppHandler> application(new CEFAppHandler([&] {
    // The zygote itself never becomes a renderer, so this process is a fork of it.
    if (is_zygote && !has_sandbox) SetUpForkedRenderer(*listener);
    if (listener) listener->mainThreadIsReady();
  }));
  // The result is not used, because CEF itself reports to the browser process how a child ended.
  CefExecuteProcess(main_arguments, application, nullptr);
  listener.reset();  // uses the context, which is destroyed next
  if (!is_gpu_process) ApplicationContext::destroy();
  pool.reset();
  return 0;
}
