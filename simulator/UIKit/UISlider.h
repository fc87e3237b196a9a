// A slider over a range of numbers.
#pragma once

#import <UIKit/UIControl.h>
#import <UIKit/UIImage.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UISliderState);

@interface UISlider : UIControl {
 @private
  SIM_STATE(UISliderState, _sliderState);
}
/// Kept between the two ends; not a number counts as the lower end. Setting it sends no action.
@property(nonatomic) float value;
/// 0. A minimum above the maximum moves the maximum along, and the other way round.
@property(nonatomic) float minimumValue;
/// 1.
@property(nonatomic) float maximumValue;
/// YES: actions are sent during a drag, not only at its end.
@property(nonatomic, getter=isContinuous) BOOL continuous;
@property(nonatomic, retain) UIImage *minimumValueImage;
@property(nonatomic, retain) UIImage *maximumValueImage;
@property(nonatomic, retain) UIColor *minimumTrackTintColor;
@property(nonatomic, retain) UIColor *maximumTrackTintColor;
@property(nonatomic, retain) UIColor *thumbTintColor;
- (void)setValue:(float)value animated:(BOOL)animated;
@end
