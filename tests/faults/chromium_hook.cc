// Replaces Chromium's part of the helper's run, whose calls must not fail.

extern "C" int cef_execute_process(const void* /*arguments*/, void* /*application*/,
                                   void* /*sandbox*/) {
  return 0;
}
