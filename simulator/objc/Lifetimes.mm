// The end of objects, at which weak references and associated objects are told. Foundation's root classes have no place
// for that, so their methods are replaced by ones that go on to the old ones.
#import <Foundation/Foundation.h>

#include <objc/Protocol.h>
#include <objc/runtime.h>

#import "AssociatedObjects.h"
#import "ReplaceMethod.h"
#import "WeakReferences.h"

namespace {

using Implementation = void (*)(id, SEL);

/// The methods of one root class.
template <int root>
struct Replaced {
  static inline Implementation release = nullptr;
  static inline Implementation dealloc = nullptr;

  static void releaseAndForget(id self, SEL selector) {
    {
      const sim::WeakReferences::ReleaseGuard guard(self);
      if (guard.isReferenced()) {
        if (NSExtraRefCount(self) > 0) return release(self, selector);
        guard.forget();
      }
    }
    release(self, selector);
  }

  /// Without a release before it, too, and for what was made of the object while it was deallocated.
  static void forgetAndDealloc(id self, SEL selector) {
    sim::WeakReferences::ReleaseGuard(self).forget();
    sim::forgetAssociatedObjects(self);
    dealloc(self, selector);
  }

  static void install(Class theClass) {
    release = sim::replaceMethod(theClass, sel_registerName("release"), releaseAndForget);
    dealloc = sim::replaceMethod(theClass, sel_registerName("dealloc"), forgetAndDealloc);
  }
};

/// Before any code of this file can be sure that its own selectors are known.
__attribute__((constructor)) void install() {
  Replaced<0>::install(static_cast<Class>(objc_getClass("NSObject")));
  Replaced<1>::install(static_cast<Class>(objc_getClass("NSProxy")));
}

}  // namespace

/// Compilers hang the protocols that a source names on a category of this class, which nobody else defines. The runtime
/// knows only protocols that it meets in a class.
@interface __ObjC_Protocol_Holder_Ugly_Hack : NSObject
@end

@implementation __ObjC_Protocol_Holder_Ugly_Hack
@end

/// Protocols live as long as the program; GCC's runtime does not make them objects of Foundation.
@interface Protocol (Ownership)
@end

@implementation Protocol (Ownership)

- (id)retain {
  return self;
}

- (oneway void)release {
}

- (id)autorelease {
  return self;
}

- (id)copyWithZone:(NSZone *)zone {
  return self;
}

@end
