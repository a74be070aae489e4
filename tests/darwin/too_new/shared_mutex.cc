#include <shared_mutex>

std::shared_mutex g_mutex;

void Lock() { g_mutex.lock_shared(); }
