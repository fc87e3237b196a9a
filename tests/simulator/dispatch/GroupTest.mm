// Groups, semaphores, timers and blocks that can be cancelled.
#import <dispatch/MainQueue+Sim.h>
#import <dispatch/dispatch.h>

#include "support/objc/ObjCTest.h"

#include <atomic>
#include <string>
#include <thread>

namespace {

class GroupTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    group_ = dispatch_group_create();
    queue_ = dispatch_queue_create("com.example.groups", nullptr);
  }
  void TearDown() override {
    finish();
    dispatch_release(group_);
    dispatch_release(queue_);
    ObjCTest::TearDown();
  }
  void finish() {
    dispatch_sync(queue_, ^{
                  });
  }
  static dispatch_time_t in(int64_t milliseconds) {
    return dispatch_time(DISPATCH_TIME_NOW, milliseconds * static_cast<int64_t>(NSEC_PER_MSEC));
  }
  dispatch_group_t group_ = nil;
  dispatch_queue_t queue_ = nil;
};

TEST_F(GroupTest, NotifiesWhenAllHaveLeft) {
  std::string order;
  std::string *text = &order;
  dispatch_group_enter(group_);
  dispatch_group_enter(group_);
  dispatch_group_notify(group_, dispatch_get_main_queue(), ^{
    *text += "done ";
  });
  dispatch_group_leave(group_);
  SIMDrainMainQueue();
  EXPECT_EQ(order, "");
  dispatch_group_leave(group_);
  EXPECT_EQ(order, "");
  SIMDrainMainQueue();
  EXPECT_EQ(order, "done ");
  dispatch_group_notify(group_, dispatch_get_main_queue(), ^{
    *text += "empty";
  });
  SIMDrainMainQueue();
  EXPECT_EQ(order, "done empty");
}

TEST_F(GroupTest, WaitsForItsWorkOrItsTime) {
  EXPECT_EQ(dispatch_group_wait(group_, DISPATCH_TIME_NOW), 0);
  std::atomic<bool> ran{false};
  auto *flag = &ran;
  dispatch_group_enter(group_);
  EXPECT_NE(dispatch_group_wait(group_, in(10)), 0);
  EXPECT_NE(dispatch_group_wait(group_, DISPATCH_TIME_NOW), 0);
  EXPECT_NE(dispatch_group_wait(group_, dispatch_walltime(nullptr, 5 * NSEC_PER_MSEC)), 0);
  dispatch_async(queue_, ^{
    *flag = true;
    dispatch_group_leave(group_);
  });
  EXPECT_EQ(dispatch_group_wait(group_, DISPATCH_TIME_FOREVER), 0);
  EXPECT_TRUE(ran);
}

TEST_F(GroupTest, IsLeftWhenWhatABlockHoldsIsGoneAlsoAfterAnException) {
  int deaths = 0;
  @autoreleasepool {
    Lifetime *held = [[[Lifetime alloc] initWithCounter:&deaths] autorelease];
    dispatch_group_async(group_, queue_, ^{
      [held self];
      [NSException raise:NSGenericException format:@"forced"];
    });
  }
  EXPECT_EQ(dispatch_group_wait(group_, in(10'000)), 0);
  EXPECT_EQ(deaths, 1);
}

TEST_F(GroupTest, LeavingOnceTooOftenEndsTheProcess) {
  EXPECT_DEATH(dispatch_group_leave(group_), "more often than dispatch_group_enter");
}

TEST_F(GroupTest, ASemaphoreCounts) {
  dispatch_semaphore_t semaphore = dispatch_semaphore_create(2);
  EXPECT_EQ(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_NOW), 0);
  EXPECT_EQ(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_FOREVER), 0);
  EXPECT_NE(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_NOW), 0);
  EXPECT_NE(dispatch_semaphore_wait(semaphore, in(5)), 0);
  EXPECT_EQ(dispatch_semaphore_signal(semaphore), 0);
  EXPECT_EQ(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_NOW), 0);
  dispatch_async(queue_, ^{
    dispatch_semaphore_signal(semaphore);
  });
  EXPECT_EQ(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_FOREVER), 0);
  finish();
  dispatch_release(semaphore);
  EXPECT_EQ(dispatch_semaphore_create(-1), nil);
}

TEST_F(GroupTest, ATimerTellsItsQueueAgainAndAgainUntilItIsCancelled) {
  dispatch_source_t timer = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, queue_);
  dispatch_semaphore_t fired = dispatch_semaphore_create(0), cancelled = dispatch_semaphore_create(0);
  std::atomic<unsigned long> times{0};
  auto *count = &times;
  dispatch_source_set_timer(timer, DISPATCH_TIME_NOW, 2 * NSEC_PER_MSEC, 0);
  dispatch_source_set_event_handler(timer, ^{
    *count += dispatch_source_get_data(timer);
    dispatch_semaphore_signal(fired);
  });
  dispatch_source_set_cancel_handler(timer, ^{
    dispatch_semaphore_signal(cancelled);
  });
  EXPECT_NE(dispatch_semaphore_wait(fired, in(20)), 0) << "It has not been started.";
  dispatch_resume(timer);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(dispatch_semaphore_wait(fired, in(10'000)), 0);
  EXPECT_EQ(dispatch_source_testcancel(timer), 0);
  dispatch_source_cancel(timer);
  EXPECT_EQ(dispatch_semaphore_wait(cancelled, in(10'000)), 0);
  EXPECT_NE(dispatch_source_testcancel(timer), 0);
  const auto seen = times.load();
  EXPECT_GE(seen, 3u);
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(times, seen);
  dispatch_release(timer);
  dispatch_release(fired);
  dispatch_release(cancelled);
}

TEST_F(GroupTest, ATimerTellsOnceHowOftenItFiredWhileItsQueueWasBusy) {
  dispatch_source_t timer = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, queue_);
  dispatch_semaphore_t told = dispatch_semaphore_create(0);
  std::atomic<unsigned long> most{0};
  auto *times = &most;
  dispatch_source_set_event_handler(timer, ^{
    *times = std::max<unsigned long>(*times, dispatch_source_get_data(timer));
    dispatch_semaphore_signal(told);
  });
  dispatch_source_set_timer(timer, DISPATCH_TIME_NOW, NSEC_PER_MSEC, 0);
  dispatch_async(queue_, ^{
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  });
  dispatch_resume(timer);
  EXPECT_EQ(dispatch_semaphore_wait(told, in(10'000)), 0);
  EXPECT_EQ(dispatch_semaphore_wait(told, in(10'000)), 0);
  EXPECT_GT(most, 1u);
  dispatch_source_cancel(timer);
  dispatch_release(timer);
  dispatch_release(told);
}

TEST_F(GroupTest, ATimerThatFiresOnceDoesAndCanBeSetAgain) {
  dispatch_source_t timer = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, dispatch_get_main_queue());
  __block int runs = 0;
  dispatch_source_set_event_handler(timer, ^{
    ++runs;
  });
  dispatch_activate(timer);
  for (int round = 1; round <= 2; ++round) {
    dispatch_source_set_timer(timer, in(2), DISPATCH_TIME_FOREVER, 0);
    NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (runs < round && [end timeIntervalSinceNow] > 0) {
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
    }
    [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.02]];
    EXPECT_EQ(runs, round);
  }
  dispatch_release(timer);
}

TEST_F(GroupTest, ASuspendedTimerTellsWhenItGoesOn) {
  dispatch_source_t timer = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, queue_);
  dispatch_semaphore_t fired = dispatch_semaphore_create(0);
  dispatch_source_set_event_handler(timer, ^{
    dispatch_semaphore_signal(fired);
  });
  dispatch_resume(timer);
  dispatch_suspend(timer);
  dispatch_source_set_timer(timer, DISPATCH_TIME_NOW, DISPATCH_TIME_FOREVER, 0);
  EXPECT_NE(dispatch_semaphore_wait(fired, in(20)), 0);
  dispatch_resume(timer);
  EXPECT_EQ(dispatch_semaphore_wait(fired, in(10'000)), 0);
  dispatch_release(timer);
  dispatch_release(fired);
}

TEST_F(GroupTest, ATimerEndsWithItsOwner) {
  std::atomic<int> runs{0};
  auto *count = &runs;
  dispatch_source_t timer = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, queue_);
  dispatch_source_set_timer(timer, in(10), NSEC_PER_MSEC, 0);
  dispatch_source_set_event_handler(timer, ^{
    ++*count;
  });
  dispatch_resume(timer);
  dispatch_release(timer);
  std::this_thread::sleep_for(std::chrono::milliseconds(40));
  EXPECT_EQ(runs, 0);
}

TEST_F(GroupTest, ABlockThatWasCancelledBeforeItsTurnDoesNothing) {
  __block int runs = 0;
  dispatch_block_t kept = dispatch_block_create(DISPATCH_BLOCK_ASSIGN_CURRENT, ^{
    ++runs;
  });
  dispatch_block_t dropped = dispatch_block_create(static_cast<dispatch_block_flags_t>(0), ^{
    runs += 100;
  });
  dispatch_suspend(queue_);
  dispatch_async(queue_, kept);
  dispatch_async(queue_, dropped);
  EXPECT_EQ(dispatch_block_testcancel(dropped), 0);
  dispatch_block_cancel(dropped);
  EXPECT_NE(dispatch_block_testcancel(dropped), 0);
  EXPECT_EQ(dispatch_block_testcancel(kept), 0);
  EXPECT_NE(dispatch_block_wait(kept, in(5)), 0);
  __block bool told = false;
  dispatch_block_notify(kept, dispatch_get_main_queue(), ^{
    told = true;
  });
  dispatch_resume(queue_);
  EXPECT_EQ(dispatch_block_wait(kept, in(10'000)), 0);
  EXPECT_EQ(dispatch_block_wait(dropped, in(10'000)), 0);
  EXPECT_EQ(runs, 1);
  SIMDrainMainQueue();
  EXPECT_TRUE(told);
  Block_release(kept);
  Block_release(dropped);
}

TEST_F(GroupTest, ABlockOfAnotherKindCannotBeCancelled) {
  EXPECT_DEATH(dispatch_block_cancel(^{
               }),
               "without a block of dispatch_block_create");
}

}  // namespace
