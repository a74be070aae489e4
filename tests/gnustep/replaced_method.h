#pragma once

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

// Replaces the body of a class's method with a function for its lifetime.
class ReplacedMethod {
 public:
  ReplacedMethod(Class type, SEL name, IMP body)
      : method_(class_getInstanceMethod(type, name)),
        former_(method_setImplementation(method_, body)) {}
  ReplacedMethod(const ReplacedMethod&) = delete;
  ReplacedMethod& operator=(const ReplacedMethod&) = delete;
  ~ReplacedMethod() { method_setImplementation(method_, former_); }

 private:
  const Method method_;
  const IMP former_;
};
