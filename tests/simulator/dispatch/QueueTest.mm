// Queues other than the main one: what runs on them, in which order, on which threads.
#import <Foundation/SIMLog.h>
#import <dispatch/MainQueue+Sim.h>
#import <dispatch/dispatch.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <atomic>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "dispatch/ThreadPool.hpp"

namespace {

class QueueTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    serial_ = dispatch_queue_create("com.example.serial", DISPATCH_QUEUE_SERIAL);
    concurrent_ = dispatch_queue_create("com.example.concurrent", DISPATCH_QUEUE_CONCURRENT);
  }
  void TearDown() override {
    finish(serial_);
    finish(concurrent_);
    dispatch_release(serial_);
    dispatch_release(concurrent_);
    ObjCTest::TearDown();
  }
  /// Waits until what was queued before has run.
  static void finish(dispatch_queue_t queue) {
    dispatch_barrier_sync(queue, ^{
                          });
  }
  static dispatch_queue_t global() { return dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0); }
  dispatch_queue_t serial_ = nil;
  dispatch_queue_t concurrent_ = nil;
};

/// Counts those that run at the same time.
struct Crowd {
  std::atomic<int> now{0}, most{0};
  void enter() {
    const int count = ++now;
    int seen = most;
    while (count > seen && !most.compare_exchange_weak(seen, count)) {
    }
  }
  void leave() { --now; }
};

TEST_F(QueueTest, ASerialQueueRunsInItsOrderOneAfterAnother) {
  std::string order;
  Crowd crowd;
  std::string *text = &order;
  Crowd *all = &crowd;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    dispatch_async(serial_, ^{
      all->enter();
      std::this_thread::yield();
      text->push_back(letter);
      all->leave();
    });
  }
  finish(serial_);
  EXPECT_EQ(order, "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(crowd.most, 1);
}

TEST_F(QueueTest, AsyncRunsOnAnotherThreadThatFoundationKnows) {
  __block bool isMain = true, isMulti = false;
  __block NSString *made = nil;
  dispatch_async(serial_, ^{
    isMain = [NSThread isMainThread];
    isMulti = [NSThread isMultiThreaded];
    made = [[NSString stringWithFormat:@"%d", 7] retain];
  });
  finish(serial_);
  EXPECT_FALSE(isMain);
  EXPECT_TRUE(isMulti);
  EXPECT_OBJC_EQ(made, @"7");
  [made release];
}

TEST_F(QueueTest, SyncRunsOnTheCallingThreadAfterWhatWaited) {
  const auto caller = std::this_thread::get_id();
  std::string order;
  std::string *text = &order;
  dispatch_async(serial_, ^{
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    *text += "first ";
  });
  __block bool isSame = false;
  dispatch_sync(serial_, ^{
    isSame = std::this_thread::get_id() == caller;
    *text += "second";
  });
  EXPECT_EQ(order, "first second");
  EXPECT_TRUE(isSame);
}

TEST_F(QueueTest, WhatAConcurrentQueueRunsMayWaitForOneAnother) {
  for (dispatch_queue_t queue : {concurrent_, global()}) {
    dispatch_semaphore_t first = dispatch_semaphore_create(0), second = dispatch_semaphore_create(0);
    dispatch_group_t group = dispatch_group_create();
    dispatch_group_async(group, queue, ^{
      dispatch_semaphore_wait(first, DISPATCH_TIME_FOREVER);
      dispatch_semaphore_signal(second);
    });
    dispatch_group_async(group, queue, ^{
      dispatch_semaphore_signal(first);
      dispatch_semaphore_wait(second, DISPATCH_TIME_FOREVER);
    });
    EXPECT_EQ(dispatch_group_wait(group, dispatch_time(DISPATCH_TIME_NOW, 10 * NSEC_PER_SEC)), 0);
    dispatch_release(group);
    dispatch_release(first);
    dispatch_release(second);
  }
}

TEST_F(QueueTest, ABarrierRunsAloneAndInItsPlace) {
  Crowd crowd;
  std::atomic<int> before{0}, after{0};
  Crowd *all = &crowd;
  auto *counted = &before, *late = &after;
  __block int seen = -1, seenLate = -1, beside = -1;
  for (int i = 0; i < 8; ++i) {
    dispatch_async(concurrent_, ^{
      all->enter();
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      ++*counted;
      all->leave();
    });
  }
  dispatch_barrier_async(concurrent_, ^{
    seen = *counted;
    beside = all->now;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));  // What does not wait for it begins now.
    seenLate = *late;
  });
  for (int i = 0; i < 8; ++i) {
    dispatch_async(concurrent_, ^{
      ++*late;
    });
  }
  finish(concurrent_);
  EXPECT_EQ(seen, 8);
  EXPECT_EQ(seenLate, 0);
  EXPECT_EQ(beside, 0);
  EXPECT_EQ(after, 8);
  EXPECT_GT(crowd.most, 1);
}

TEST_F(QueueTest, BackgroundWorkAnswersOnTheMainQueue) {
  __block std::string order;
  __block bool isMain = false;
  dispatch_async(global(), ^{
    dispatch_sync(dispatch_get_main_queue(), ^{
      order += "sync ";
      isMain = [NSThread isMainThread];
    });
    dispatch_async(dispatch_get_main_queue(), ^{
      order += "async";
    });
  });
  NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
  while (order != "sync async" && [end timeIntervalSinceNow] > 0) {
    [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
  }
  EXPECT_EQ(order, "sync async");
  EXPECT_TRUE(isMain);
}

TEST_F(QueueTest, WhatABlockHoldsEndsWithItOnItsQueue) {
  int deaths = 0;
  @autoreleasepool {
    Lifetime *held = [[[Lifetime alloc] initWithCounter:&deaths] autorelease];
    dispatch_async(serial_, ^{
      [[held retain] autorelease];  // In a pool of the block's own.
    });
  }
  finish(serial_);
  EXPECT_EQ(deaths, 1);
}

TEST_F(QueueTest, AQueueLivesUntilWhatWaitsOnItHasRun) {
  dispatch_queue_t queue = dispatch_queue_create(nullptr, nullptr);
  dispatch_group_t group = dispatch_group_create();
  __block int runs = 0;
  for (int i = 0; i < 10; ++i) {
    dispatch_group_async(group, queue, ^{
      ++runs;
    });
  }
  dispatch_release(queue);
  dispatch_group_wait(group, DISPATCH_TIME_FOREVER);
  EXPECT_EQ(runs, 10);
  dispatch_release(group);
}

void collect(NSString *line, void *context) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

TEST_F(QueueTest, WhatABlockRaisesIsALineInTheLogAndTheQueueGoesOn) {
  std::vector<std::string> lines;
  SIMSetLogHandler(collect, &lines);
  __block bool next = false;
  dispatch_async(serial_, ^{
    [NSException raise:NSRangeException format:@"forced"];
  });
  dispatch_async(serial_, ^{
    next = true;
  });
  finish(serial_);
  SIMSetLogHandler(nullptr, nullptr);
  EXPECT_TRUE(next);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0],
            "Uncaught exception while running a block of the queue \"com.example.serial\": NSRangeException: forced");
}

TEST_F(QueueTest, WhatASyncBlockRaisesReachesTheCallerAndTheQueueGoesOn) {
  EXPECT_EQ(raisedBy([this] {
              dispatch_sync(serial_, ^{
                [NSException raise:NSRangeException format:@"forced"];
              });
            }),
            "NSRangeException");
  __block bool next = false;
  dispatch_sync(serial_, ^{
    next = true;
  });
  EXPECT_TRUE(next);
}

TEST_F(QueueTest, AfterWaitsOnAnyQueue) {
  dispatch_group_t group = dispatch_group_create();
  std::string order;
  std::string *text = &order;
  for (const auto &[delay, letter] : {std::pair(40, 'c'), std::pair(20, 'b'), std::pair(-5, 'a')}) {
    dispatch_group_enter(group);
    const char written = letter;
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay * static_cast<int64_t>(NSEC_PER_MSEC)), serial_, ^{
      text->push_back(written);
      dispatch_group_leave(group);
    });
  }
  EXPECT_EQ(dispatch_group_wait(group, dispatch_time(DISPATCH_TIME_NOW, 10 * NSEC_PER_SEC)), 0);
  EXPECT_EQ(order, "abc");
  dispatch_release(group);
}

TEST_F(QueueTest, ApplyRunsEachIterationOnceAndReturnsWhenAllHaveRun) {
  for (dispatch_queue_t queue : {DISPATCH_APPLY_AUTO, serial_, concurrent_, global()}) {
    std::vector<std::atomic<int>> runs(200);
    auto *counts = runs.data();
    dispatch_apply(runs.size(), queue, ^(size_t index) {
      ++counts[index];
    });
    for (const auto &count : runs) EXPECT_EQ(count, 1);
  }
  dispatch_apply(0, serial_, ^(size_t) {
    ADD_FAILURE();
  });
}

TEST_F(QueueTest, ASuspendedQueueHoldsBackWhatHasNotBegun) {
  std::atomic<int> runs{0};
  auto *count = &runs;
  dispatch_suspend(serial_);
  dispatch_suspend(serial_);
  dispatch_async(serial_, ^{
    ++*count;
  });
  dispatch_resume(serial_);
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(runs, 0);
  dispatch_resume(serial_);
  finish(serial_);
  EXPECT_EQ(runs, 1);
}

int destroyed = 0;
void destroy(void *context) { destroyed += *static_cast<int *>(context); }

TEST_F(QueueTest, AQueueKeepsValuesForKeys) {
  static int key, other;
  int value = 5, next = 7;
  destroyed = 0;
  dispatch_queue_t queue = dispatch_queue_create("specific", nullptr);
  dispatch_queue_set_specific(queue, &key, &value, destroy);
  EXPECT_EQ(dispatch_queue_get_specific(queue, &key), &value);
  EXPECT_EQ(dispatch_queue_get_specific(queue, &other), nullptr);
  EXPECT_EQ(dispatch_get_specific(&key), nullptr);
  __block void *seen = nullptr;
  dispatch_sync(queue, ^{
    seen = dispatch_get_specific(&key);
  });
  EXPECT_EQ(seen, &value);
  dispatch_queue_set_specific(queue, &key, &next, destroy);
  EXPECT_EQ(destroyed, 5);
  dispatch_release(queue);
  EXPECT_EQ(destroyed, 12);
  dispatch_queue_set_specific(dispatch_get_main_queue(), &key, &value, nullptr);
  EXPECT_EQ(dispatch_get_specific(&key), &value);
  dispatch_queue_set_specific(dispatch_get_main_queue(), &key, nullptr, nullptr);
}

TEST_F(QueueTest, QueuesHaveLabels) {
  EXPECT_STREQ(dispatch_queue_get_label(serial_), "com.example.serial");
  EXPECT_STREQ(dispatch_queue_get_label(DISPATCH_CURRENT_QUEUE_LABEL), "com.apple.main-thread");
  EXPECT_STREQ(dispatch_queue_get_label(global()), "com.apple.root.default-qos");
  __block std::string inside;
  dispatch_sync(serial_, ^{
    inside = dispatch_queue_get_label(DISPATCH_CURRENT_QUEUE_LABEL);
  });
  EXPECT_EQ(inside, "com.example.serial");
}

TEST_F(QueueTest, GlobalQueuesAreKnownByQualityAndByPriority) {
  const auto queue = [](intptr_t identifier) { return dispatch_get_global_queue(identifier, 0); };
  EXPECT_EQ(queue(DISPATCH_QUEUE_PRIORITY_HIGH), queue(QOS_CLASS_USER_INITIATED));
  EXPECT_EQ(queue(DISPATCH_QUEUE_PRIORITY_DEFAULT), queue(QOS_CLASS_DEFAULT));
  EXPECT_EQ(queue(DISPATCH_QUEUE_PRIORITY_LOW), queue(QOS_CLASS_UTILITY));
  EXPECT_EQ(queue(DISPATCH_QUEUE_PRIORITY_BACKGROUND), queue(QOS_CLASS_BACKGROUND));
  EXPECT_NE(queue(QOS_CLASS_USER_INTERACTIVE), queue(QOS_CLASS_USER_INITIATED));
  EXPECT_EQ(queue(99), nil);
  EXPECT_EQ(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 2), nil);
}

TEST_F(QueueTest, AnAttributeHasAQualityOfService) {
  dispatch_queue_attr_t attribute =
      dispatch_queue_attr_make_with_qos_class(DISPATCH_QUEUE_CONCURRENT, QOS_CLASS_UTILITY, -1);
  dispatch_queue_t queue = dispatch_queue_create("quality", attribute);
  dispatch_semaphore_t first = dispatch_semaphore_create(0);
  dispatch_group_t group = dispatch_group_create();
  dispatch_group_async(group, queue, ^{
    dispatch_semaphore_wait(first, DISPATCH_TIME_FOREVER);  // Concurrent, or this would be for ever.
  });
  dispatch_group_async(group, queue, ^{
    dispatch_semaphore_signal(first);
  });
  EXPECT_EQ(dispatch_group_wait(group, dispatch_time(DISPATCH_TIME_NOW, 10 * NSEC_PER_SEC)), 0);
  dispatch_release(group);
  dispatch_release(first);
  dispatch_release(queue);
}

TEST_F(QueueTest, MoreThanTheThreadsThereAreCanWait) {
  const std::size_t count = sim::dispatch::ThreadPool::kMostThreads + 20;
  dispatch_semaphore_t gate = dispatch_semaphore_create(0);
  dispatch_group_t group = dispatch_group_create();
  std::atomic<std::size_t> runs{0};
  auto *counted = &runs;
  for (std::size_t i = 0; i < count; ++i) {
    dispatch_group_async(group, global(), ^{
      dispatch_semaphore_wait(gate, DISPATCH_TIME_FOREVER);
      ++*counted;
    });
  }
  for (std::size_t i = 0; i < count; ++i) dispatch_semaphore_signal(gate);
  EXPECT_EQ(dispatch_group_wait(group, dispatch_time(DISPATCH_TIME_NOW, 20 * NSEC_PER_SEC)), 0);
  EXPECT_EQ(runs, count);
  dispatch_release(group);
  dispatch_release(gate);
}

TEST_F(QueueTest, WhoHasWaitedForAGroupFindsOnTheQueueWhatFollowsIt) {
  std::atomic<int> runs{0};
  auto *counted = &runs;
  for (int round = 1; round <= 2000 && !HasFailure(); ++round) {
    dispatch_group_t group = dispatch_group_create();
    dispatch_group_async(group, dispatch_get_global_queue(0, 0),
                         ^{
                         });
    dispatch_group_notify(group, serial_, ^{
      ++*counted;
    });
    dispatch_group_wait(group, DISPATCH_TIME_FOREVER);
    dispatch_sync(serial_, ^{
                  });
    EXPECT_EQ(runs, round);
    dispatch_release(group);
  }
}

void add(void *context) { ++*static_cast<std::atomic<int> *>(context); }
void addIndex(void *context, size_t index) { *static_cast<std::atomic<int> *>(context) += static_cast<int>(index); }

TEST_F(QueueTest, FunctionsRunAsBlocksDo) {
  std::atomic<int> sum{0};
  dispatch_group_t group = dispatch_group_create();
  dispatch_async_f(serial_, &sum, add);
  dispatch_sync_f(serial_, &sum, add);
  dispatch_barrier_async_f(serial_, &sum, add);
  dispatch_barrier_sync_f(serial_, &sum, add);
  dispatch_group_async_f(group, serial_, &sum, add);
  dispatch_group_notify_f(group, serial_, &sum, add);
  dispatch_group_wait(group, DISPATCH_TIME_FOREVER);
  finish(serial_);
  static dispatch_once_t once;
  dispatch_once_f(&once, &sum, add);
  dispatch_once_f(&once, &sum, add);
  EXPECT_EQ(sum, 7);
  dispatch_apply_f(5, serial_, &sum, addIndex);
  EXPECT_EQ(sum, 17);
  dispatch_after_f(DISPATCH_TIME_NOW, dispatch_get_main_queue(), &sum, add);
  SIMDrainMainQueue();
  EXPECT_EQ(sum, 18);
  dispatch_release(group);
}

TEST_F(QueueTest, AnObjectKeepsAContextForItsFinalizer) {
  std::atomic<int> ends{0};
  dispatch_queue_t queue = dispatch_queue_create("context", nullptr);
  EXPECT_EQ(dispatch_get_context(queue), nullptr);
  dispatch_set_context(queue, &ends);
  dispatch_set_finalizer_f(queue, add);
  EXPECT_EQ(dispatch_get_context(queue), &ends);
  dispatch_retain(queue);
  dispatch_release(queue);
  EXPECT_EQ(ends, 0);
  dispatch_release(queue);
  EXPECT_EQ(ends, 1);
}

TEST_F(QueueTest, ABlockKnowsItsQueue) {
  dispatch_sync(serial_, ^{
    dispatch_assert_queue(serial_);
  });
  dispatch_assert_queue(dispatch_get_main_queue());
  dispatch_assert_queue_not(serial_);
}

using QueueDeathTest = QueueTest;

TEST_F(QueueDeathTest, SyncOnTheQueueThatRunsEndsTheProcess) {
  EXPECT_DEATH(dispatch_sync(dispatch_get_main_queue(),
                             ^{
                             }),
               "on the main queue by the main thread");
  EXPECT_DEATH(dispatch_sync(serial_,
                             ^{
                               dispatch_sync(serial_, ^{
                                             });
                             }),
               "com.example.serial");
}

TEST_F(QueueDeathTest, MisuseEndsTheProcess) {
  EXPECT_DEATH(dispatch_assert_queue(serial_), "not on the queue \"com.example.serial\"");
  EXPECT_DEATH(dispatch_assert_queue_not(dispatch_get_main_queue()), "on the queue \"com.apple.main-thread\"");
  EXPECT_DEATH(dispatch_resume(serial_), "not suspended");
  EXPECT_DEATH(dispatch_async(serial_, nullptr), "without a block");
}

}  // namespace
