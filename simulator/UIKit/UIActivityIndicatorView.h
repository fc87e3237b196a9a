// A spinner.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIActivityIndicatorViewState);

typedef NS_ENUM(NSInteger, UIActivityIndicatorViewStyle) {
  UIActivityIndicatorViewStyleWhiteLarge = 0,
  UIActivityIndicatorViewStyleWhite = 1,
  UIActivityIndicatorViewStyleGray = 2,
  UIActivityIndicatorViewStyleMedium = 100,
  UIActivityIndicatorViewStyleLarge = 101,
};

@interface UIActivityIndicatorView : UIView {
 @private
  SIM_STATE(UIActivityIndicatorViewState, _indicatorState);
}
- (instancetype)initWithActivityIndicatorStyle:(UIActivityIndicatorViewStyle)style;
@property(nonatomic) UIActivityIndicatorViewStyle activityIndicatorViewStyle;
/// YES: hidden while it does not spin.
@property(nonatomic) BOOL hidesWhenStopped;
@property(nonatomic, retain) UIColor *color;
@property(nonatomic, readonly, getter=isAnimating) BOOL animating;
- (void)startAnimating;
- (void)stopAnimating;
@end
