#import <UIKit/UIBarButtonItem+Sim.h>

#import <UIKit/UIApplication.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIControl.h>
#import <UIKit/UIView.h>
#include <objcxx/Retained.h>

namespace sim {
struct BarButtonItemState {
  UIBarButtonItemStyle style = UIBarButtonItemStylePlain;
  NSInteger systemItem = -1;  // -1: not a system item.
  CGFloat width = 0;
  objcxx::Retained<UIView> customView;
  objcxx::Retained<UIColor> tintColor;
  SEL action = nullptr;
  id target = nil;  // not owned
};
}  // namespace sim

namespace {
// In the order of UIBarButtonSystemItem.
NSString *const kSystemItemNames[] = {
    @"done",    @"cancel", @"edit",     @"save",     @"add",       @"flexibleSpace", @"fixedSpace",
    @"compose", @"reply",  @"action",   @"organize", @"bookmarks", @"search",        @"refresh",
    @"stop",    @"camera", @"trash",    @"play",     @"pause",     @"rewind",        @"fastForward",
    @"undo",    @"redo",   @"pageCurl", @"close",
};
constexpr NSInteger kSystemItemCount = sizeof(kSystemItemNames) / sizeof(kSystemItemNames[0]);
static_assert(kSystemItemCount == UIBarButtonSystemItemClose + 1);
}  // namespace

@implementation UIBarButtonItem

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _barButtonItemState = std::make_unique<sim::BarButtonItemState>();
  return self;
}

- (instancetype)initWithTitle:(NSString *)title style:(UIBarButtonItemStyle)style target:(id)target action:(SEL)action {
  if (!(self = [self init])) return nil;

  [self setTitle:title];
  _barButtonItemState->style = style;
  _barButtonItemState->target = target;
  _barButtonItemState->action = action;
  return self;
}

- (instancetype)initWithImage:(UIImage *)image style:(UIBarButtonItemStyle)style target:(id)target action:(SEL)action {
  if (!(self = [self initWithTitle:nil style:style target:target action:action])) return nil;

  [self setImage:image];
  return self;
}

- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem target:(id)target action:(SEL)action {
  if (systemItem < 0 || systemItem >= kSystemItemCount) {
    [self release];
    [NSException raise:NSInvalidArgumentException format:@"There is no system item %ld.", (long)systemItem];
  }
  const BOOL done = systemItem == UIBarButtonSystemItemDone || systemItem == UIBarButtonSystemItemSave;
  if (!(self = [self initWithTitle:nil
                             style:done ? UIBarButtonItemStyleDone : UIBarButtonItemStylePlain
                            target:target
                            action:action])) {
    return nil;
  }

  _barButtonItemState->systemItem = systemItem;
  return self;
}

- (instancetype)initWithCustomView:(UIView *)customView {
  if (!(self = [self init])) return nil;

  _barButtonItemState->customView = objcxx::share(customView);
  return self;
}

- (UIBarButtonItemStyle)style {
  return _barButtonItemState->style;
}

- (void)setStyle:(UIBarButtonItemStyle)style {
  _barButtonItemState->style = style;
}

- (CGFloat)width {
  return _barButtonItemState->width;
}

- (void)setWidth:(CGFloat)width {
  _barButtonItemState->width = width;
}

- (UIView *)customView {
  return _barButtonItemState->customView.get();
}

- (void)setCustomView:(UIView *)customView {
  _barButtonItemState->customView = objcxx::share(customView);
}

- (SEL)action {
  return _barButtonItemState->action;
}

- (void)setAction:(SEL)action {
  _barButtonItemState->action = action;
}

- (id)target {
  return _barButtonItemState->target;
}

- (void)setTarget:(id)target {
  _barButtonItemState->target = target;
}

- (UIColor *)tintColor {
  return _barButtonItemState->tintColor.get();
}

- (void)setTintColor:(UIColor *)tintColor {
  _barButtonItemState->tintColor = objcxx::share(tintColor);
}

#pragma mark - Sim

- (NSString *)sim_systemItemName {
  const NSInteger systemItem = _barButtonItemState->systemItem;
  return systemItem < 0 ? nil : kSystemItemNames[systemItem];
}

/// What a tap on a view in a bar reaches: the first control in it that takes touches, depth first.
- (UIControl *)sim_controlIn:(UIView *)view {
  if ([view isHidden] || ![view isUserInteractionEnabled]) return nil;
  if ([view isKindOfClass:[UIControl class]]) return (UIControl *)view;
  for (UIView *child in [view subviews]) {
    if (UIControl *found = [self sim_controlIn:child]) return found;
  }
  return nil;
}

- (BOOL)sim_tap {
  if (_barButtonItemState->customView) {
    const auto control = objcxx::share([self sim_controlIn:_barButtonItemState->customView.get()]);
    if (![control.get() isEnabled]) return NO;
    [control.get() sendActionsForControlEvents:UIControlEventTouchUpInside];
    return YES;
  }
  if (![self isEnabled] || !_barButtonItemState->action) return NO;

  // The action may take the item off its bar.
  const auto keepAlive = objcxx::share(self);
  return [[UIApplication sharedApplication] sendAction:_barButtonItemState->action
                                                    to:_barButtonItemState->target
                                                  from:self
                                              forEvent:nil];
}

@end
