#include "platform/autorelease_scope.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

// Increments a counter when it is deallocated.
@interface Counted : NSObject {
 @private
  int* ended_;
}
- (id)initWithCount:(int*)ended;
@end

@implementation Counted
- (id)initWithCount:(int*)ended {
  self = [super init];
  if (self) ended_ = ended;
  return self;
}
- (void)dealloc {
  ++*ended_;
  [super dealloc];
}
@end

namespace {

TEST(AutoreleasedObjectTest, IsReleasedAtEndOfScope) {
  int ended = 0;
  {
    const platform::AutoreleaseScope outer;
    [[[Counted alloc] initWithCount:&ended] autorelease];
    {
      const platform::AutoreleaseScope inner;
      [[[Counted alloc] initWithCount:&ended] autorelease];
      EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
  }
  EXPECT_EQ(ended, 2);
}

}  // namespace
