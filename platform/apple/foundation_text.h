#pragma once

#import <Foundation/Foundation.h>
#include <string>

namespace platform {

// An autoreleased object of the whole text; nil when that is no UTF-8.
NSString* ToFoundation(const std::string& text);

// False, with `text` as it was, for nil and for what has no form in UTF-8.
bool FromFoundation(NSString* object, std::string& text);

}  // namespace platform
