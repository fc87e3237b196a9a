// The part of libdispatch that the simulator carries: once-only execution and the main queue. There is no other queue;
// code that asks for one does not compile.
#pragma once

#include <Block.h>
#include <stdint.h>
#if defined(__OBJC__)
#import <Foundation/NSObject.h>
#endif

#if defined(__cplusplus)
extern "C" {
#endif

#ifndef NSEC_PER_SEC
#define NSEC_PER_SEC 1000000000ull
#define NSEC_PER_MSEC 1000000ull
#define NSEC_PER_USEC 1000ull
#define USEC_PER_SEC 1000000ull
#endif

typedef void (^dispatch_block_t)(void);
typedef void (*dispatch_function_t)(void *);

/// Zero until the block of `dispatch_once` has run. Must have static storage and start as zero.
typedef intptr_t dispatch_once_t;

/// Runs `block` the first time that it is called with this predicate, and never again. Callers on other threads wait
/// until it has run. Not recursive on one predicate.
void dispatch_once(dispatch_once_t *predicate, __attribute__((noescape)) dispatch_block_t block);

/// A queue is an object for Objective-C, so that a property can own it.
#if defined(__OBJC__)
@protocol OS_dispatch_queue <NSObject>
@end
@protocol OS_dispatch_queue_main <OS_dispatch_queue>
@end
typedef NSObject<OS_dispatch_queue> *dispatch_queue_t;
typedef NSObject<OS_dispatch_queue_main> *dispatch_queue_main_t;
#else
typedef struct dispatch_queue_s *dispatch_queue_t;
typedef dispatch_queue_t dispatch_queue_main_t;
#endif

/// The one queue: its blocks run one after another on the main thread, from the main run loop in its default mode. Not
/// owned by the caller.
dispatch_queue_main_t dispatch_get_main_queue(void);

/// Copies `block` and runs it on `queue` later, never inside this call. Any thread. A NULL queue or block ends the
/// process with a message, as on a device.
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);

/// Nanoseconds on a monotonic clock.
typedef uint64_t dispatch_time_t;
#define DISPATCH_TIME_NOW (0ull)
#define DISPATCH_TIME_FOREVER (~0ull)

/// `when` plus `delta` nanoseconds. `DISPATCH_TIME_NOW` stands for the present; a sum in the past is the present, a sum
/// past the end is `DISPATCH_TIME_FOREVER`.
dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta);

/// Copies `block` and runs it on `queue` when `when` has come. Any thread. `DISPATCH_TIME_FOREVER` never comes.
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);

#if defined(__cplusplus)
}
#endif
