#import <dispatch/MainQueue+Sim.h>
#import <dispatch/dispatch.h>

#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "dispatch/Queue.hpp"
#include "dispatch/Times.hpp"

namespace {

using sim::dispatch::Work;

constexpr NSUInteger kDrainLimit = 10000;
constexpr NSTimeInterval kNow = 0.001;  // Foundation makes a zero delay a tenth of a millisecond.

/// The blocks that wait, and the two descriptors that wake the main run loop for them. Any thread, `runNext` excepted.
class MainQueue final : public sim::dispatch::Queue {
 public:
  /// Lives as long as the process.
  static const std::shared_ptr<MainQueue> &handle() {
    static auto *queue = new std::shared_ptr<MainQueue>(new MainQueue);
    return *queue;
  }
  static MainQueue &shared() { return *handle(); }

  int wakeDescriptor() const { return wake_; }
  int timerDescriptor() const { return timer_; }

  void add(Work work, bool /*alone*/) override {
    const std::lock_guard lock(mutex_);
    ready_.push_back(std::move(work));
    updateWake();
  }

  void addAt(std::uint64_t due, Work work) override {
    const std::lock_guard lock(mutex_);
    later_.emplace(due, std::move(work));
    updateTimer();
  }

  void run(const Work &work, bool alone) override {
    if (isMainThread()) {
      sim::dispatch::misuse("dispatch_sync was called on the main queue by the main thread, and would wait for ever.");
    }
    Done done;
    add(
        [&] {
          const Done::Teller teller(done);
          work();
        },
        alone);
    done.wait();
  }

  std::size_t width() const override { return 1; }

  /// How many blocks `runNext` could run now: none while one is running, as the queue is serial.
  std::size_t runnable() {
    const std::lock_guard lock(mutex_);
    takeDue();
    return busy_ ? 0 : ready_.size();
  }

  /// Runs the first waiting work; false when there is none that could run. Main thread.
  bool runNext() {
    Work work;
    {
      const std::lock_guard lock(mutex_);
      takeDue();
      if (busy_ || ready_.empty()) return false;
      busy_ = true;
      work = std::move(ready_.front());
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
    const Scope scope(*this);
    @autoreleasepool {
      work();
      work = {};
    }
    return true;
  }

  static bool isMainThread() { return gettid() == getpid(); }

 private:
  /// What another thread waits for.
  class Done final {
   public:
    void wait() {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return isDone_; });
    }
    class Teller final {
     public:
      explicit Teller(Done &done) : done_(done) {}
      ~Teller() {
        const std::lock_guard lock(done_.mutex_);
        done_.isDone_ = true;
        done_.changed_.notify_one();
      }
      Teller(const Teller &) = delete;
      Teller &operator=(const Teller &) = delete;

     private:
      Done &done_;
    };

   private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isDone_ = false;
  };

  MainQueue()
      : Queue("com.apple.main-thread"),
        wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
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
    const auto end = later_.upper_bound(sim::dispatch::monotonicNanoseconds());
    if (end == later_.begin()) return;
    for (auto each = later_.begin(); each != end; ++each) ready_.push_back(std::move(each->second));
    later_.erase(later_.begin(), end);
    updateTimer();
    updateWake();
  }

  std::mutex mutex_;
  std::deque<Work> ready_;
  std::multimap<std::uint64_t, Work> later_;
  bool busy_ = false;
  bool awake_ = false;
  const int wake_;
  const int timer_;
};

}  // namespace

std::shared_ptr<sim::dispatch::Queue> sim::dispatch::mainQueue() { return MainQueue::handle(); }

bool sim::dispatch::isMainThread() { return MainQueue::isMainThread(); }

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
