#pragma once

class NotificationListener;

// Chromium on Linux can fork renderers and other processes from one helper of the type "zygote"
// after `main` of that helper has given control to CEF. A forked process has the memory of the
// zygote, but only the thread that forked, and a process identifier of its own. Therefore the
// zygote releases everything that belongs to a single process before it forks, and each renderer
// creates its own.

// Logs which features forked processes lack, and destroys the application context. A zygote must
// call it with an application context, before CEF gets control. `sandboxed` is whether Chromium
// will shut forked processes off from the system.
void CloseLogBeforeForks(bool sandboxed);

// Creates an application context and makes the listener observe. Must be called on the main thread
// of a forked renderer that is not shut off from the system.
void SetUpForkedRenderer(NotificationListener& listener);
