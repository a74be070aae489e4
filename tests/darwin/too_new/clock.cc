#include <time.h>

bool Ask(timespec& now) { return clock_gettime(CLOCK_REALTIME, &now) == 0; }
