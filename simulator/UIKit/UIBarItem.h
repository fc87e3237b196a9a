// What the items of all bars have in common.
#pragma once

#import <UIKit/UIAppearance.h>
#import <UIKit/UIControl.h>

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
/// For the normal, the highlighted and the disabled state; before those of the bar's look. NSFontAttributeName and
/// NSForegroundColorAttributeName are drawn. nil unsets.
- (void)setTitleTextAttributes:(NSDictionary *)attributes forState:(UIControlState)state UI_APPEARANCE_SELECTOR;
- (NSDictionary *)titleTextAttributesForState:(UIControlState)state UI_APPEARANCE_SELECTOR;
@end

@interface UIBarItem (UIAppearance) <UIAppearance>
@end
