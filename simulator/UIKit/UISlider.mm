#import <UIKit/UIControl+Sim.h>
#import <UIKit/UISlider+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>

namespace sim {

struct UISliderState {
  float value = 0;
  float minimum = 0;
  float maximum = 1;
  bool continuous = true;
  objcxx::Retained<UIImage> minimumValueImage;
  objcxx::Retained<UIImage> maximumValueImage;
  objcxx::Retained<UIColor> minimumTrackTintColor;
  objcxx::Retained<UIColor> maximumTrackTintColor;
  objcxx::Retained<UIColor> thumbTintColor;
};

}  // namespace sim

namespace {

constexpr CGFloat kSliderHeight = 34;

}  // namespace

@implementation UISlider

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _sliderState = std::make_unique<sim::UISliderState>();
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  return CGSizeMake(size.width, kSliderHeight);
}

- (CGSize)intrinsicContentSize {
  return CGSizeMake(UIViewNoIntrinsicMetric, kSliderHeight);
}

- (float)value {
  return _sliderState->value;
}

- (void)setValue:(float)value {
  [self setValue:value animated:NO];
}

- (void)setValue:(float)value animated:(BOOL)animated {
  (void)animated;
  const float low = _sliderState->minimum;
  const float high = _sliderState->maximum;
  _sliderState->value = std::isnan(value) ? low : std::clamp(value, low, high);
}

- (float)minimumValue {
  return _sliderState->minimum;
}

- (void)setMinimumValue:(float)minimum {
  if (std::isnan(minimum)) return;
  _sliderState->minimum = minimum;
  _sliderState->maximum = std::max(_sliderState->maximum, minimum);
  [self setValue:_sliderState->value];
}

- (float)maximumValue {
  return _sliderState->maximum;
}

- (void)setMaximumValue:(float)maximum {
  if (std::isnan(maximum)) return;
  _sliderState->maximum = maximum;
  _sliderState->minimum = std::min(_sliderState->minimum, maximum);
  [self setValue:_sliderState->value];
}

- (BOOL)isContinuous {
  return _sliderState->continuous;
}

- (void)setContinuous:(BOOL)continuous {
  _sliderState->continuous = continuous;
}

- (UIImage *)minimumValueImage {
  return _sliderState->minimumValueImage.get();
}

- (void)setMinimumValueImage:(UIImage *)image {
  _sliderState->minimumValueImage = objcxx::share(image);
}

- (UIImage *)maximumValueImage {
  return _sliderState->maximumValueImage.get();
}

- (void)setMaximumValueImage:(UIImage *)image {
  _sliderState->maximumValueImage = objcxx::share(image);
}

- (UIColor *)minimumTrackTintColor {
  return _sliderState->minimumTrackTintColor.get();
}

- (void)setMinimumTrackTintColor:(UIColor *)color {
  _sliderState->minimumTrackTintColor = objcxx::share(color);
}

- (UIColor *)maximumTrackTintColor {
  return _sliderState->maximumTrackTintColor.get();
}

- (void)setMaximumTrackTintColor:(UIColor *)color {
  _sliderState->maximumTrackTintColor = objcxx::share(color);
}

- (UIColor *)thumbTintColor {
  return _sliderState->thumbTintColor.get();
}

- (void)setThumbTintColor:(UIColor *)color {
  _sliderState->thumbTintColor = objcxx::share(color);
}

@end

@implementation UISlider (Sim)

- (BOOL)sim_setValueByUser:(float)value finished:(BOOL)finished {
  if (std::isnan(value) || ![self sim_acceptsUser]) return NO;
  const auto kept = objcxx::share(self);
  [self setValue:value];
  if (finished || [self isContinuous]) [self sendActionsForControlEvents:UIControlEventValueChanged];
  if (!finished) [self sendActionsForControlEvents:UIControlEventTouchDragInside];
  if (finished) [self sendActionsForControlEvents:UIControlEventTouchUpInside];
  return YES;
}

@end
