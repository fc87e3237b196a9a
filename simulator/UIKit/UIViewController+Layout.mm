// What a page has to do with layout by constraints.
#import <UIKit/LayoutState.h>
#import <UIKit/UIView.h>
#import <UIKit/UIViewController.h>

@implementation UIViewController (UIConstraintBasedLayoutCoreMethods)

- (void)updateViewConstraints {
  [[self view] updateConstraints];
}

@end

@implementation UIViewController (UILayoutSupport)

- (id<UILayoutSupport>)topLayoutGuide {
  return (id<UILayoutSupport>)[[self view] sim_guideOfKind:sim::GuideKind::kTop];
}

- (id<UILayoutSupport>)bottomLayoutGuide {
  return (id<UILayoutSupport>)[[self view] sim_guideOfKind:sim::GuideKind::kBottom];
}

- (void)viewSafeAreaInsetsDidChange {
}

@end
