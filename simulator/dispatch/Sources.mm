// The functions of dispatch/source.h.
#import "dispatch/DispatchObjects.h"

#include "dispatch/TimerSource.hpp"
#include "dispatch/Times.hpp"

using sim::dispatch::misuse;
using sim::dispatch::TimerSource;

struct dispatch_source_type_s {};
const struct dispatch_source_type_s _dispatch_source_type_timer{};

@interface SIMSource : SIMDispatchObject <OS_dispatch_source> {
 @public
  std::shared_ptr<TimerSource> timer;
}
@end

@implementation SIMSource

- (void)dealloc {
  timer->setCancelHandler({});
  timer->cancel();
  [super dealloc];
}

- (void)sim_suspend {
  timer->suspend();
}

- (void)sim_resume {
  timer->resume();
}

- (void)sim_activate {
  timer->activate();
}

@end

namespace {

TimerSource &timerOf(dispatch_source_t object, const char *function) {
  if (!object) misuse(std::string(function) + " was called without a source.");
  return *static_cast<SIMSource *>(object)->timer;
}

sim::dispatch::Work optionalWork(dispatch_block_t block) {
  return block ? sim::dispatch::workOf(block, "") : sim::dispatch::Work();
}

}  // namespace

dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t, uintptr_t, dispatch_queue_t queue) {
  if (type != DISPATCH_SOURCE_TYPE_TIMER) return nil;
  if (!queue) queue = dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0);
  SIMSource *made = [[SIMSource alloc] init];
  made->timer = std::make_shared<TimerSource>(sim::dispatch::queueOf(queue, "dispatch_source_create"));
  return made;
}

void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, uint64_t interval, uint64_t) {
  timerOf(source, "dispatch_source_set_timer").set(sim::dispatch::monotonic(start), interval);
}

void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler) {
  timerOf(source, "dispatch_source_set_event_handler").setEventHandler(optionalWork(handler));
}

void dispatch_source_set_cancel_handler(dispatch_source_t source, dispatch_block_t handler) {
  timerOf(source, "dispatch_source_set_cancel_handler").setCancelHandler(optionalWork(handler));
}

void dispatch_source_cancel(dispatch_source_t source) { timerOf(source, "dispatch_source_cancel").cancel(); }

intptr_t dispatch_source_testcancel(dispatch_source_t source) {
  return timerOf(source, "dispatch_source_testcancel").isCancelled() ? 1 : 0;
}

uintptr_t dispatch_source_get_data(dispatch_source_t source) {
  return timerOf(source, "dispatch_source_get_data").count();
}
