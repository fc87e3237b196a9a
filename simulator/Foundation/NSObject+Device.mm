// Observers of an object that are removed on several threads at a time, as those of an operation are when it ends.
// GNUstep lets go of what it knows of them when none is left, and may find that on two threads: then twice.
#import <Foundation/Foundation.h>

#include <objc/runtime.h>

#import "objc/ReplaceMethod.h"

#include <mutex>

namespace {

using IsUnobserved = BOOL (*)(id, SEL);

IsUnobserved originalIsUnobserved = nullptr;
const char kLetGo = 0;

/// Whether no observer is left, for the first who asks then: it is who lets go. On any thread.
BOOL isUnobserved(id self, SEL selector) {
  if (!originalIsUnobserved(self, selector)) return NO;
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  if (objc_getAssociatedObject(self, &kLetGo)) return NO;
  objc_setAssociatedObject(self, &kLetGo, self, OBJC_ASSOCIATION_ASSIGN);
  return YES;
}

}  // namespace

@implementation NSObject (Device)

+ (void)load {
  originalIsUnobserved = sim::replaceMethod((Class)objc_getClass("GSKVOInfo"), @selector(isUnobserved), isUnobserved);
}

@end
