// What the items of all bars have in common.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

@class UIImage;

SIM_STATE_TYPE(BarItemState);

/// Abstract base of the items in bars. Main thread.
@interface UIBarItem : NSObject {
 @private
  SIM_STATE(BarItemState, _barItemState);
}
@property(nonatomic, copy) NSString *title;
@property(nonatomic, retain) UIImage *image;
/// YES at first. A disabled item ignores taps.
@property(nonatomic, getter=isEnabled) BOOL enabled;
@property(nonatomic) NSInteger tag;
@property(nonatomic, copy) NSString *accessibilityLabel;
@property(nonatomic, copy) NSString *accessibilityIdentifier;
@end
