// Declares the functions that the project calls, and the types that they need, for
// cross-compilation. Not the SDK's header.
#pragma once

#include <sys/types.h>

extern "C" {
typedef const struct __CFString* CFStringRef;
typedef const struct __SCDynamicStore* SCDynamicStoreRef;

void CFRelease(const void* object);
CFStringRef SCDynamicStoreCopyConsoleUser(SCDynamicStoreRef store, uid_t* uid, gid_t* gid);
}
