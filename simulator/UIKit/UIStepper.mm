#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIStepper+Sim.h>
#import <UIKit/UITouch.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace sim {

using ImagePerState = std::map<UIControlState, objcxx::Retained<UIImage>>;

struct StepperState {
  double value = 0;
  double minimum = 0;
  double maximum = 100;
  double step = 1;
  bool continuous = true;
  bool autorepeat = true;
  bool wraps = false;
  bool untold = false;  ///< It has changed under a finger, and nobody knows.
  ImagePerState increments;
  ImagePerState decrements;
};

}  // namespace sim

namespace {

constexpr CGSize kStepperSize = {94, 32};

void refuse(NSString *why) { [NSException raise:NSInvalidArgumentException format:@"%@", why]; }

UIImage *imageFor(const sim::ImagePerState &images, UIControlState state) {
  const auto own = images.find(state);
  if (own != images.end()) return own->second.get();
  const auto normal = images.find(UIControlStateNormal);
  return normal != images.end() ? normal->second.get() : nil;
}

}  // namespace

@implementation UIStepper

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:{frame.origin, kStepperSize}])) return nil;
  _stepperState = std::make_unique<sim::StepperState>();
  return self;
}

- (void)setFrame:(CGRect)frame {
  [super setFrame:{frame.origin, kStepperSize}];
}

- (void)setBounds:(CGRect)bounds {
  [super setBounds:{bounds.origin, kStepperSize}];
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return kStepperSize;
}

- (CGSize)intrinsicContentSize {
  return kStepperSize;
}

- (BOOL)isContinuous {
  return _stepperState->continuous;
}

- (void)setContinuous:(BOOL)continuous {
  _stepperState->continuous = continuous;
}

- (BOOL)autorepeat {
  return _stepperState->autorepeat;
}

- (void)setAutorepeat:(BOOL)repeats {
  _stepperState->autorepeat = repeats;
}

- (BOOL)wraps {
  return _stepperState->wraps;
}

- (void)setWraps:(BOOL)wraps {
  _stepperState->wraps = wraps;
}

- (double)value {
  return _stepperState->value;
}

- (void)setValue:(double)value {
  if (std::isnan(value)) value = _stepperState->minimum;
  _stepperState->value = std::clamp(value, _stepperState->minimum, _stepperState->maximum);
}

- (double)minimumValue {
  return _stepperState->minimum;
}

- (void)setMinimumValue:(double)minimum {
  if (!(minimum < _stepperState->maximum)) refuse(@"The minimum of a stepper is below its maximum.");
  _stepperState->minimum = minimum;
  [self setValue:_stepperState->value];
}

- (double)maximumValue {
  return _stepperState->maximum;
}

- (void)setMaximumValue:(double)maximum {
  if (!(maximum > _stepperState->minimum)) refuse(@"The maximum of a stepper is above its minimum.");
  _stepperState->maximum = maximum;
  [self setValue:_stepperState->value];
}

- (double)stepValue {
  return _stepperState->step;
}

- (void)setStepValue:(double)step {
  if (!(step > 0)) refuse(@"The steps of a stepper are above 0.");
  _stepperState->step = step;
}

- (void)setIncrementImage:(UIImage *)image forState:(UIControlState)state {
  _stepperState->increments[state] = objcxx::share(image);
}

- (UIImage *)incrementImageForState:(UIControlState)state {
  return imageFor(_stepperState->increments, state);
}

- (void)setDecrementImage:(UIImage *)image forState:(UIControlState)state {
  _stepperState->decrements[state] = objcxx::share(image);
}

- (UIImage *)decrementImageForState:(UIControlState)state {
  return imageFor(_stepperState->decrements, state);
}

- (BOOL)sim_takesTaps {
  return YES;
}

- (void)sim_changeByTouch:(UITouch *)touch {
  const BOOL up = [touch locationInView:self].x >= kStepperSize.width / 2;
  if ([self sim_stepByUser:up finished:NO]) [self sim_finishByUser];
}

@end

@implementation UIStepper (Sim)

/// Where a step leads.
- (double)sim_next:(BOOL)up {
  const sim::StepperState &state = *_stepperState;
  const double next = state.value + (up ? state.step : -state.step);
  if (next >= state.minimum && next <= state.maximum) return next;
  if (state.wraps) return up ? state.minimum : state.maximum;
  return std::clamp(next, state.minimum, state.maximum);
}

- (BOOL)sim_canStep:(BOOL)up {
  return [self sim_next:up] != _stepperState->value;
}

- (BOOL)sim_stepByUser:(BOOL)up finished:(BOOL)finished {
  if (![self sim_acceptsUser] || ![self sim_canStep:up]) return NO;
  const auto kept = objcxx::share(self);
  [self setValue:[self sim_next:up]];
  _stepperState->untold = !_stepperState->continuous;
  if (!_stepperState->untold) [self sendActionsForControlEvents:UIControlEventValueChanged];
  if (finished) [self sim_finishByUser];
  return YES;
}

- (void)sim_finishByUser {
  const auto kept = objcxx::share(self);
  const bool tells = _stepperState->untold;
  _stepperState->untold = false;
  if (tells) [self sendActionsForControlEvents:UIControlEventValueChanged];
}

@end
