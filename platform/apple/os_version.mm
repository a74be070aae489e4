#include "platform/os_version.h"

#import <Foundation/Foundation.h>

#include "platform/apple/gestalt_version.h"
#include "platform/autorelease_scope.h"

namespace platform {
namespace {

// The layout of the query's result; the frameworks of 10.7 do not declare its type.
struct Version {
  NSInteger major;
  NSInteger minor;
  NSInteger patch;
};

}  // namespace

bool GetOSVersion(long long& major, long long& minor, long long& patch) {
  const AutoreleaseScope scope;
  NSProcessInfo* const process = [NSProcessInfo processInfo];
  const SEL query = NSSelectorFromString(@"operatingSystemVersion");
  if (process && ![process respondsToSelector:query]) {
    return GetGestaltVersion(major, minor, patch);
  }
  Version version = {0, 0, 0};
  if (process) {
    NSInvocation* const call =
        [NSInvocation invocationWithMethodSignature:[process methodSignatureForSelector:query]];
    [call setSelector:query];
    [call invokeWithTarget:process];
    [call getReturnValue:&version];
  }
  major = version.major;
  minor = version.minor;
  patch = version.patch;
  return true;
}

}  // namespace platform
