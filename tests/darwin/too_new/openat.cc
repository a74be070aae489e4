#include <fcntl.h>

int Open(int folder) { return openat(folder, "file", O_RDONLY); }
