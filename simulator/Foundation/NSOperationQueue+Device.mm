// The main operation queue, whose operations run on the main thread. GNUstep's runs them on a thread of its own.
#import <Foundation/Foundation.h>

#include <objcxx/Retained.h>

#include <atomic>

// Replacing the method of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

namespace {

NSString *const kReady = @"isReady";

}  // namespace

@interface SIMMainOperationQueue : NSOperationQueue {
  std::atomic<NSUInteger> _count;  // of those that have not finished
}
@end

@implementation SIMMainOperationQueue

- (void)addOperation:(NSOperation *)operation {
  ++_count;
  if ([operation isReady]) {
    [self startOperation:operation];
  } else {
    // Owned until it is ready. What it waits for may end on any thread, also now.
    [operation retain];
    [operation addObserver:self forKeyPath:kReady options:NSKeyValueObservingOptionInitial context:nullptr];
  }
}

- (void)observeValueForKeyPath:(NSString *)path
                      ofObject:(id)operation
                        change:(NSDictionary *)change
                       context:(void *)context {
  if (![operation isReady]) return;
  dispatch_async(dispatch_get_main_queue(), ^{
    if ([operation isExecuting] || [operation isFinished]) return;  // Told twice.
    [operation removeObserver:self forKeyPath:kReady];
    [operation start];
    --_count;
    [operation release];
  });
}

- (void)startOperation:(NSOperation *)operation {
  dispatch_async(dispatch_get_main_queue(), ^{
    [operation start];
    --_count;
  });
}

- (void)addOperations:(NSArray *)operations waitUntilFinished:(BOOL)wait {
  for (NSOperation *operation in operations) [self addOperation:operation];
  if (!wait) return;
  for (NSOperation *operation in operations) [operation waitUntilFinished];
}

- (void)addOperationWithBlock:(GSBlockOperationBlock)block {
  [self addOperation:[NSBlockOperation blockOperationWithBlock:block]];
}

- (NSUInteger)operationCount {
  return _count;
}

- (void)dealloc {
  if (false) [super dealloc];  // It lives as long as the process.
}

@end

@implementation NSOperationQueue (Device)

+ (id)mainQueue {
  static auto *queue = [[SIMMainOperationQueue alloc] init];
  return queue;
}

@end
