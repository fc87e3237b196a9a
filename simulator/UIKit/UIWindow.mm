#import <UIKit/UIWindow.h>

#import <Foundation/NotCarried.h>
#import <UIKit/UIApplication+Sim.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#include <objcxx/Retained.h>

const UIWindowLevel UIWindowLevelNormal = 0;
const UIWindowLevel UIWindowLevelStatusBar = 1000;
const UIWindowLevel UIWindowLevelAlert = 2000;

namespace sim {
struct WindowState {
  objcxx::Retained<UIViewController> root;
  UIWindowLevel level = UIWindowLevelNormal;
};
}  // namespace sim

@implementation UIWindow

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;

  [super setHidden:YES];
  _windowState = std::make_unique<sim::WindowState>();
  return self;
}

- (instancetype)init {
  return [self initWithFrame:[[UIScreen mainScreen] bounds]];
}

- (void)dealloc {
  [[UIApplication sharedApplication] sim_windowDidHide:self];
  [super dealloc];
}

- (UIWindow *)window {
  return self;
}

- (UIResponder *)nextResponder {
  return [UIApplication sharedApplication];
}

- (UIScreen *)screen {
  return [UIScreen mainScreen];
}

- (UIWindowLevel)windowLevel {
  return _windowState->level;
}

- (void)setWindowLevel:(UIWindowLevel)level {
  if (level != UIWindowLevelNormal) {
    sim::notCarried(@"UIWindow.windowLevel", @"Windows lie in the order in which they were shown.");
  }
  _windowState->level = level;
}

- (UIViewController *)rootViewController {
  return _windowState->root.get();
}

- (void)setRootViewController:(UIViewController *)controller {
  if (_windowState->root.get() == controller) return;

  const auto former = _windowState->root;
  if (![self isHidden]) [former.get() sim_setAppeared:NO animated:NO];
  [[former.get() viewIfLoaded] removeFromSuperview];
  _windowState->root = objcxx::share(controller);
  if (![self isHidden]) [self sim_showRoot];
}

- (void)sim_showRoot {
  UIViewController *root = _windowState->root.get();
  if (!root) return;

  UIView *view = [root view];
  [view setFrame:[self bounds]];
  [view setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [self insertSubview:view atIndex:0];
  [root sim_setAppeared:YES animated:NO];
}

- (void)setHidden:(BOOL)hidden {
  const BOOL changes = [self isHidden] != (hidden ? YES : NO);
  [super setHidden:hidden];
  if (!changes || !_windowState) return;

  if (hidden) {
    [_windowState->root.get() sim_setAppeared:NO animated:NO];
    [[UIApplication sharedApplication] sim_windowDidHide:self];
  } else {
    [[UIApplication sharedApplication] sim_windowDidShow:self];
    [self sim_showRoot];
  }
}

- (BOOL)isKeyWindow {
  return [[UIApplication sharedApplication] keyWindow] == self;
}

- (void)makeKeyWindow {
  [[UIApplication sharedApplication] sim_windowDidBecomeKey:self];
}

- (void)makeKeyAndVisible {
  [self makeKeyWindow];
  [self setHidden:NO];
}

@end
