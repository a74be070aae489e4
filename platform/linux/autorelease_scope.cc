#include "platform/autorelease_scope.h"

namespace platform {

// No framework of this system hands out objects for a while.
void* PushAutoreleasePool() { return nullptr; }
void PopAutoreleasePool(void* /*pool*/) {}

}  // namespace platform
