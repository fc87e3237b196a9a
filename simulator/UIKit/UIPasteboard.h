// What was copied last. Strings only.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(PasteboardState);

/// Main thread.
@interface UIPasteboard : NSObject {
 @private
  SIM_STATE(PasteboardState, _pasteboardState);
}
+ (UIPasteboard *)generalPasteboard;
/// The first string; nil when there is none. Setting nil empties the pasteboard.
@property(nonatomic, copy) NSString *string;
/// nil when there is none.
@property(nonatomic, copy) NSArray<NSString *> *strings;
@property(nonatomic, readonly) BOOL hasStrings;
@property(nonatomic, readonly) NSInteger numberOfItems;
/// Grows with each change.
@property(nonatomic, readonly) NSInteger changeCount;
@end
