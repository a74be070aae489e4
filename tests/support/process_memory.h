#pragma once

#include <sys/types.h>
#include <string>

// Returns a figure of /proc/PID/smaps_rollup, for example "Private_Dirty", in kilobytes. Returns -1
// if the process has ended or the file has no such figure.
long MemoryFigure(pid_t process, const std::string& name);
