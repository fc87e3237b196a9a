// What a view remembers. Included by the sources of UIView only.
#pragma once

#import <UIKit/LayoutState.h>
#import <UIKit/UIView.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

struct UIViewState {
  CGPoint origin = CGPointZero;  ///< In the superview's coordinates.
  CGRect bounds = CGRectZero;

  UIView *superview = nil;  // Not owned; cleared by the superview.
  std::vector<objcxx::Retained<UIView>> subviews;
  objcxx::Retained<NSArray> subviewsArray;  ///< What `subviews` last answered; nothing after a change.
  UIResponder *viewController = nil;        // Not owned; cleared by the controller.
  objcxx::Retained<CALayer> layer;
  bool needsLayout = true;
  bool needsUpdateConstraints = false;
  bool treeNeedsUpdateConstraints = false;  ///< The view or one in it.
  std::unique_ptr<ViewLayout> layout;       ///< nullptr until layout has to do with the view.

  UIViewAutoresizing autoresizingMask = UIViewAutoresizingNone;
  bool autoresizesSubviews = true;
  bool hidden = false;
  bool opaque = true;
  bool clipsToBounds = false;
  bool userInteractionEnabled = true;
  CGFloat alpha = 1;
  UIViewContentMode contentMode = UIViewContentModeScaleToFill;
  objcxx::Retained<UIColor> backgroundColor;
  objcxx::Retained<UIColor> tintColor;

  NSInteger tag = 0;
  NSUInteger number = 0;
  objcxx::Retained<NSString> accessibilityLabel;
  objcxx::Retained<NSString> accessibilityHint;
  objcxx::Retained<NSString> accessibilityValue;
  objcxx::Retained<NSString> accessibilityIdentifier;
  bool isAccessibilityElement = false;
};

}  // namespace sim

/// Between the sources of UIView.
@interface UIView (State)
- (sim::UIViewState &)sim_state;
/// Shares a change of the superview's size out to margins and size as the autoresizing mask says.
- (void)sim_resizeWithOldSuperviewSize:(CGSize)oldSize;
@end
