#pragma once

class NotificationListener;

// Chromium on Linux can fork renderers and other processes from one helper of the type "zygote"
// after `main` of that helper has given control to CEF. A forked process has the memory of the
// zygote, but only the thread that forked, and a process identifier of its own. Therefore the
// zygote releases everything that belongs to a single process before it forks. If Chromium's
// sandbox is off, each forked renderer creates its own. Other forked processes have no log and no
// memory limit.

// Logs which features forked processes lack, and destroys the application context. A zygote must
// call it while an application context exists, before CEF gets control. `sandboxed` is whether
// Chromium's sandbox is on.
void CloseLogBeforeForks(bool sandboxed);

// Creates an application context and makes the listener observe. Must be called on the main thread
// of a forked renderer without Chromium's sandbox. The caller must then call
// listener.mainThreadIsReady().
void SetUpForkedRenderer(NotificationListener& listener);
