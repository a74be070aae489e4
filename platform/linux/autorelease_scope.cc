#include "platform/autorelease_scope.h"

namespace platform {

// Nothing on this system hands out such objects.
AutoreleaseScope::AutoreleaseScope() : pool_(nullptr) {}
AutoreleaseScope::~AutoreleaseScope() = default;

}  // namespace platform
