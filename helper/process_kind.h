#pragma once

#include "utils/command_line_parser.h"

// Returns whether the argument "type" is exactly "renderer". Returns false without such an
// argument.
bool IsRenderer(const TarnUtils::CommandLineParser& arguments);

// Returns whether the argument "type" is exactly "zygote". On some systems, Chromium forks
// renderers from such a process. In these renderers, `arguments` are those of the zygote.
bool IsZygote(const TarnUtils::CommandLineParser& arguments);

// Returns whether the argument "type" is exactly "gpu-process". The GPU process is the only kind of
// process without a log and without a watchdog.
bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments);

// Returns whether the command line, which begins with the program's name, leaves Chromium's sandbox
// on. The switch for it has no value, and the parser skips such switches.
bool HasSandbox(int argc, const char* const* argv);
