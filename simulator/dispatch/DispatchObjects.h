// What stands for queues, groups and the like in Objective-C, over the plain C++ that does their work.
#pragma once

#import <dispatch/dispatch.h>

#include <memory>

#include "dispatch/Queue.hpp"

/// Keeps what all have.
@interface SIMDispatchObject : NSObject <OS_dispatch_object> {
 @public
  void *context;
  dispatch_function_t finalizer;
}
/// Nothing, unless it can be suspended.
- (void)sim_suspend;
- (void)sim_resume;
- (void)sim_activate;
@end

@interface SIMQueue : SIMDispatchObject <OS_dispatch_queue_main, OS_dispatch_queue_global> {
 @public
  std::shared_ptr<sim::dispatch::Queue> queue;
}
- (instancetype)initWithQueue:(std::shared_ptr<sim::dispatch::Queue>)queue;
@end

namespace sim::dispatch {

/// The queue of the object. Ends the process when there is none, naming the function that got it.
const std::shared_ptr<Queue> &queueOf(dispatch_queue_t object, const char *function);

/// The work of a copy of `block`. Ends the process when there is none.
Work workOf(dispatch_block_t block, const char *function);
/// Whether `block` was made as a barrier.
bool isBarrier(dispatch_block_t block);

}  // namespace sim::dispatch
