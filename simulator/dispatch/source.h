// Timers on queues. Other sources of events are not carried.
#pragma once

#include <dispatch/queue.h>

SIM_DISPATCH_TYPE(source, object);

typedef const struct dispatch_source_type_s* dispatch_source_type_t;
#define DISPATCH_SOURCE_TYPE_TIMER (&_dispatch_source_type_timer)
DISPATCH_EXPORT const struct dispatch_source_type_s _dispatch_source_type_timer;
typedef unsigned long dispatch_source_timer_flags_t;
#define DISPATCH_TIMER_STRICT 0x1

/// A timer that is not set and, until `dispatch_resume` or `dispatch_activate`, not started; owned by the caller. NULL
/// as the queue is a global one. The handle and the mask are not used by timers. It ends with its last owner.
DISPATCH_EXPORT DISPATCH_RETURNS_RETAINED dispatch_source_t dispatch_source_create(dispatch_source_type_t type,
                                                                                   uintptr_t handle, uintptr_t mask,
                                                                                   dispatch_queue_t queue);
/// The first time, and the nanoseconds between two: `DISPATCH_TIME_FOREVER` for a timer that fires once. The leeway is
/// not used. Times that pass while the handler runs or the timer is suspended are told as one.
DISPATCH_EXPORT void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, uint64_t interval,
                                               uint64_t leeway);
DISPATCH_EXPORT void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler);
/// Runs on the queue after `dispatch_source_cancel`, when no event handler runs any more.
DISPATCH_EXPORT void dispatch_source_set_cancel_handler(dispatch_source_t source, dispatch_block_t handler);
/// No event is told from now on, but for one that is being told.
DISPATCH_EXPORT void dispatch_source_cancel(dispatch_source_t source);
DISPATCH_EXPORT intptr_t dispatch_source_testcancel(dispatch_source_t source);
/// How often the timer has fired since the event handler last ran. Inside the event handler.
DISPATCH_EXPORT uintptr_t dispatch_source_get_data(dispatch_source_t source);
