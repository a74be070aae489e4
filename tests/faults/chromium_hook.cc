// Chromium's part of a helper's life, which ends at once: its calls are not ours to fail.

extern "C" int cef_execute_process(const void* /*arguments*/, void* /*application*/,
                                   void* /*sandbox*/) {
  return 0;
}
