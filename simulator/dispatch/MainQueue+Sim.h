// The simulator's own hold on the main queue. The bundle never includes this.
#pragma once

#import <Foundation/Foundation.h>

/// Makes the main run loop deliver the main queue, in the default mode. SIMStartFoundation does this. Main thread only.
FOUNDATION_EXPORT void SIMJoinMainRunLoop(void);

/// Runs everything that waits on the main queue and every timer of the main run loop that is due (so zero-delay
/// `performSelector:withObject:afterDelay:` too), what these queue in turn included, until nothing is due. Input
/// sources are not looked at. Main thread only. Returns how many blocks ran; timers are not counted.
///
/// Stops after 10,000 turns with a line in the log, so that a block that queues itself for ever cannot hang the caller.
/// An exception that a block raises comes through; what was queued behind it stays queued. Inside a block of the queue,
/// which is serial, it runs timers only.
FOUNDATION_EXPORT NSUInteger SIMDrainMainQueue(void);
