#include "platform/autorelease_scope.h"

namespace platform {

// This system's frameworks do not autorelease objects.
void* PushAutoreleasePool() { return nullptr; }
void PopAutoreleasePool(void* /*pool*/) {}

}  // namespace platform
