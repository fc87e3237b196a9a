#include "dispatch/TimerSource.hpp"

#include "dispatch/Timers.hpp"
#include "dispatch/Times.hpp"

#include <algorithm>
#include <utility>

namespace sim::dispatch {
namespace {

constexpr std::uint64_t kShortestInterval = 100 * NSEC_PER_USEC;

}  // namespace

void TimerSource::set(std::uint64_t due, std::uint64_t interval) {
  const std::lock_guard lock(mutex_);
  due_ = due;
  interval_ = std::max(interval, kShortestInterval);
  isSet_ = due != DISPATCH_TIME_FOREVER;
  fired_ = 0;
  schedule();
}

void TimerSource::setEventHandler(Work handler) {
  auto kept = handler ? std::make_shared<Work>(std::move(handler)) : nullptr;
  const std::lock_guard lock(mutex_);
  event_.swap(kept);
}

void TimerSource::setCancelHandler(Work handler) {
  const std::lock_guard lock(mutex_);
  cancel_.swap(handler);
}

void TimerSource::suspend() {
  const std::lock_guard lock(mutex_);
  ++suspensions_;
  ++setting_;
}

void TimerSource::resume() {
  const std::lock_guard lock(mutex_);
  if (suspensions_ == 0) misuse("dispatch_resume was called on a source that is not suspended.");
  isActive_ = true;
  --suspensions_;
  queueTelling();
  schedule();
}

void TimerSource::activate() {
  const std::lock_guard lock(mutex_);
  if (std::exchange(isActive_, true)) return;
  --suspensions_;
  schedule();
}

void TimerSource::cancel() {
  Work handler;
  std::shared_ptr<Work> event;  // Let go outside the mutex, which what it holds may need.
  const std::lock_guard lock(mutex_);
  if (std::exchange(isCancelled_, true)) return;
  ++setting_;
  event.swap(event_);
  handler.swap(cancel_);
  queue_->add(
      [event = std::move(event), handler = std::move(handler)] {
        if (handler) handler();
      },
      false);
}

bool TimerSource::isCancelled() const {
  const std::lock_guard lock(mutex_);
  return isCancelled_;
}

std::uintptr_t TimerSource::count() const {
  const std::lock_guard lock(mutex_);
  return told_;
}

void TimerSource::schedule() {
  const auto setting = ++setting_;
  if (!isSet_ || isCancelled_ || suspensions_ > 0) return;
  Timers::shared().add(due_, [weak = weak_from_this(), setting] {
    if (const auto source = weak.lock()) source->fire(setting);
  });
}

void TimerSource::fire(std::uint64_t setting) {
  const std::lock_guard lock(mutex_);
  if (setting != setting_) return;
  const auto now = monotonicNanoseconds();
  const auto times = interval_ == DISPATCH_TIME_FOREVER ? 1 : 1 + (now - due_) / interval_;
  isSet_ = interval_ != DISPATCH_TIME_FOREVER && !__builtin_add_overflow(due_, times * interval_, &due_);
  fired_ += times;
  queueTelling();
  schedule();
}

void TimerSource::queueTelling() {
  if (fired_ == 0 || suspensions_ > 0 || std::exchange(isTelling_, true)) return;
  queue_->add([self = shared_from_this()] { self->tell(); }, false);
}

void TimerSource::tell() {
  std::shared_ptr<Work> event;
  {
    const std::lock_guard lock(mutex_);
    isTelling_ = false;
    if (isCancelled_ || suspensions_ > 0 || fired_ == 0) return;
    told_ = std::exchange(fired_, 0);
    event = event_;
  }
  if (event) (*event)();
}

}  // namespace sim::dispatch
