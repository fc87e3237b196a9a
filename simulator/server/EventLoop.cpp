#include "server/EventLoop.hpp"

#include "base/Failure.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace sim {

EventLoop::EventLoop() : wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!wake_) throw Failure::fromErrno("Cannot make an event descriptor", errno);
  watch(wake_.get(), POLLIN, [this] { runPosted(); });
}

void EventLoop::watch(int descriptor, short events, Task ready) {
  watches_[descriptor] = Watch{events, ++lastNumber_, std::move(ready)};
}

void EventLoop::unwatch(int descriptor) { watches_.erase(descriptor); }

EventLoop::Timer EventLoop::after(std::chrono::milliseconds delay, Task task) {
  const Timer timer = ++lastNumber_;
  timers_.emplace(std::pair{Clock::now() + delay, timer}, std::move(task));
  return timer;
}

void EventLoop::cancel(Timer timer) {
  std::erase_if(timers_, [timer](const auto& entry) { return entry.first.second == timer; });
}

void EventLoop::post(Task task) {
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(task));
  }
  const std::uint64_t one = 1;
  // A full counter cannot happen before 2^64 posts, and a counter above zero wakes the loop all the same.
  [[maybe_unused]] const auto written = ::write(wake_.get(), &one, sizeof one);
}

void EventLoop::stop() {
  post([this] { running_ = false; });
}

void EventLoop::run() {
  running_ = true;
  std::vector<pollfd> polled;
  std::vector<std::uint64_t> generations;
  while (running_) {
    polled.clear();
    generations.clear();
    for (const auto& [descriptor, watch] : watches_) {
      polled.push_back({descriptor, watch.events, 0});
      generations.push_back(watch.generation);
    }
    if (::poll(polled.data(), polled.size(), millisecondsToNextTimer()) < 0 && errno != EINTR)
      throw Failure::fromErrno("Cannot wait for events", errno);

    for (std::size_t i = 0; i < polled.size(); ++i) {
      if (polled[i].revents == 0) continue;
      const auto found = watches_.find(polled[i].fd);
      if (found == watches_.end() || found->second.generation != generations[i]) continue;
      const Task ready = found->second.ready;  // A copy: the callback may end its own watch.
      ready();
    }
    runTimers();
  }
}

void EventLoop::runPosted() {
  std::uint64_t count = 0;
  [[maybe_unused]] const auto read = ::read(wake_.get(), &count, sizeof count);
  std::vector<Task> tasks;
  {
    const std::lock_guard lock(mutex_);
    tasks.swap(posted_);
  }
  for (const Task& task : tasks) task();
}

void EventLoop::runTimers() {
  const auto now = Clock::now();
  while (!timers_.empty() && timers_.begin()->first.first <= now) {
    const Task task = std::move(timers_.begin()->second);
    timers_.erase(timers_.begin());
    task();
  }
}

int EventLoop::millisecondsToNextTimer() const {
  if (timers_.empty()) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(timers_.begin()->first.first - Clock::now()).count();
  return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60'000));
}

}  // namespace sim
