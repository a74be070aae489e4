#include "platform/autorelease_scope.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

TEST(AutoreleaseScopeTest, ScopesNest) {
  const platform::AutoreleaseScope outer;
  { const platform::AutoreleaseScope inner; }
  const platform::AutoreleaseScope another;
}

TEST(AutoreleaseScopeTest, EachThreadHasOwnScopes) {
  const platform::AutoreleaseScope outer;
  std::thread([] { const platform::AutoreleaseScope inner; }).join();
}

}  // namespace
