// Queues. Blocks that raise what nobody catches end the application on a device; here it becomes a line in the log.
#pragma once

#include <dispatch/base.h>
#include <dispatch/object.h>
#include <dispatch/time.h>

SIM_DISPATCH_TYPE(queue, object);
SIM_DISPATCH_TYPE(queue_attr, object);
#if defined(__OBJC__)
SIM_DISPATCH_TYPE(queue_main, queue);
SIM_DISPATCH_TYPE(queue_global, queue);
SIM_DISPATCH_TYPE(queue_serial, queue);
SIM_DISPATCH_TYPE(queue_concurrent, queue);
#else
typedef dispatch_queue_t dispatch_queue_main_t, dispatch_queue_global_t, dispatch_queue_serial_t,
    dispatch_queue_concurrent_t;
#endif

/// Its blocks run one after another on the main thread, from the main run loop in its default mode. Not owned by the
/// caller.
DISPATCH_EXPORT dispatch_queue_main_t dispatch_get_main_queue(void);

typedef long dispatch_queue_priority_t;
#define DISPATCH_QUEUE_PRIORITY_HIGH 2
#define DISPATCH_QUEUE_PRIORITY_DEFAULT 0
#define DISPATCH_QUEUE_PRIORITY_LOW (-2)
#define DISPATCH_QUEUE_PRIORITY_BACKGROUND INT16_MIN

/// The queue whose blocks run side by side on up to 64 threads of the system, for a class of quality of service or a
/// priority. Not owned by the caller. NULL for anything else, and for flags, of which there are none.
DISPATCH_EXPORT dispatch_queue_global_t dispatch_get_global_queue(intptr_t identifier, uintptr_t flags);

#define DISPATCH_QUEUE_SERIAL NULL
#define DISPATCH_QUEUE_CONCURRENT (sim_dispatch_queue_attr_concurrent())
#define DISPATCH_QUEUE_SERIAL_WITH_AUTORELEASE_POOL DISPATCH_QUEUE_SERIAL
#define DISPATCH_QUEUE_CONCURRENT_WITH_AUTORELEASE_POOL DISPATCH_QUEUE_CONCURRENT
DISPATCH_EXPORT dispatch_queue_attr_t sim_dispatch_queue_attr_concurrent(void);

/// `attr` with another quality of service. Not owned by the caller. The relative priority is not used.
DISPATCH_EXPORT dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t attr,
                                                                              qos_class_t qos_class,
                                                                              int relative_priority);

/// A queue of one's own, owned by the caller: its blocks run in their order, one after another, or with
/// `DISPATCH_QUEUE_CONCURRENT` side by side. The label, which may be NULL, is copied. What waits keeps the queue alive.
/// Each block has an autorelease pool of its own.
DISPATCH_EXPORT DISPATCH_RETURNS_RETAINED dispatch_queue_t dispatch_queue_create(const char* label,
                                                                                 dispatch_queue_attr_t attr);

#define DISPATCH_CURRENT_QUEUE_LABEL NULL
#define DISPATCH_TARGET_QUEUE_DEFAULT NULL
/// Owned by the queue; "" when it has none. NULL asks for the queue on which the caller runs.
DISPATCH_EXPORT const char* dispatch_queue_get_label(dispatch_queue_t queue);

/// Copies `block` and runs it on `queue` later, never inside this call. Any thread. A NULL queue or block ends the
/// process with a message, as on a device.
DISPATCH_EXPORT void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
DISPATCH_EXPORT void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);

/// Waits for the block's turn and runs it, on the calling thread unless `queue` is the main one. On a queue whose turn
/// it is already this would wait for ever, and ends the process with a message, as on a device.
DISPATCH_EXPORT void dispatch_sync(dispatch_queue_t queue, DISPATCH_NOESCAPE dispatch_block_t block);
DISPATCH_EXPORT void dispatch_sync_f(dispatch_queue_t queue, void* context, dispatch_function_t work);

/// On a concurrent queue of one's own the block runs when all before it have run, and alone. On a global queue, as on a
/// device, it is a block like any other.
DISPATCH_EXPORT void dispatch_barrier_async(dispatch_queue_t queue, dispatch_block_t block);
DISPATCH_EXPORT void dispatch_barrier_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);
DISPATCH_EXPORT void dispatch_barrier_sync(dispatch_queue_t queue, DISPATCH_NOESCAPE dispatch_block_t block);
DISPATCH_EXPORT void dispatch_barrier_sync_f(dispatch_queue_t queue, void* context, dispatch_function_t work);

/// Copies `block` and runs it on `queue` when `when` has come. Any thread. `DISPATCH_TIME_FOREVER` never comes.
DISPATCH_EXPORT void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
DISPATCH_EXPORT void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context,
                                      dispatch_function_t work);

#define DISPATCH_APPLY_AUTO ((dispatch_queue_t)0)
/// Runs `block` for 0 to `iterations` - 1, side by side where the queue allows it, and returns when all have run.
/// `DISPATCH_APPLY_AUTO` is a global queue.
#if defined(__BLOCKS__)
DISPATCH_EXPORT void dispatch_apply(size_t iterations, dispatch_queue_t queue,
                                    DISPATCH_NOESCAPE void (^block)(size_t iteration));
#endif
DISPATCH_EXPORT void dispatch_apply_f(size_t iterations, dispatch_queue_t queue, void* context,
                                      void (*work)(void* context, size_t iteration));

/// An address that `queue` keeps for `key`, itself an address that is only compared. `destructor` is called with it
/// when it is replaced and when the queue goes. NULL removes it.
DISPATCH_EXPORT void dispatch_queue_set_specific(dispatch_queue_t queue, const void* key, void* context,
                                                 dispatch_function_t destructor);
DISPATCH_EXPORT void* dispatch_queue_get_specific(dispatch_queue_t queue, const void* key);
/// What the queue on which the caller runs keeps; NULL outside of all queues. The main thread is the main queue's.
DISPATCH_EXPORT void* dispatch_get_specific(const void* key);

/// Ends the process with a message unless, or if, the caller runs on `queue`.
DISPATCH_EXPORT void dispatch_assert_queue(dispatch_queue_t queue);
DISPATCH_EXPORT void dispatch_assert_queue_not(dispatch_queue_t queue);
