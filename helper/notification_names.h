#pragma once

// The names of the notifications between the suite and its helpers. The suite uses the same names.

// Sent by the suite. A helper checks its memory when it receives this notification.
inline constexpr char kRefreshNotification[] = "com.velmora.crnc.CRNNotifier.Refresh";

// Sent by a helper that ends itself because it uses too much memory.
inline constexpr char kMemoryAnalyticsNotification[] =
    "com.velmora.crnc.CRNNotifier.SendCEFMemoryAnalytics";
