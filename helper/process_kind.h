#pragma once

#include "utils/command_line_parser.h"

// The argument "type" is there and is exactly "renderer". Without one the process is none either.
bool IsRenderer(const TarnUtils::CommandLineParser& arguments);

// True for the command line of Chromium's GPU process: the argument "type" is there and is exactly
// "gpu-process". It is the one process kind without a log and without a watchdog.
bool IsGpuProcess(const TarnUtils::CommandLineParser& arguments);
