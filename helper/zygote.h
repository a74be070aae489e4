#pragma once

class NotificationListener;

// Chromium on Linux can fork renderers, and other processes, from one helper of the type "zygote",
// after that one's `main` has given control to CEF. A forked process has the memory of the zygote
// but only the thread that forked, and another process identifier. So whatever belongs to one
// process is undone in the zygote before that, and begun in each renderer.

// In a zygote with an application context, before CEF gets control: says in the log what the forked
// processes go without, and destroys the context. `sandboxed`: Chromium will shut them off from the
// system.
void CloseLogBeforeForks(bool sandboxed);

// In a forked renderer that is not shut off from the system, on its main thread: makes an
// application context, and lets the listener observe.
void BeginInForkedRenderer(NotificationListener& listener);
