#import <Foundation/Foundation.h>

#include "platform/apple/foundation_text.h"
#include "platform/autorelease_scope.h"
#include "platform/notifications.h"

namespace platform {

bool PostNotification(const std::string& name) {
  const AutoreleaseScope scope;
  NSString* const text = ToFoundation(name);
  if ([text length] == 0) return false;
  // Raised where the centre's service cannot be reached.
  @try {
    // Also to observers that wait until they are in the foreground: what the variant with options
    // does for the option 1, by the one that GNUstep has, too.
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
