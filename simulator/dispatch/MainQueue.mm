#import <dispatch/MainQueue+Sim.h>
#import <dispatch/dispatch.h>

#include <objcxx/BlockHandle.h>

#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <map>
#include <mutex>

namespace {

using Block = objcxx::BlockHandle<void>;

constexpr NSUInteger kDrainLimit = 10000;
constexpr NSTimeInterval kNow = 0.001;  // Foundation makes a zero delay a tenth of a millisecond.

std::uint64_t monotonicNanoseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * NSEC_PER_SEC + static_cast<std::uint64_t>(now.tv_nsec);
}

/// The blocks that wait, and the two descriptors that wake the main run loop for them. Any thread, `runNext` excepted.
class MainQueue final {
 public:
  static MainQueue &shared() {
    static auto *queue = new MainQueue;  // Lives as long as the process.
    return *queue;
  }

  int wakeDescriptor() const { return wake_; }
  int timerDescriptor() const { return timer_; }

  void add(Block block) {
    const std::lock_guard lock(mutex_);
    ready_.push_back(std::move(block));
    updateWake();
  }

  void add(Block block, dispatch_time_t due) {
    const std::lock_guard lock(mutex_);
    later_.emplace(due, std::move(block));
    updateTimer();
  }

  /// How many blocks `runNext` could run now: none while one is running, as the queue is serial.
  std::size_t runnable() {
    const std::lock_guard lock(mutex_);
    takeDue();
    return busy_ ? 0 : ready_.size();
  }

  /// Runs the first waiting block; false when there is none that could run. Main thread.
  bool runNext() {
    Block block;
    {
      const std::lock_guard lock(mutex_);
      takeDue();
      if (busy_ || ready_.empty()) return false;
      busy_ = true;
      block = std::move(ready_.front());
      ready_.pop_front();
      updateWake();
    }
    struct Finish {
      MainQueue &queue;
      ~Finish() {
        const std::lock_guard lock(queue.mutex_);
        queue.busy_ = false;
        queue.updateWake();
      }
    } finish{*this};
    @autoreleasepool {
      block();
      block = {};
    }
    return true;
  }

 private:
  MainQueue()
      : wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
        timer_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
    if (wake_ >= 0 && timer_ >= 0) return;
    std::perror("The main queue could not be made");
    std::abort();
  }

  /// The descriptor is readable exactly while a block could run, so a run loop nested in a block does not spin.
  void updateWake() {
    const bool wanted = !busy_ && !ready_.empty();
    if (wanted == awake_) return;
    eventfd_t value = 0;
    (void)(wanted ? eventfd_write(wake_, 1) : eventfd_read(wake_, &value));
    awake_ = wanted;
  }

  void updateTimer() {
    itimerspec setting{};
    if (!later_.empty()) {
      const auto due = std::max<std::uint64_t>(later_.begin()->first, 1);  // Zero would switch the timer off.
      setting.it_value = {static_cast<time_t>(due / NSEC_PER_SEC), static_cast<long>(due % NSEC_PER_SEC)};
    }
    timerfd_settime(timer_, TFD_TIMER_ABSTIME, &setting, nullptr);
  }

  void takeDue() {
    const auto end = later_.upper_bound(monotonicNanoseconds());
    if (end == later_.begin()) return;
    for (auto each = later_.begin(); each != end; ++each) ready_.push_back(std::move(each->second));
    later_.erase(later_.begin(), end);
    updateTimer();
    updateWake();
  }

  std::mutex mutex_;
  std::deque<Block> ready_;
  std::multimap<dispatch_time_t, Block> later_;
  bool busy_ = false;
  bool awake_ = false;
  const int wake_;
  const int timer_;
};

[[noreturn]] void misuse(const char *what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

}  // namespace

/// What stands for the queue. It keeps nothing: there is one queue.
@interface SIMMainQueue : NSObject <OS_dispatch_queue_main>
@end

@implementation SIMMainQueue
@end

/// Joins the queue to the main run loop.
@interface SIMMainQueueSource : NSObject <RunLoopEvents>
@end

@implementation SIMMainQueueSource

/// Runs what waits now. Blocks that these add come at the run loop's next turn, so that they cannot starve its other
/// sources.
- (void)receivedEvent:(void *)data type:(RunLoopEventType)type extra:(void *)extra forMode:(NSString *)mode {
  for (auto count = MainQueue::shared().runnable(); count > 0 && MainQueue::shared().runNext(); --count) {
  }
}

@end

void SIMJoinMainRunLoop(void) {
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    auto *source = [[SIMMainQueueSource alloc] init];  // Lives as long as the process.
    for (const int descriptor : {MainQueue::shared().wakeDescriptor(), MainQueue::shared().timerDescriptor()}) {
      [[NSRunLoop currentRunLoop] addEvent:(void *)static_cast<std::intptr_t>(descriptor)
                                      type:ET_RDESC
                                   watcher:source
                                   forMode:NSDefaultRunLoopMode];
    }
  });
}

void dispatch_once(dispatch_once_t *predicate, __attribute__((noescape)) dispatch_block_t block) {
  constexpr dispatch_once_t kRunning = 1, kDone = -1;
  dispatch_once_t expected = 0;
  if (__atomic_compare_exchange_n(predicate, &expected, kRunning, false, __ATOMIC_ACQUIRE, __ATOMIC_ACQUIRE)) {
    block();
    __atomic_store_n(predicate, kDone, __ATOMIC_RELEASE);
    return;
  }
  while (__atomic_load_n(predicate, __ATOMIC_ACQUIRE) != kDone) usleep(100);
}

dispatch_queue_main_t dispatch_get_main_queue(void) {
  static SIMMainQueue *queue = [[SIMMainQueue alloc] init];  // Lives as long as the process.
  return queue;
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
  if (!queue || !block) misuse("dispatch_async was called without a queue or a block.");
  MainQueue::shared().add(objcxx::copyOf(block));
}

dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta) {
  if (when == DISPATCH_TIME_FOREVER) return DISPATCH_TIME_FOREVER;
  const auto start = when == DISPATCH_TIME_NOW ? monotonicNanoseconds() : when;
  dispatch_time_t sum = 0;
  if (delta >= 0)
    return __builtin_add_overflow(start, static_cast<std::uint64_t>(delta), &sum) ? DISPATCH_TIME_FOREVER : sum;
  return __builtin_sub_overflow(start, -static_cast<std::uint64_t>(delta), &sum) ? 1 : sum;
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block) {
  if (!queue || !block) misuse("dispatch_after was called without a queue or a block.");
  if (when == DISPATCH_TIME_FOREVER) return;
  MainQueue::shared().add(objcxx::copyOf(block), when);
}

NSUInteger SIMDrainMainQueue(void) {
  SIMJoinMainRunLoop();
  auto &queue = MainQueue::shared();
  NSUInteger ran = 0;
  for (NSUInteger round = 0; round < kDrainLimit; ++round) {
    if (queue.runNext()) {
      ++ran;
      continue;
    }
    @autoreleasepool {
      NSDate *next = [[NSRunLoop currentRunLoop] limitDateForMode:NSDefaultRunLoopMode];  // Fires a timer that is due.
      const NSTimeInterval wait = next ? [next timeIntervalSinceNow] : kNow;
      if (queue.runnable() > 0) continue;
      if (wait >= kNow) return ran;
      if (wait > 0) [NSThread sleepForTimeInterval:wait];
    }
  }
  NSLog(@"The main queue is still not empty after %lu turns.", static_cast<unsigned long>(kDrainLimit));
  return ran;
}
