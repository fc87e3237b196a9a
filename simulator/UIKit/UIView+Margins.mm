// Margins, and the guides of what they and the safe area leave.
#import <UIKit/LayoutState.h>
#import <UIKit/UIViewLayout.h>
#import <UIKit/UIViewController.h>
#import <UIKit/UIViewState.h>

#include "LayoutProblem.h"
#include "SystemMargin.hpp"

#include <algorithm>

namespace {

constexpr CGFloat kDefaultMargin = 8;

UIEdgeInsets sum(UIEdgeInsets a, UIEdgeInsets b) {
  return UIEdgeInsetsMake(a.top + b.top, a.left + b.left, a.bottom + b.bottom, a.right + b.right);
}

/// What of the superview's margins reaches into a view of this frame.
UIEdgeInsets reaching(UIEdgeInsets margins, CGRect frame, CGRect bounds) {
  return {margins.top - (CGRectGetMinY(frame) - CGRectGetMinY(bounds)),
          margins.left - (CGRectGetMinX(frame) - CGRectGetMinX(bounds)),
          margins.bottom - (CGRectGetMaxY(bounds) - CGRectGetMaxY(frame)),
          margins.right - (CGRectGetMaxX(bounds) - CGRectGetMaxX(frame))};
}

UIEdgeInsets larger(UIEdgeInsets a, UIEdgeInsets b) {
  return {std::max(a.top, b.top), std::max(a.left, b.left), std::max(a.bottom, b.bottom), std::max(a.right, b.right)};
}

}  // namespace

@implementation UIView (UIViewLayoutMargins)

- (UIEdgeInsets)layoutMargins {
  const sim::ViewLayout *layout = _state->layout.get();
  UIEdgeInsets margins = [self sim_ownMargins];
  UIView *superview = _state->superview;
  if (layout && layout->preservesSuperviewMargins && superview) {
    const CGRect frame = {_state->origin, _state->bounds.size};
    margins = larger(margins, reaching([superview sim_ownMargins], frame, superview -> _state -> bounds));
  }
  if (!layout || layout->insetsMarginsFromSafeArea) margins = sum(margins, [self safeAreaInsets]);
  return margins;
}

/// Without the safe area.
- (UIEdgeInsets)sim_ownMargins {
  const sim::ViewLayout *layout = _state->layout.get();
  UIEdgeInsets margins = layout && layout->margins ? *layout->margins : [self sim_defaultMargins];
  if (_state->viewController) {
    // The system's least margins of a page.
    const CGFloat least = sim::marginForWidth(_state->bounds.size.width);
    margins = larger(margins, UIEdgeInsetsMake(0, least, 0, least));
  }
  return margins;
}

- (UIEdgeInsets)sim_defaultMargins {
  if (_state->viewController) return UIEdgeInsetsZero;
  if (_state->superview) return [_state->superview sim_defaultMarginsOfSubview:self];
  return UIEdgeInsetsMake(kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin);
}

- (void)setLayoutMargins:(UIEdgeInsets)margins {
  sim::ViewLayout &layout = [self sim_layout];
  if (layout.margins && UIEdgeInsetsEqualToEdgeInsets(*layout.margins, margins)) return;
  layout.margins = margins;
  [self sim_marginsChanged];
}

- (NSDirectionalEdgeInsets)directionalLayoutMargins {
  const UIEdgeInsets margins = [self layoutMargins];
  return NSDirectionalEdgeInsetsMake(margins.top, margins.left, margins.bottom, margins.right);
}

- (void)setDirectionalLayoutMargins:(NSDirectionalEdgeInsets)margins {
  [self setLayoutMargins:UIEdgeInsetsMake(margins.top, margins.leading, margins.bottom, margins.trailing)];
}

- (BOOL)preservesSuperviewLayoutMargins {
  return _state->layout && _state->layout->preservesSuperviewMargins;
}

- (void)setPreservesSuperviewLayoutMargins:(BOOL)preserves {
  if (preserves == [self preservesSuperviewLayoutMargins]) return;
  [self sim_layout].preservesSuperviewMargins = preserves;
  [self sim_marginsChanged];
}

- (BOOL)insetsLayoutMarginsFromSafeArea {
  return !_state->layout || _state->layout->insetsMarginsFromSafeArea;
}

- (void)setInsetsLayoutMarginsFromSafeArea:(BOOL)insets {
  if (insets == [self insetsLayoutMarginsFromSafeArea]) return;
  [self sim_layout].insetsMarginsFromSafeArea = insets;
  [self sim_marginsChanged];
}

- (void)sim_marginsChanged {
  sim::layoutInputsChanged([self sim_layout].item);
  [self setNeedsLayout];
  [self layoutMarginsDidChange];
}

- (void)layoutMarginsDidChange {
}

- (void)safeAreaInsetsDidChange {
}

- (UILayoutGuide *)layoutMarginsGuide {
  return [self sim_guideOfKind:sim::GuideKind::kMargins];
}

- (UILayoutGuide *)readableContentGuide {
  return [self sim_guideOfKind:sim::GuideKind::kReadable];
}

- (UILayoutGuide *)safeAreaLayoutGuide {
  return [self sim_guideOfKind:sim::GuideKind::kSafeArea];
}

@end

@implementation UIView (SimMargins)

- (UIEdgeInsets)sim_defaultMarginsOfSubview:(UIView *)subview {
  (void)subview;
  return UIEdgeInsetsMake(kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin);
}

- (void)sim_tellSafeArea {
  // Asked at each layout, so that only views with somebody to tell are looked at more closely.
  static const IMP kUntold = [UIView instanceMethodForSelector:@selector(safeAreaInsetsDidChange)];
  const bool overrides = [self methodForSelector:@selector(safeAreaInsetsDidChange)] != kUntold;
  if (!overrides && !_state->viewController) return;
  const UIEdgeInsets insets = [self safeAreaInsets];
  auto &told = [self sim_layout].toldSafeArea;
  if (UIEdgeInsetsEqualToEdgeInsets(told.value_or(UIEdgeInsetsZero), insets)) return;
  told = insets;
  [self safeAreaInsetsDidChange];
  UIViewController *controller = (UIViewController *)_state->viewController;
  if ([controller respondsToSelector:@selector(viewSafeAreaInsetsDidChange)]) [controller viewSafeAreaInsetsDidChange];
}

@end
