// Replaces Chromium's part of a helper's life, whose calls must not fail here.

extern "C" int cef_execute_process(const void* /*arguments*/, void* /*application*/,
                                   void* /*sandbox*/) {
  return 0;
}
