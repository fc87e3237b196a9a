// Observers that come and go on several threads.
#import <Foundation/Foundation.h>
#import <objcxx/Retained.h>

#include "support/objc/ObjCTest.h"

#include <atomic>

@interface ObservingTestWatcher : NSObject
@end

@implementation ObservingTestWatcher
- (void)observeValueForKeyPath:(NSString *)path ofObject:(id)object change:(NSDictionary *)change context:(void *)key {
}
@end

@interface ObservingTestSubject : NSObject {
  int _first, _second;
}
@property(nonatomic) int first;
@property(nonatomic) int second;
@end

@implementation ObservingTestSubject
@synthesize first = _first, second = _second;
@end

namespace {

class ObservingTest : public ObjCTest {};

TEST_F(ObservingTest, TheLastTwoObserversMayBeRemovedAtOnce) {
  const auto watcher = objcxx::adopt([[ObservingTestWatcher alloc] init]);
  for (int round = 0; round < 2000; ++round) {
    @autoreleasepool {
      ObservingTestSubject *subject = [[[ObservingTestSubject alloc] init] autorelease];
      [subject addObserver:watcher.get() forKeyPath:@"first" options:0 context:nullptr];
      [subject addObserver:watcher.get() forKeyPath:@"second" options:0 context:nullptr];
      std::atomic<int> ready{0};
      auto *arrived = &ready;
      const auto remove = ^(NSString *path) {
        ++*arrived;
        while (*arrived < 2) {
        }
        [subject removeObserver:watcher.get() forKeyPath:path];
      };
      const dispatch_group_t group = dispatch_group_create();
      dispatch_group_async(group, dispatch_get_global_queue(0, 0), ^{
        remove(@"second");
      });
      remove(@"first");
      dispatch_group_wait(group, DISPATCH_TIME_FOREVER);
      dispatch_release(group);
      [subject setFirst:round];
      EXPECT_EQ([subject observationInfo], nullptr);
    }
  }
}

TEST_F(ObservingTest, WhoIsObservedAgainTellsAndLetsGoAgain) {
  const auto watcher = objcxx::adopt([[ObservingTestWatcher alloc] init]);
  ObservingTestSubject *subject = [[[ObservingTestSubject alloc] init] autorelease];
  for (int round = 0; round < 3; ++round) {
    [subject addObserver:watcher.get() forKeyPath:@"first" options:0 context:nullptr];
    EXPECT_NE([subject observationInfo], nullptr);
    [subject removeObserver:watcher.get() forKeyPath:@"first"];
    EXPECT_EQ([subject observationInfo], nullptr);
  }
}

}  // namespace
