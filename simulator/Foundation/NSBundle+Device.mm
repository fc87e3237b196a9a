// On a device every folder is a bundle of its own. GNUstep takes two folders whose Info lists have the same identifier
// for one bundle and hands out whichever it met first. And the log says why code does not load; GNUstep tells standard
// error.
#import <Foundation/Foundation.h>

#include <dlfcn.h>
#import <objc/runtime.h>

namespace {

using InitWithPath = id (*)(id, SEL, NSString *);
using BundleIdentifier = NSString *(*)(id, SEL);
using Load = BOOL (*)(id, SEL);

InitWithPath originalInitWithPath = nullptr;
BundleIdentifier originalBundleIdentifier = nullptr;
Load originalLoad = nullptr;
thread_local bool isInitialising = false;

id initWithPath(id self, SEL selector, NSString *path) {
  const bool nested = isInitialising;
  isInitialising = true;
  id bundle = originalInitWithPath(self, selector, path);
  isInitialising = nested;
  return bundle;
}

/// A bundle that is being made has no identifier by which another could be taken for it.
NSString *bundleIdentifier(id self, SEL selector) {
  return isInitialising ? nil : originalBundleIdentifier(self, selector);
}

/// What stands before the name of a class that code needs, in the symbol by which it needs it.
constexpr char kClassSymbol[] = "undefined symbol: __objc_class_name_";

/// Why the code of the bundle does not load.
NSString *loadProblem(NSBundle *bundle) {
  NSString *path = [bundle executablePath];
  if (!path) return @"its Info list names no CFBundleExecutable";
  // The loader's words at the first attempt went to standard error. Code that loads now stays: its classes are known.
  if (dlopen([path fileSystemRepresentation], RTLD_LAZY)) return @"the reason is not known";
  NSString *problem = [NSString stringWithUTF8String:dlerror()];
  const NSRange symbol = [problem rangeOfString:[NSString stringWithUTF8String:kClassSymbol]];
  if (symbol.length == 0) return problem;
  return [NSString stringWithFormat:@"there is no class %@", [problem substringFromIndex:NSMaxRange(symbol)]];
}

BOOL load(id self, SEL selector) {
  const BOOL loaded = originalLoad(self, selector);
  if (!loaded) NSLog(@"[Foundation] The code of %@ was not loaded: %@", [self bundlePath], loadProblem(self));
  return loaded;
}

template <typename Implementation>
Implementation replace(SEL selector, Implementation implementation) {
  // Without a message to the class: that would start Foundation before its defaults are set.
  Method method = class_getInstanceMethod((Class)objc_getClass("NSBundle"), selector);
  // Every implementation is stored as a function of any arguments; the way there and back leads over void *.
  void *previous = reinterpret_cast<void *>(
      method_setImplementation(method, reinterpret_cast<IMP>(reinterpret_cast<void *>(implementation))));
  return reinterpret_cast<Implementation>(previous);
}

}  // namespace

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSBundle (Device)

+ (void)load {
  originalBundleIdentifier = replace(@selector(bundleIdentifier), bundleIdentifier);
  originalLoad = replace(@selector(load), load);
  originalInitWithPath = replace(@selector(initWithPath:), initWithPath);
}

+ (NSBundle *)bundleWithIdentifier:(NSString *)identifier {
  for (NSArray *bundles in @[ [NSBundle allBundles], [NSBundle allFrameworks] ]) {
    for (NSBundle *bundle in bundles) {
      if ([[bundle bundleIdentifier] isEqualToString:identifier]) return bundle;
    }
  }
  return nil;
}

@end

#pragma clang diagnostic pop
