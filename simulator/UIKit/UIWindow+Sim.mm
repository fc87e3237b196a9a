// Changes of the device, as they reach the pages of a window.
#import <UIKit/UIWindow+Sim.h>

#import "TransitionCoordinator.h"

#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController+Sim.h>

@implementation UIWindow (Sim)

- (void)sim_changeScreenToSize:(CGSize)size scale:(CGFloat)scale safeArea:(UIEdgeInsets)safeArea {
  const auto coordinator = objcxx::adopt([[SIMTransitionCoordinator alloc] initWithContainerView:self]);
  const bool resizes = SIMIsScreen(size, scale, safeArea) && !CGSizeEqualToSize(size, [self bounds].size);
  @try {
    UIViewController *page = resizes ? [self rootViewController] : nil;
    for (; page; page = [page sim_ownPresentedViewController]) {
      [page viewWillTransitionToSize:size withTransitionCoordinator:coordinator.get()];
    }
  } @finally {  // The screen changes, whatever the pages' code raises.
    const auto former = objcxx::share([UITraitCollection sim_deviceTraits]);
    SIMSetMainScreen(size, scale, safeArea);
    [self setFrame:[[UIScreen mainScreen] bounds]];
    [self sim_tellTraitsIfChangedFrom:former.get()];
    [self layoutIfNeeded];
    [coordinator.get() run];
  }
}

- (void)sim_changeUserInterfaceStyle:(UIUserInterfaceStyle)style {
  const auto former = objcxx::share([UITraitCollection sim_deviceTraits]);
  SIMSetUserInterfaceStyle(style);
  [self sim_tellTraitsIfChangedFrom:former.get()];
}

- (void)sim_tellTraitsIfChangedFrom:(UITraitCollection *)former {
  if ([[UITraitCollection sim_deviceTraits] isEqual:former]) return;
  [self sim_traitCollectionDidChange:former];
}

@end
