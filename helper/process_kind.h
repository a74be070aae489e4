#pragma once

#include "utils/command_line_parser.h"

// Returns whether the argument "type" is exactly "renderer". Returns false without such an
// argument.
bool IsRenderer(const TarnUtils::CommandLineParser& arguments);

// Returns whether the argument "type" is exactly "zygote". On some systems, Chromium forks
// renderers from such a process. In these renderers, `arguments` are those of the zygote.
bool IsZygote(const TarnUtils::CommandLineParser& arguments);

// Returns whether the argument "type" is exactly "gpu-process". The GPU process has no log and no
// watchdog.
bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments);

// Returns whether Chromium's sandbox is on: whether no argument is exactly "--no-sandbox". `argv`
// begins with the program's name. CommandLineParser ignores this switch, because it has no value.
bool HasSandbox(int argc, const char* const* argv);
