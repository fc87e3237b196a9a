// A view that blurs what lies behind it, or makes what lies in it vivid.
#pragma once

#import <UIKit/UIBlurEffect.h>
#import <UIKit/UIVibrancyEffect.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIVisualEffectViewState);

/// Views go into its content view. One that is added to the view itself is refused with a log line.
@interface UIVisualEffectView : UIView {
 @private
  SIM_STATE(UIVisualEffectViewState, _effectState);
}
- (instancetype)initWithEffect:(UIVisualEffect *)effect;
/// As large as the view.
@property(nonatomic, readonly) UIView *contentView;
/// nil: the view shows its content alone.
@property(nonatomic, copy) UIVisualEffect *effect;
@end
