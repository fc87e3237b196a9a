// Blocks that can be cancelled and waited for.
#pragma once

#include <dispatch/queue.h>

typedef enum : unsigned long {
  DISPATCH_BLOCK_BARRIER = 0x1,
  DISPATCH_BLOCK_DETACHED = 0x2,
  DISPATCH_BLOCK_ASSIGN_CURRENT = 0x4,
  DISPATCH_BLOCK_NO_QOS_CLASS = 0x8,
  DISPATCH_BLOCK_INHERIT_QOS_CLASS = 0x10,
  DISPATCH_BLOCK_ENFORCE_QOS_CLASS = 0x20,
} dispatch_block_flags_t;

/// A block that runs `block`, owned by the caller, who ends it with Block_release. Of the flags the barrier is obeyed
/// by `dispatch_async`. Any thread. The functions below end the process when they get another block.
DISPATCH_EXPORT DISPATCH_RETURNS_RETAINED __attribute__((nothrow)) dispatch_block_t
dispatch_block_create(dispatch_block_flags_t flags, dispatch_block_t block);
/// What has not begun will do nothing when its turn comes.
DISPATCH_EXPORT void dispatch_block_cancel(dispatch_block_t block);
DISPATCH_EXPORT intptr_t dispatch_block_testcancel(dispatch_block_t block);
/// Waits until it has run or its turn has passed, and answers 0, or until `timeout` has come, and answers another
/// number.
DISPATCH_EXPORT intptr_t dispatch_block_wait(dispatch_block_t block, dispatch_time_t timeout);
/// Queues `notification` when it has run or its turn has passed.
DISPATCH_EXPORT void dispatch_block_notify(dispatch_block_t block, dispatch_queue_t queue,
                                           dispatch_block_t notification);
