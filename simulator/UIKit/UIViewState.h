// What a view remembers. Included by the sources of UIView only.
#pragma once

#import <UIKit/LayoutState.h>
#import <QuartzCore/LayerGeometry.h>
#import <UIKit/UIGestureRecognizer.h>
#import <UIKit/UIInteraction.h>
#import <UIKit/UIView.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

struct UIViewState : LayerGeometry {
  UIView *superview = nil;  // Not owned; cleared by the superview.
  std::vector<objcxx::Retained<UIView>> subviews;
  objcxx::Retained<NSArray> subviewsArray;  ///< What `subviews` last answered; nothing after a change.
  UIResponder *viewController = nil;        // Not owned; cleared by the controller.
  objcxx::Retained<CALayer> layer;
  objcxx::Retained<UIView> maskView;
  bool needsLayout = true;
  bool needsUpdateConstraints = false;
  bool treeNeedsUpdateConstraints = false;  ///< The view or one in it.
  std::unique_ptr<ViewLayout> layout;       ///< nullptr until layout has to do with the view.
  std::vector<objcxx::Retained<UIGestureRecognizer>> gestureRecognizers;
  std::vector<objcxx::Retained<NSObject<UIInteraction>>> interactions;

  UIViewAutoresizing autoresizingMask = UIViewAutoresizingNone;
  bool autoresizesSubviews = true;
  bool hidden = false;
  bool opaque = true;
  bool clipsToBounds = false;
  bool userInteractionEnabled = true;
  bool multipleTouchEnabled = false;
  bool exclusiveTouch = false;
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
  UIUserInterfaceStyle overrideStyle = UIUserInterfaceStyleUnspecified;
};

}  // namespace sim

/// Between the sources of UIView.
@interface UIView (State)
- (sim::UIViewState &)sim_state;
/// Shares a change of the superview's size out to margins and size as the autoresizing mask says.
- (void)sim_resizeWithOldSuperviewSize:(CGSize)oldSize;
/// A subview has its place, or has lost it: so does its layer, where the receiver's layer lists its sublayers itself.
- (void)sim_didPlaceSublayerOf:(UIView *)subview;
- (void)sim_didTakeSublayerOf:(UIView *)subview;
@end
