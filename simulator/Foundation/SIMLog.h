// Where NSLog goes.
#pragma once

#import <Foundation/Foundation.h>

/// Gets every NSLog line, without its time stamp and line end. May be called on any thread that logs, one at a time;
/// must not log itself.
typedef void (*SIMLogHandler)(NSString *line, void *context);

/// Sets the handler; NULL sets none. Lines always go to standard error as well.
FOUNDATION_EXPORT void SIMSetLogHandler(SIMLogHandler handler, void *context);

/// The handler that is set, and through `context` what goes with it; for who sets another for a while and passes the
/// lines on.
FOUNDATION_EXPORT SIMLogHandler SIMCurrentLogHandler(void **context);
