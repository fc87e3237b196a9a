// Foundation's own ways to run code on other threads and later, as makers use them.
#import <Foundation/Foundation.h>
#import <dispatch/MainQueue+Sim.h>

#include "support/objc/LeaksIgnored.h"
#include "support/objc/ObjCTest.h"

#include <atomic>

@interface FoundationThreadsWorker : NSObject {
 @public
  std::atomic<int> background, main;
  std::atomic<bool> wasMain;
}
@end

@implementation FoundationThreadsWorker
- (void)work:(id)argument {
  wasMain = [NSThread isMainThread];
  ++background;
  [self performSelectorOnMainThread:@selector(answer:) withObject:argument waitUntilDone:NO];
}
- (void)answer:(id)argument {
  if ([NSThread isMainThread] && [argument isEqual:@"argument"]) ++main;
}
@end

namespace {

class FoundationThreadsTest : public ObjCTest {
 protected:
  static void SetUpTestSuite() {
    const testing_support::LeaksIgnored ignored;  // What the class keeps for good.
    @autoreleasepool {
      [NSBlockOperation blockOperationWithBlock:^{
      }];
    }
  }
  template <typename Condition>
  static bool runLoopUntil(Condition done) {
    NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (!done() && [end timeIntervalSinceNow] > 0) {
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.02]];
    }
    return done();
  }
};

TEST_F(FoundationThreadsTest, AnOperationQueueRunsBlocksInTheBackgroundAndAnswersOnTheMainQueue) {
  NSOperationQueue *queue = [[[NSOperationQueue alloc] init] autorelease];
  [queue setMaxConcurrentOperationCount:1];
  std::atomic<int> runs{0}, answers{0};
  auto *counted = &runs, *answered = &answers;
  for (int i = 0; i < 5; ++i) {
    [queue addOperationWithBlock:^{
      if (![NSThread isMainThread]) ++*counted;
      [[NSOperationQueue mainQueue] addOperationWithBlock:^{
        if ([NSThread isMainThread]) ++*answered;
      }];
    }];
  }
  [queue waitUntilAllOperationsAreFinished];
  EXPECT_EQ(runs, 5);
  EXPECT_TRUE(runLoopUntil([&] { return answers == 5; }));
}

TEST_F(FoundationThreadsTest, OperationsWaitForThoseTheyDependOn) {
  NSOperationQueue *queue = [[[NSOperationQueue alloc] init] autorelease];
  __block std::string order;
  NSBlockOperation *first = [NSBlockOperation blockOperationWithBlock:^{
    [NSThread sleepForTimeInterval:0.02];
    order += "first ";
  }];
  NSBlockOperation *second = [NSBlockOperation blockOperationWithBlock:^{
    order += "second";
  }];
  [second addDependency:first];
  [queue addOperation:second];
  [queue addOperation:first];
  [queue waitUntilAllOperationsAreFinished];
  EXPECT_EQ(order, "first second");
}

TEST_F(FoundationThreadsTest, TheMainQueueToo) {
  NSOperationQueue *queue = [[[NSOperationQueue alloc] init] autorelease];
  std::string order;
  std::string *text = &order;
  NSBlockOperation *first = [NSBlockOperation blockOperationWithBlock:^{
    [NSThread sleepForTimeInterval:0.02];
    *text += "first ";
  }];
  NSBlockOperation *second = [NSBlockOperation blockOperationWithBlock:^{
    *text += [NSThread isMainThread] ? "second" : "elsewhere";
  }];
  [second addDependency:first];
  [[NSOperationQueue mainQueue] addOperation:second];
  SIMDrainMainQueue();
  EXPECT_EQ(order, "");
  EXPECT_EQ([[NSOperationQueue mainQueue] operationCount], 1u);
  [queue addOperation:first];
  EXPECT_TRUE(runLoopUntil([&] { return order == "first second"; })) << order;
  EXPECT_EQ([[NSOperationQueue mainQueue] operationCount], 0u);
}

TEST_F(FoundationThreadsTest, PerformsInTheBackgroundAndOnTheMainThread) {
  FoundationThreadsWorker *worker = [[[FoundationThreadsWorker alloc] init] autorelease];
  worker->wasMain = true;
  [worker performSelectorInBackground:@selector(work:) withObject:@"argument"];
  EXPECT_TRUE(runLoopUntil([&] { return worker->main == 1; }));
  EXPECT_EQ(worker->background, 1);
  EXPECT_FALSE(worker->wasMain);
  [NSThread detachNewThreadSelector:@selector(work:) toTarget:worker withObject:@"argument"];
  EXPECT_TRUE(runLoopUntil([&] { return worker->main == 2; }));
}

TEST_F(FoundationThreadsTest, AThreadRunsABlock) {
  std::atomic<int> runs{0};
  auto *counted = &runs;
  NSThread *thread = [[[NSThread alloc] initWithBlock:^{
    if (![NSThread isMainThread]) ++*counted;
  }] autorelease];
  [thread start];
  [NSThread detachNewThreadWithBlock:^{
    ++*counted;
  }];
  EXPECT_TRUE(runLoopUntil([&] { return runs == 2; }));
}

TEST_F(FoundationThreadsTest, ATimerRunsABlockOnTheMainLoop) {
  int runs = 0;
  int *counted = &runs;
  NSTimer *timer = [NSTimer scheduledTimerWithTimeInterval:0.005
                                                   repeats:YES
                                                     block:^(NSTimer *) {
                                                       ++*counted;
                                                     }];
  const int *seen = &runs;
  EXPECT_TRUE(runLoopUntil([&] { return *seen >= 3; }));
  [timer invalidate];
  const int before = runs;
  [NSThread sleepForTimeInterval:0.02];
  SIMDrainMainQueue();
  EXPECT_EQ(runs, before);
}

}  // namespace
