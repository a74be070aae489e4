#pragma once

#include "utils/command_line_parser.h"

// The argument "type" is there and is exactly "renderer". Without one the process is none either.
bool IsRenderer(const TarnUtils::CommandLineParser& arguments);

// The argument "type" is there and is exactly "zygote": the process that Chromium, on systems where
// it does so, forks renderers from. Those have the zygote's command line here.
bool IsZygote(const TarnUtils::CommandLineParser& arguments);

// True for the command line of Chromium's GPU process: the argument "type" is there and is exactly
// "gpu-process". It is the one process kind without a log and without a watchdog.
bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments);

// Whether the command line, which begins with the program's name, leaves Chromium's sandbox on. A
// switch without a value, so the parser does not know it.
bool HasSandbox(int argc, const char* const* argv);
