#include <optional>

#include "cefapp/cef_app_handler.h"
#include "helper/application_context.h"
#include "helper/notification_listener.h"
#include "helper/process_kind.h"
#include "helper/renderer_thread.h"
#include "helper/zygote.h"
#include "platform/autorelease_scope.h"
#include "utils/command_line_parser.h"

// Chromium starts this program once for each child process of the suite's browser, or for a zygote
// that it forks them from. The whole life of the child process is the call of CefExecuteProcess.
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
    // The zygote itself never becomes a renderer: here it is one that was forked.
    if (is_zygote && !has_sandbox) BeginInForkedRenderer(*listener);
    if (listener) listener->mainThreadIsReady();
  }));
  // The browser process learns how a child ended from CEF itself: the status says nothing.
  CefExecuteProcess(main_arguments, application, nullptr);
  listener.reset();  // before the context that it uses
  if (!is_gpu_process) ApplicationContext::destroy();
  pool.reset();
  return 0;
}
