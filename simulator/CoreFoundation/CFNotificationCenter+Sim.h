// The simulator's own side of the Darwin notification centre. The bundle never includes this.
#pragma once

#import <Foundation/Foundation.h>

typedef void (*SIMDarwinPostHandler)(NSString *name, void *context);

/// Tells `handler` every posted name, at once, inside the post, on the posting thread, before any observer. NULL sets
/// none.
FOUNDATION_EXPORT void SIMSetDarwinPostHandler(SIMDarwinPostHandler handler, void *context);
