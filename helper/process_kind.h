#pragma once

#include "utils/command_line_parser.h"

// True for the command line of Chromium's GPU process: the argument "type" is there and is exactly
// "gpu-process". It is the one process kind without a log and without a watchdog.
bool IsGpuProcess(TarnUtils::CommandLineParser& arguments);
