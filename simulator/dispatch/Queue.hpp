// An order in which work is run. Plain C++; the work is mostly blocks.
#pragma once

#include "dispatch/ThreadPool.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace sim::dispatch {

/// Ends the process with a line on standard error: what dispatch answers to misuse on a device, too.
[[noreturn]] void misuse(const std::string& what);

/// Threads: any, unless a method says otherwise.
class Queue : public std::enable_shared_from_this<Queue> {
 public:
  explicit Queue(std::string label) : label_(std::move(label)) {}
  virtual ~Queue();
  Queue(const Queue&) = delete;
  Queue& operator=(const Queue&) = delete;

  const std::string& label() const { return label_; }

  /// Runs `work` later. `alone`: not beside other work of the queue.
  virtual void add(Work work, bool alone) = 0;
  /// Runs `work` at `due`, nanoseconds of the monotonic clock.
  virtual void addAt(std::uint64_t due, Work work) = 0;
  /// Runs `work` when its turn has come, and returns when it has run.
  virtual void run(const Work& work, bool alone) = 0;
  /// How many can run side by side.
  virtual std::size_t width() const = 0;
  virtual void suspend() {}
  virtual void resume() {}

  void* specific(const void* key) const;
  void setSpecific(const void* key, void* context, void (*destructor)(void*));

  /// While it exists the calling thread runs work of the queue.
  class Scope final {
   public:
    explicit Scope(Queue& queue);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    Queue& queue;
    Scope* const outer;
  };
  /// The innermost on this thread; nullptr outside of all queues.
  static Scope* current();
  /// Whether the calling thread runs work of this queue, be it by way of another.
  bool isCurrent() const;

 private:
  struct Specific {
    void* context;
    void (*destructor)(void*);
  };

  const std::string label_;
  mutable std::mutex specificsMutex_;
  std::map<const void*, Specific> specifics_;
};

/// A queue whose work runs on the threads of the pool.
class WorkQueue final : public Queue {
 public:
  enum class Kind { serial, concurrent, global };
  WorkQueue(std::string label, Kind kind, Level level) : Queue(std::move(label)), kind_(kind), level_(level) {}

  void add(Work work, bool alone) override;
  void addAt(std::uint64_t due, Work work) override;
  void run(const Work& work, bool alone) override;
  std::size_t width() const override { return kind_ == Kind::serial ? 1 : ThreadPool::kMostThreads; }
  void suspend() override;
  void resume() override;

 private:
  class Turn;
  struct Item {
    Work work;
    bool alone;
    Turn* turn;  // Of a thread that waits to run it; nullptr for work of the pool.
  };

  void enqueue(Item item);
  /// Begins what may begin. Under the mutex.
  void begin();
  void finish();

  const Kind kind_;
  const Level level_;
  std::mutex mutex_;
  std::deque<Item> waiting_;
  std::size_t running_ = 0;
  bool isAlone_ = false;  // what runs
  unsigned suspensions_ = 0;
};

/// The one that the main run loop delivers, and whether the caller runs on its thread.
std::shared_ptr<Queue> mainQueue();
bool isMainThread();

}  // namespace sim::dispatch
