#include "platform/autorelease_scope.h"

#import <Foundation/Foundation.h>

namespace platform {

void* PushAutoreleasePool() { return [[NSAutoreleasePool alloc] init]; }

void PopAutoreleasePool(void* pool) { [static_cast<NSAutoreleasePool*>(pool) release]; }

}  // namespace platform
