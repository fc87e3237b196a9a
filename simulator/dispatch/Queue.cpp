#include "dispatch/Queue.hpp"

#include "dispatch/Timers.hpp"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace sim::dispatch {
namespace {

thread_local Queue::Scope* innermost = nullptr;

}  // namespace

void misuse(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

Queue::~Queue() {
  for (const auto& [key, specific] : specifics_) {
    if (specific.destructor) specific.destructor(specific.context);
  }
}

void* Queue::specific(const void* key) const {
  const std::lock_guard lock(specificsMutex_);
  const auto found = specifics_.find(key);
  return found == specifics_.end() ? nullptr : found->second.context;
}

void Queue::setSpecific(const void* key, void* context, void (*destructor)(void*)) {
  Specific old{};
  {
    const std::lock_guard lock(specificsMutex_);
    old = std::exchange(specifics_[key], Specific{context, destructor});
    if (!context) specifics_.erase(key);
  }
  if (old.context && old.destructor) old.destructor(old.context);
}

Queue::Scope::Scope(Queue& entered) : queue(entered), outer(std::exchange(innermost, this)) {}

Queue::Scope::~Scope() { innermost = outer; }

Queue::Scope* Queue::current() { return innermost; }

bool Queue::isCurrent() const {
  for (const Scope* scope = innermost; scope; scope = scope->outer) {
    if (&scope->queue == this) return true;
  }
  return false;
}

/// A thread's wait for its turn.
class WorkQueue::Turn final {
 public:
  void grant() {
    const std::lock_guard lock(mutex_);
    isGranted_ = true;
    changed_.notify_one();  // Under the mutex: the turn goes as soon as its thread sees it granted.
  }
  void wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isGranted_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isGranted_ = false;
};

void WorkQueue::add(Work work, bool alone) { enqueue({std::move(work), alone, nullptr}); }

void WorkQueue::addAt(std::uint64_t due, Work work) {
  Timers::shared().add(
      due, [queue = shared_from_this(), later = std::move(work)]() mutable { queue->add(std::move(later), false); });
}

void WorkQueue::run(const Work& work, bool alone) {
  if (kind_ == Kind::serial && isCurrent()) {
    misuse("dispatch_sync was called on the queue \"" + label() + "\" by what runs on it, and would wait for ever.");
  }
  Turn turn;
  enqueue({{}, alone, &turn});
  turn.wait();
  struct Finish {
    WorkQueue& queue;
    ~Finish() { queue.finish(); }
  } finish{*this};
  const Scope scope(*this);
  work();
}

void WorkQueue::suspend() {
  if (kind_ == Kind::global) return;
  const std::lock_guard lock(mutex_);
  ++suspensions_;
}

void WorkQueue::resume() {
  if (kind_ == Kind::global) return;
  const std::lock_guard lock(mutex_);
  if (suspensions_ == 0) misuse("dispatch_resume was called on a queue that is not suspended.");
  --suspensions_;
  begin();
}

void WorkQueue::enqueue(Item item) {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(std::move(item));
  begin();
}

void WorkQueue::begin() {
  while (suspensions_ == 0 && !waiting_.empty()) {
    const bool alone = kind_ == Kind::serial || (kind_ == Kind::concurrent && waiting_.front().alone);
    if (isAlone_ || (alone && running_ > 0)) return;
    Item item = std::move(waiting_.front());
    waiting_.pop_front();
    ++running_;
    isAlone_ = alone;
    if (item.turn) {
      item.turn->grant();
      continue;
    }
    ThreadPool::shared().add(level_, [self = shared_from_this(), work = std::move(item.work)]() mutable {
      auto& queue = static_cast<WorkQueue&>(*self);
      {
        const Scope scope(queue);
        runWork(std::move(work), ("running a block of the queue \"" + queue.label() + "\"").c_str());
      }
      queue.finish();
    });
  }
}

void WorkQueue::finish() {
  const std::lock_guard lock(mutex_);
  if (--running_ == 0) isAlone_ = false;
  begin();
}

}  // namespace sim::dispatch
