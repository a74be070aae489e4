#pragma once

#include <sys/types.h>
#include <string>

// Returns a figure of /proc/PID/smaps_rollup, for example "Private_Dirty", in kilobytes, or -1 if
// the process has ended.
long MemoryFigure(pid_t process, const std::string& name);
