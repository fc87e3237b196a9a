// What an object does with its first message is its class's, also when nobody has asked anything of that class before.
#import <Foundation/Foundation.h>

#include <gtest/gtest.h>
#include <objc/runtime.h>

@interface NeverAsked : NSObject {
 @public
  bool *released;
}
@end

@implementation NeverAsked

- (oneway void)release {
  *released = true;
  object_dispose(self);
}

- (void)dealloc {
  if (false) [super dealloc];  // Foundation has not made it.
}

@end

namespace {

TEST(FirstMessageTest, MayBeARelease) {
  bool released = false;
  auto *object = static_cast<NeverAsked *>(class_createInstance(static_cast<Class>(objc_getClass("NeverAsked")), 0));
  object->released = &released;
  [object release];
  EXPECT_TRUE(released);
}

}  // namespace
