#include "cefapp/cef_app_handler.h"
#include "helper/process_kind.h"
#include "platform/autorelease_scope.h"

int main(int argc, char** argv) {
  const platform::AutoreleaseScope pool;
  TarnUtils::CommandLineParser arguments;
  arguments.parseCommandLineArguments(argc, argv);
  const CefRefPtr<CEFAppHandler> application(new CEFAppHandler);
  return IsGpuProcess(arguments) || !application->HasOneRef() ? 1 : 0;
}
