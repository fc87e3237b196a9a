// Code of the simulator's own kind, for tests that both kinds meet in.
#pragma once

#import <Foundation/Foundation.h>

#if defined(__cplusplus)
extern "C" {
#endif

/// The name of the exception that `body` raised, or @"".
NSString *OursCatch(void (^body)(void));
/// Raises an NSException of this name.
void OursRaise(NSString *name);
/// Calls `body` and then, however it ended, sets `*reached`.
void OursFinally(void (^body)(void), BOOL *reached);

#if defined(__cplusplus)
}
#endif

/// A superclass that is laid out by the older format.
@interface OursBase : NSObject {
 @protected
  char _letter;
  int _number;
}
- (int)number;
- (NSString *)story;
@end
