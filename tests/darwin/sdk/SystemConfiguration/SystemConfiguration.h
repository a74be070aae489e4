// Declarations for the cross-compilation, not the SDK's header: the one function that is called
// here, and what it needs.
#pragma once

#include <sys/types.h>

extern "C" {
typedef const struct __CFString* CFStringRef;
typedef const struct __SCDynamicStore* SCDynamicStoreRef;

void CFRelease(const void* object);
CFStringRef SCDynamicStoreCopyConsoleUser(SCDynamicStoreRef store, uid_t* uid, gid_t* gid);
}
