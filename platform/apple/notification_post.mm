#import <Foundation/Foundation.h>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/notifications.h"

namespace platform {

bool PostNotification(const std::string& name) {
  const AutoreleaseScope scope;
  NSString* const text = ToFoundation(name);
  if ([text length] == 0) return false;
  // Raises when the center's service cannot be reached.
  @try {
    // Also delivers to observers that wait until they are in the foreground, as the variant with
    // options does for option 1. Unlike that variant, this method also exists in GNUstep.
    [[NSDistributedNotificationCenter defaultCenter] postNotificationName:text
                                                                   object:nil
                                                                 userInfo:nil
                                                       deliverImmediately:YES];
  } @catch (NSException*) {
    return false;
  }
  return true;
}

}  // namespace platform
