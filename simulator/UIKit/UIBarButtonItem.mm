#import <UIKit/UIBarButtonItem+Sim.h>

#import <UIKit/MenuController.h>
#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIApplication.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIMenuElement+Sim.h>
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
  objcxx::Retained<UIAction> primaryAction;
  objcxx::Retained<UIMenu> menu;
  SIMMenuController *shown = nil;  // While its menu is. Not owned, as it keeps the item; tells when it goes.
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

- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem primaryAction:(UIAction *)action {
  if (!(self = [self initWithBarButtonSystemItem:systemItem target:nil action:NULL])) return nil;

  [self setPrimaryAction:action];
  return self;
}

- (instancetype)initWithPrimaryAction:(UIAction *)action {
  if (!(self = [self init])) return nil;

  [self setPrimaryAction:action];
  return self;
}

- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem menu:(UIMenu *)menu {
  if (!(self = [self initWithBarButtonSystemItem:systemItem target:nil action:NULL])) return nil;

  [self setMenu:menu];
  return self;
}

- (instancetype)initWithTitle:(NSString *)title menu:(UIMenu *)menu {
  if (!(self = [self init])) return nil;

  [self setTitle:title];
  [self setMenu:menu];
  return self;
}

- (instancetype)initWithImage:(UIImage *)image menu:(UIMenu *)menu {
  if (!(self = [self initWithTitle:nil menu:menu])) return nil;

  [self setImage:image];
  return self;
}

- (void)dealloc {
  if (_barButtonItemState) [_barButtonItemState->shown onLeaving:nil gone:nil];
  [super dealloc];
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

- (UIAction *)primaryAction {
  return _barButtonItemState->primaryAction.get();
}

- (void)setPrimaryAction:(UIAction *)action {
  _barButtonItemState->primaryAction = objcxx::adopt((UIAction *)[action copy]);
  if (!action || _barButtonItemState->systemItem >= 0) return;
  [self setTitle:[action title]];
  [self setImage:[action image]];
}

- (UIMenu *)menu {
  return _barButtonItemState->menu.get();
}

- (void)setMenu:(UIMenu *)menu {
  _barButtonItemState->menu = objcxx::share([menu sim_frozen]);
  [_barButtonItemState->shown setMenu:_barButtonItemState->menu.get()];
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
    return [control.get() sim_tapByUser];
  }
  if ([self sim_showsMenuByTap]) return [self sim_press];
  const auto primaryAction = _barButtonItemState->primaryAction;
  if (![self isEnabled] || (!primaryAction && !_barButtonItemState->action)) return NO;

  // The action may take the item off its bar.
  const auto keepAlive = objcxx::share(self);
  if (primaryAction) {
    [primaryAction.get() sim_performFrom:self];
    return YES;
  }
  return [[UIApplication sharedApplication] sendAction:_barButtonItemState->action
                                                    to:_barButtonItemState->target
                                                  from:self
                                              forEvent:nil];
}

- (BOOL)sim_showsMenuByTap {
  const sim::BarButtonItemState &state = *_barButtonItemState;
  return state.menu && !state.primaryAction && !state.action && !state.customView;
}

- (BOOL)sim_press {
  UIMenu *menu = _barButtonItemState->menu.get();
  if (![self isEnabled] || !menu || _barButtonItemState->shown || _barButtonItemState->customView) return NO;
  const auto controller = objcxx::adopt([[SIMMenuController alloc] initWithMenu:menu sender:self]);
  __block UIBarButtonItem *unowned = self;
  [controller.get() onLeaving:nil
                         gone:^{
                           [unowned sim_forgetMenu];
                         }];
  _barButtonItemState->shown = controller.get();
  if ([controller.get() showFromView:nil barButton:self]) return YES;
  [self sim_forgetMenu];
  return NO;
}

- (void)sim_forgetMenu {
  [_barButtonItemState->shown onLeaving:nil gone:nil];
  _barButtonItemState->shown = nil;
}

@end
