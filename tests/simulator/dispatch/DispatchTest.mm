#import <dispatch/MainQueue+Sim.h>
#import <dispatch/dispatch.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

class DispatchTest : public ObjCTest {
 protected:
  /// Lets the main run loop turn until `done` or a second has passed.
  template <typename Condition>
  static bool runLoopUntil(Condition done) {
    NSDate *end = [NSDate dateWithTimeIntervalSinceNow:1];
    while (!done() && [end timeIntervalSinceNow] > 0) {
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
    }
    return done();
  }
};

TEST_F(DispatchTest, AQueueIsAnObject) {
  NSArray<dispatch_queue_t> *queues = @[ dispatch_get_main_queue() ];
  EXPECT_OBJC_EQ([queues objectAtIndex:0], dispatch_get_main_queue());
}

TEST_F(DispatchTest, OnceRunsOnce) {
  static dispatch_once_t predicate;
  __block int runs = 0;
  for (int i = 0; i < 3; ++i) {
    dispatch_once(&predicate, ^{
      ++runs;
    });
  }
  EXPECT_EQ(runs, 1);
}

TEST_F(DispatchTest, OnceMakesOtherThreadsWaitUntilItHasRun) {
  static dispatch_once_t predicate;
  static std::atomic<int> runs, seen;
  runs = seen = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([] {
      dispatch_once(&predicate, ^{
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ++runs;
      });
      seen += runs;
    });
  }
  for (auto &thread : threads) thread.join();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(seen, 8);
}

TEST_F(DispatchTest, AsyncRunsLaterAndInOrder) {
  __block std::string order;
  dispatch_async(dispatch_get_main_queue(), ^{
    order += "a";
  });
  dispatch_async(dispatch_get_main_queue(), ^{
    order += "b";
  });
  EXPECT_EQ(order, "");
  EXPECT_EQ(SIMDrainMainQueue(), 2u);
  EXPECT_EQ(order, "ab");
  EXPECT_EQ(SIMDrainMainQueue(), 0u);
}

TEST_F(DispatchTest, TheMainRunLoopDelivers) {
  bool ran = false;
  bool *result = &ran;
  dispatch_async(dispatch_get_main_queue(), ^{
    *result = true;
  });
  EXPECT_TRUE(runLoopUntil([&] { return ran; }));
}

TEST_F(DispatchTest, AnotherThreadMayQueue) {
  static std::atomic<int> sum;
  sum = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int j = 0; j < 100; ++j) {
        dispatch_async(dispatch_get_main_queue(), ^{
          ++sum;
        });
      }
    });
  }
  EXPECT_TRUE(runLoopUntil([] { return sum == 400; }));
  for (auto &thread : threads) thread.join();
}

TEST_F(DispatchTest, TheBlockAndWhatItHoldsEndAfterItHasRun) {
  int deaths = 0;
  @autoreleasepool {
    Lifetime *held = [[[Lifetime alloc] initWithCounter:&deaths] autorelease];
    dispatch_async(dispatch_get_main_queue(), ^{
      [held self];
    });
  }
  EXPECT_EQ(deaths, 0);
  SIMDrainMainQueue();
  EXPECT_EQ(deaths, 1);
}

TEST_F(DispatchTest, DrainRunsWhatIsQueuedMeanwhile) {
  __block std::string order;
  dispatch_async(dispatch_get_main_queue(), ^{
    order += "a";
    dispatch_async(dispatch_get_main_queue(), ^{
      order += "b";
    });
  });
  EXPECT_EQ(SIMDrainMainQueue(), 2u);
  EXPECT_EQ(order, "ab");
}

TEST_F(DispatchTest, ABlockThatQueuesItselfDoesNotStarveTheRunLoop) {
  __block int runs = 0;
  __block void (^again)(void) = nil;
  void (^block)(void) = Block_copy(^{
    if (++runs < 1000) dispatch_async(dispatch_get_main_queue(), again);
  });
  again = block;
  dispatch_async(dispatch_get_main_queue(), block);
  [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:1]];
  EXPECT_LT(runs, 1000);
  SIMDrainMainQueue();
  EXPECT_EQ(runs, 1000);
  Block_release(block);
}

TEST_F(DispatchTest, DrainGivesUpOnABlockThatQueuesItselfForEver) {
  __block int runs = 0;
  __block bool stop = false;
  __block void (^again)(void) = nil;
  void (^block)(void) = Block_copy(^{
    ++runs;
    if (!stop) dispatch_async(dispatch_get_main_queue(), again);
  });
  again = block;
  dispatch_async(dispatch_get_main_queue(), block);
  EXPECT_EQ(SIMDrainMainQueue(), 10000u);
  EXPECT_EQ(runs, 10000);
  stop = true;
  EXPECT_EQ(SIMDrainMainQueue(), 1u);
  Block_release(block);
}

TEST_F(DispatchTest, AnExceptionLeavesTheOthersQueued) {
  __block bool second = false;
  dispatch_async(dispatch_get_main_queue(), ^{
    [NSException raise:NSRangeException format:@"forced"];
  });
  dispatch_async(dispatch_get_main_queue(), ^{
    second = true;
  });
  EXPECT_EQ(raisedBy([] { SIMDrainMainQueue(); }), "NSRangeException");
  EXPECT_FALSE(second);
  EXPECT_EQ(SIMDrainMainQueue(), 1u);
  EXPECT_TRUE(second);
}

TEST_F(DispatchTest, TheQueueIsSerialInARunLoopInsideABlock) {
  __block std::string order;
  dispatch_async(dispatch_get_main_queue(), ^{
    order += "(";
    dispatch_async(dispatch_get_main_queue(), ^{
      order += "b";
    });
    [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.02]];
    EXPECT_EQ(SIMDrainMainQueue(), 0u);
    order += ")";
  });
  SIMDrainMainQueue();
  EXPECT_EQ(order, "()b");
}

TEST_F(DispatchTest, AfterWaits) {
  std::string order;
  std::string *result = &order;
  dispatch_after(dispatch_time(DISPATCH_TIME_NOW, 60 * NSEC_PER_MSEC), dispatch_get_main_queue(), ^{
    *result += "late";
  });
  dispatch_after(dispatch_time(DISPATCH_TIME_NOW, 20 * NSEC_PER_MSEC), dispatch_get_main_queue(), ^{
    *result += "early ";
  });
  EXPECT_EQ(SIMDrainMainQueue(), 0u);
  EXPECT_EQ(order, "");
  EXPECT_TRUE(runLoopUntil([&] { return order == "early late"; })) << order;
}

TEST_F(DispatchTest, AfterNowAndAfterThePastRunAtOnceAndForeverNever) {
  __block std::string order;
  dispatch_after(DISPATCH_TIME_FOREVER, dispatch_get_main_queue(), ^{
    order += "never";
  });
  dispatch_after(DISPATCH_TIME_NOW, dispatch_get_main_queue(), ^{
    order += "now";
  });
  dispatch_after(dispatch_time(DISPATCH_TIME_NOW, INT64_MIN), dispatch_get_main_queue(), ^{
    order += " past";
  });
  SIMDrainMainQueue();
  EXPECT_EQ(order, "now past");
}

TEST_F(DispatchTest, TimesSaturate) {
  EXPECT_EQ(dispatch_time(DISPATCH_TIME_FOREVER, -5), DISPATCH_TIME_FOREVER);
  EXPECT_EQ(dispatch_time(INT64_MAX - 5, 10), DISPATCH_TIME_FOREVER);
  EXPECT_EQ(dispatch_time(100, -40), 60u);
  EXPECT_EQ(dispatch_time(100, -400), 1u);
}

TEST_F(DispatchTest, TimesOfTheCalendarCountDownFromTheEnd) {
  const timespec second{1, 5};
  const auto nanoseconds = [](dispatch_time_t time) { return -static_cast<int64_t>(time); };
  EXPECT_EQ(nanoseconds(dispatch_walltime(&second, 0)), 1'000'000'005);
  EXPECT_EQ(nanoseconds(dispatch_walltime(&second, -5)), 1'000'000'000);
  EXPECT_EQ(nanoseconds(dispatch_time(dispatch_walltime(&second, 0), 7)), 1'000'000'012);
  EXPECT_EQ(dispatch_time(dispatch_walltime(&second, 0), INT64_MAX), DISPATCH_TIME_FOREVER);
  EXPECT_EQ(nanoseconds(dispatch_walltime(&second, INT64_MIN)), 3);
  const auto now = static_cast<int64_t>(1e9 * [[NSDate date] timeIntervalSince1970]);
  for (const auto time : {dispatch_walltime(nullptr, 0), dispatch_time(DISPATCH_WALLTIME_NOW, 0)}) {
    EXPECT_NEAR(static_cast<double>(nanoseconds(time)), static_cast<double>(now), 60e9);
  }
}

}  // namespace

@interface DispatchTestTarget : NSObject {
 @public
  int calls;
  int chain;
}
@end

@implementation DispatchTestTarget
- (void)call:(id)argument {
  ++calls;
  if (chain-- > 0) [self performSelector:@selector(call:) withObject:nil afterDelay:0];
}
@end

namespace {

TEST_F(DispatchTest, DrainRunsZeroDelayPerforms) {
  DispatchTestTarget *target = [[[DispatchTestTarget alloc] init] autorelease];
  for (int i = 0; i < 3; ++i) [target performSelector:@selector(call:) withObject:nil afterDelay:0];
  SIMDrainMainQueue();
  EXPECT_EQ(target->calls, 3);
}

TEST_F(DispatchTest, DrainRunsZeroDelayPerformsThatFollowOneAnother) {
  DispatchTestTarget *target = [[[DispatchTestTarget alloc] init] autorelease];
  target->chain = 20;
  dispatch_async(dispatch_get_main_queue(), ^{
    [target performSelector:@selector(call:) withObject:nil afterDelay:0];
  });
  SIMDrainMainQueue();
  EXPECT_EQ(target->calls, 21);
}

TEST_F(DispatchTest, DrainLeavesLaterPerforms) {
  DispatchTestTarget *target = [[[DispatchTestTarget alloc] init] autorelease];
  [target performSelector:@selector(call:) withObject:nil afterDelay:0.5];
  SIMDrainMainQueue();
  EXPECT_EQ(target->calls, 0);
  [NSObject cancelPreviousPerformRequestsWithTarget:target];
}

TEST(DispatchDeathTest, AQueueThatIsNullEndsTheProcess) {
  EXPECT_DEATH(dispatch_async(nullptr,
                              ^{
                              }),
               "without a queue");
}

}  // namespace
