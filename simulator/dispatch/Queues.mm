// The functions of dispatch/queue.h.
#import "dispatch/DispatchObjects.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "dispatch/Times.hpp"

using sim::dispatch::isMainThread;
using sim::dispatch::Level;
using sim::dispatch::mainQueue;
using sim::dispatch::Queue;
using sim::dispatch::queueOf;
using sim::dispatch::Work;
using sim::dispatch::workOf;
using sim::dispatch::WorkQueue;

/// How a queue is to be made.
@interface SIMQueueAttribute : SIMDispatchObject <OS_dispatch_queue_attr> {
 @public
  WorkQueue::Kind kind;
  Level level;
}
@end

@implementation SIMQueueAttribute
@end

namespace {

std::optional<Level> levelOf(intptr_t identifier) {
  switch (identifier) {
    case QOS_CLASS_USER_INTERACTIVE: return Level::interactive;
    case QOS_CLASS_USER_INITIATED:
    case DISPATCH_QUEUE_PRIORITY_HIGH: return Level::initiated;
    case QOS_CLASS_DEFAULT:
    case DISPATCH_QUEUE_PRIORITY_DEFAULT: return Level::standard;
    case QOS_CLASS_UTILITY:
    case DISPATCH_QUEUE_PRIORITY_LOW: return Level::utility;
    case QOS_CLASS_BACKGROUND:
    case DISPATCH_QUEUE_PRIORITY_BACKGROUND: return Level::background;
    default: return std::nullopt;
  }
}

SIMQueue *globalQueue(Level level) {
  static constexpr const char *kNames[] = {"user-interactive", "user-initiated", "default", "utility", "background"};
  static const auto queues = [] {
    std::array<SIMQueue *, sim::dispatch::kLevels> made{};  // They live as long as the process.
    for (std::size_t index = 0; index < made.size(); ++index) {
      made[index] = [[SIMQueue alloc]
          initWithQueue:std::make_shared<WorkQueue>(std::string("com.apple.root.") + kNames[index] + "-qos",
                                                    WorkQueue::Kind::global, static_cast<Level>(index))];
    }
    return made;
  }();
  return queues[static_cast<std::size_t>(level)];
}

/// One for each kind and level, so that the caller need not own it.
SIMQueueAttribute *attribute(WorkQueue::Kind kind, Level level) {
  static std::mutex mutex;
  // Lives as long as the process.
  static auto *made = new std::map<std::pair<WorkQueue::Kind, Level>, SIMQueueAttribute *>;
  const std::lock_guard lock(mutex);
  SIMQueueAttribute *&found = (*made)[{kind, level}];
  if (!found) {
    found = [[SIMQueueAttribute alloc] init];
    found->kind = kind;
    found->level = level;
  }
  return found;
}

/// The queue on which the caller runs; nullptr outside of all.
Queue *currentQueue() {
  if (Queue::current()) return &Queue::current()->queue;
  return isMainThread() ? mainQueue().get() : nullptr;
}

bool runsOn(const Queue &queue) {
  return queue.isCurrent() || (isMainThread() && &queue == static_cast<const Queue *>(mainQueue().get()));
}

/// The iterations of dispatch_apply, shared by those that run them. One that begins when all are given out looks at
/// this alone, and never at the block, which may be gone.
struct Iterations {
  const std::size_t count;
  void (^const block)(size_t);
  std::mutex mutex{};
  std::condition_variable changed{};
  std::size_t begun = 0;
  std::size_t ended = 0;

  bool begin(std::size_t &index) {
    const std::lock_guard lock(mutex);
    if (begun == count) return false;
    index = begun++;
    return true;
  }

  void run() {
    for (std::size_t index = 0; begin(index);) {
      struct End {
        Iterations &all;
        ~End() {
          const std::lock_guard lock(all.mutex);
          ++all.ended;
          all.changed.notify_all();
        }
      } end{*this};
      @autoreleasepool {
        block(index);
      }
    }
  }

  /// Begins no more, and waits for those that run.
  void end() {
    std::unique_lock lock(mutex);
    ended += count - begun;
    begun = count;
    changed.wait(lock, [this] { return ended == count; });
  }
};

}  // namespace

dispatch_queue_main_t dispatch_get_main_queue(void) {
  static SIMQueue *queue = [[SIMQueue alloc] initWithQueue:mainQueue()];  // Lives as long as the process.
  return queue;
}

dispatch_queue_global_t dispatch_get_global_queue(intptr_t identifier, uintptr_t flags) {
  if (identifier == QOS_CLASS_UNSPECIFIED) identifier = QOS_CLASS_DEFAULT;
  const auto level = levelOf(identifier);
  return level && flags == 0 ? globalQueue(*level) : nil;
}

dispatch_queue_attr_t sim_dispatch_queue_attr_concurrent(void) {
  return attribute(WorkQueue::Kind::concurrent, Level::standard);
}

dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t attr, qos_class_t qos, int) {
  const auto kind = attr ? static_cast<SIMQueueAttribute *>(attr)->kind : WorkQueue::Kind::serial;
  return attribute(kind, levelOf(qos).value_or(Level::standard));
}

dispatch_queue_t dispatch_queue_create(const char *label, dispatch_queue_attr_t attr) {
  auto *how = static_cast<SIMQueueAttribute *>(attr);
  return [[SIMQueue alloc]
      initWithQueue:std::make_shared<WorkQueue>(label ? label : "", how ? how->kind : WorkQueue::Kind::serial,
                                                how ? how->level : Level::standard)];
}

const char *dispatch_queue_get_label(dispatch_queue_t queue) {
  if (queue) return queueOf(queue, "dispatch_queue_get_label")->label().c_str();
  const Queue *current = currentQueue();
  return current ? current->label().c_str() : "";
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
  Work work = workOf(block, "dispatch_async");
  queueOf(queue, "dispatch_async")->add(std::move(work), sim::dispatch::isBarrier(block));
}

void dispatch_async_f(dispatch_queue_t queue, void *context, dispatch_function_t work) {
  queueOf(queue, "dispatch_async_f")->add([=] { work(context); }, false);
}

void dispatch_sync(dispatch_queue_t queue, __attribute__((noescape)) dispatch_block_t block) {
  queueOf(queue, "dispatch_sync")->run([&] { block(); }, false);
}

void dispatch_sync_f(dispatch_queue_t queue, void *context, dispatch_function_t work) {
  queueOf(queue, "dispatch_sync_f")->run([=] { work(context); }, false);
}

void dispatch_barrier_async(dispatch_queue_t queue, dispatch_block_t block) {
  Work work = workOf(block, "dispatch_barrier_async");
  queueOf(queue, "dispatch_barrier_async")->add(std::move(work), true);
}

void dispatch_barrier_async_f(dispatch_queue_t queue, void *context, dispatch_function_t work) {
  queueOf(queue, "dispatch_barrier_async_f")->add([=] { work(context); }, true);
}

void dispatch_barrier_sync(dispatch_queue_t queue, __attribute__((noescape)) dispatch_block_t block) {
  queueOf(queue, "dispatch_barrier_sync")->run([&] { block(); }, true);
}

void dispatch_barrier_sync_f(dispatch_queue_t queue, void *context, dispatch_function_t work) {
  queueOf(queue, "dispatch_barrier_sync_f")->run([=] { work(context); }, true);
}

namespace {

void addLater(dispatch_time_t when, const std::shared_ptr<Queue> &queue, Work work) {
  const auto due = sim::dispatch::monotonic(when);
  if (due != DISPATCH_TIME_FOREVER) queue->addAt(due, std::move(work));
}

}  // namespace

void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block) {
  Work work = workOf(block, "dispatch_after");
  addLater(when, queueOf(queue, "dispatch_after"), std::move(work));
}

void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void *context, dispatch_function_t work) {
  addLater(when, queueOf(queue, "dispatch_after_f"), [=] { work(context); });
}

void dispatch_apply(size_t iterations, dispatch_queue_t queue,
                    __attribute__((noescape)) void (^block)(size_t iteration)) {
  if (iterations == 0) return;
  const auto &target = queue ? queueOf(queue, "dispatch_apply") : globalQueue(Level::standard)->queue;
  const auto all = std::make_shared<Iterations>(iterations, block);
  const std::size_t threads = std::max(1u, std::thread::hardware_concurrency());
  for (auto more = std::min({iterations, threads, target->width()}); more > 1; --more) {
    target->add([all] { all->run(); }, false);
  }
  target->run(
      [&all] {
        struct Wait {  // For the others, also when an iteration raises.
          Iterations &all;
          ~Wait() { all.end(); }
        } wait{*all};
        all->run();
      },
      false);
}

void dispatch_apply_f(size_t iterations, dispatch_queue_t queue, void *context, void (*work)(void *, size_t)) {
  dispatch_apply(iterations, queue, ^(size_t iteration) {
    work(context, iteration);
  });
}

void dispatch_queue_set_specific(dispatch_queue_t queue, const void *key, void *context,
                                 dispatch_function_t destructor) {
  queueOf(queue, "dispatch_queue_set_specific")->setSpecific(key, context, destructor);
}

void *dispatch_queue_get_specific(dispatch_queue_t queue, const void *key) {
  return queueOf(queue, "dispatch_queue_get_specific")->specific(key);
}

void *dispatch_get_specific(const void *key) {
  const Queue *current = currentQueue();
  return current ? current->specific(key) : nullptr;
}

void dispatch_assert_queue(dispatch_queue_t queue) {
  const auto &expected = queueOf(queue, "dispatch_assert_queue");
  if (!runsOn(*expected)) sim::dispatch::misuse("What runs is not on the queue \"" + expected->label() + "\".");
}

void dispatch_assert_queue_not(dispatch_queue_t queue) {
  const auto &expected = queueOf(queue, "dispatch_assert_queue_not");
  if (runsOn(*expected)) sim::dispatch::misuse("What runs is on the queue \"" + expected->label() + "\".");
}
