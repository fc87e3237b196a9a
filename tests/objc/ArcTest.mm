#include "objc/ArcTest.h"

@implementation Mortal {
  int *_deaths;
}

- (instancetype)initWithCounter:(int *)deaths {
  if ((self = [super init])) _deaths = deaths;
  return self;
}

- (void)dealloc {
  ++*_deaths;
}

@end

@implementation Runner {
  void (^_body)(void);
  NSThread *_thread;
}

+ (instancetype)start:(void (^)(void))body {
  Runner *runner = [Runner new];
  runner->_body = body;
  runner->_thread = [[NSThread alloc] initWithTarget:runner selector:@selector(run) object:nil];
  [runner->_thread start];
  return runner;
}

- (void)run {
  @autoreleasepool {
    _body();
  }
}

- (void)join {
  @autoreleasepool {
    while (![_thread isFinished]) [NSThread sleepForTimeInterval:0.0001];
    _thread = nil;
    _body = nil;
  }
}

@end
