// The state of a scroll view, shared by the files that implement it.
#pragma once

#import <UIKit/UIScrollView+Sim.h>
#import <objc/Weak.h>
#include <objcxx/Retained.h>

#include <optional>

namespace sim {

/// What moves the content.
enum class ScrollMotion { kNone, kDragging, kLifting, kDecelerating };

struct ScrollViewState {
  CGSize contentSize = CGSizeZero;
  UIEdgeInsets contentInset = UIEdgeInsetsZero;
  UIEdgeInsets indicatorInsets = UIEdgeInsetsZero;
  UIScrollViewContentInsetAdjustmentBehavior adjustment = UIScrollViewContentInsetAdjustmentAutomatic;
  UIEdgeInsets toldInset = UIEdgeInsetsZero;  // The adjusted one that was told last.
  BOOL scrollEnabled = YES;
  BOOL bounces = YES;
  BOOL alwaysBounceVertical = NO;
  BOOL alwaysBounceHorizontal = NO;
  BOOL pagingEnabled = NO;
  BOOL scrollsToTop = YES;
  BOOL showsVerticalIndicator = YES;
  BOOL showsHorizontalIndicator = YES;
  UIScrollViewKeyboardDismissMode keyboardDismissMode = UIScrollViewKeyboardDismissModeNone;
  Weak<id<UIScrollViewDelegate>> delegate;
  ScrollMotion motion = ScrollMotion::kNone;
  std::optional<CGPoint> expected;   // Where a finger, or the system, moves the content to just now.
  std::uint32_t positionNumber = 0;  // 0 until somebody asks.
};

}  // namespace sim

@interface UIScrollView (SimMoving)
/// The content is about to move to `offset`. Unless that is expected, code moves it.
- (void)sim_willMoveTo:(CGPoint)offset;
/// Takes the content back to the edge that it was moved beyond, after it has become smaller.
- (void)sim_stayWithinContent;
/// Whatever moves the content moves it no more.
- (void)sim_comeToRest;
@end
