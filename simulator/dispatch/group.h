// Groups of work.
#pragma once

#include <dispatch/queue.h>

SIM_DISPATCH_TYPE(group, object);

/// An empty group, owned by the caller. Any thread.
DISPATCH_EXPORT DISPATCH_RETURNS_RETAINED dispatch_group_t dispatch_group_create(void);
/// `dispatch_async` of a block that belongs to the group until it has run.
DISPATCH_EXPORT void dispatch_group_async(dispatch_group_t group, dispatch_queue_t queue, dispatch_block_t block);
DISPATCH_EXPORT void dispatch_group_async_f(dispatch_group_t group, dispatch_queue_t queue, void* context,
                                            dispatch_function_t work);
/// Work that is told by hand: each `enter` needs a `leave`. One too many ends the process, as on a device.
DISPATCH_EXPORT void dispatch_group_enter(dispatch_group_t group);
DISPATCH_EXPORT void dispatch_group_leave(dispatch_group_t group);
/// Waits until the group is empty, and answers 0, or until `timeout` has come, and answers another number.
DISPATCH_EXPORT intptr_t dispatch_group_wait(dispatch_group_t group, dispatch_time_t timeout);
/// Queues `block`, once, when the group is empty, be it at once.
DISPATCH_EXPORT void dispatch_group_notify(dispatch_group_t group, dispatch_queue_t queue, dispatch_block_t block);
DISPATCH_EXPORT void dispatch_group_notify_f(dispatch_group_t group, dispatch_queue_t queue, void* context,
                                             dispatch_function_t work);
