#pragma once

#import <Foundation/Foundation.h>
#include <string>

namespace platform {

// Both functions need an autorelease pool on the calling thread.

// Returns an autoreleased object with the whole text, or nil when `text` is not UTF-8.
NSString* ToFoundation(const std::string& text);

// Converts `object` to UTF-8. Returns false, and leaves `text` unchanged, for nil and for strings
// with unpaired surrogates.
bool FromFoundation(NSString* object, std::string& text);

}  // namespace platform
