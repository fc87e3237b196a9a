#import <Foundation/Foundation.h>

#include <objcxx/BlockHandle.h>

/// Runs a block on the thread whose target it is.
@interface SIMThreadBlock : NSObject {
 @public
  objcxx::BlockHandle<void> body;
}
@end

@implementation SIMThreadBlock

- (void)run:(id)argument {
  body();
}

@end

@implementation NSThread (Blocks)

- (instancetype)initWithBlock:(void (^)(void))block {
  SIMThreadBlock *target = [[[SIMThreadBlock alloc] init] autorelease];
  target->body = objcxx::copyOf(block);
  return [self initWithTarget:target selector:@selector(run:) object:nil];
}

+ (void)detachNewThreadWithBlock:(void (^)(void))block {
  [[[[self alloc] initWithBlock:block] autorelease] start];
}

@end
