#import <UIKit/UIControl+Sim.h>
#import <UIKit/UISwitch+Sim.h>
#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

namespace sim {

struct UISwitchState {
  bool on = false;
  objcxx::Retained<UIColor> onTintColor;
  objcxx::Retained<UIColor> thumbTintColor;
};

}  // namespace sim

namespace {

constexpr CGSize kSwitchSize = {51, 31};

}  // namespace

@implementation UISwitch

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:{frame.origin, kSwitchSize}])) return nil;
  _switchState = std::make_unique<sim::UISwitchState>();
  return self;
}

- (void)setFrame:(CGRect)frame {
  [super setFrame:{frame.origin, kSwitchSize}];
}

- (void)setBounds:(CGRect)bounds {
  [super setBounds:{bounds.origin, kSwitchSize}];
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return kSwitchSize;
}

- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis {
  (void)axis;
  return UILayoutPriorityDefaultHigh;
}

- (CGSize)intrinsicContentSize {
  return kSwitchSize;
}

- (BOOL)sim_takesTaps {
  return YES;
}

- (void)sim_changeByTouch:(UITouch *)touch {
  (void)touch;
  [self setOn:![self isOn] animated:YES];
  [self sendActionsForControlEvents:UIControlEventValueChanged];
}

- (BOOL)isOn {
  return _switchState->on;
}

- (void)setOn:(BOOL)on {
  [self setOn:on animated:NO];
}

- (void)setOn:(BOOL)on animated:(BOOL)animated {
  (void)animated;
  _switchState->on = on;
}

- (UIColor *)onTintColor {
  return _switchState->onTintColor.get();
}

- (void)setOnTintColor:(UIColor *)color {
  _switchState->onTintColor = objcxx::share(color);
}

- (UIColor *)thumbTintColor {
  return _switchState->thumbTintColor.get();
}

- (void)setThumbTintColor:(UIColor *)color {
  _switchState->thumbTintColor = objcxx::share(color);
}

@end

@implementation UISwitch (Sim)

- (BOOL)sim_setOnByUser:(BOOL)on {
  if (![self sim_acceptsUser] || !on == ![self isOn]) return NO;
  const auto kept = objcxx::share(self);
  [self setOn:on animated:YES];
  [self sendActionsForControlEvents:UIControlEventValueChanged];
  [self sendActionsForControlEvents:UIControlEventTouchUpInside];
  return YES;
}

@end
