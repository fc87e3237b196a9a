// A view that shows a part of a larger content. A finger moves the content between its edges; nothing bounces.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIScrollView;

typedef NS_ENUM(NSInteger, UIScrollViewKeyboardDismissMode) {
  UIScrollViewKeyboardDismissModeNone = 0,
  UIScrollViewKeyboardDismissModeOnDrag,
  UIScrollViewKeyboardDismissModeInteractive,
};

typedef NS_ENUM(NSInteger, UIScrollViewContentInsetAdjustmentBehavior) {
  /// As below where the view can be scrolled that way, and always at the top and bottom of a page's own scroll view.
  UIScrollViewContentInsetAdjustmentAutomatic,
  UIScrollViewContentInsetAdjustmentScrollableAxes,
  UIScrollViewContentInsetAdjustmentNever,
  UIScrollViewContentInsetAdjustmentAlways,
};

@protocol UIScrollViewDelegate <NSObject>
@optional
- (void)scrollViewDidScroll:(UIScrollView *)scrollView;
- (void)scrollViewWillBeginDragging:(UIScrollView *)scrollView;
/// `velocity` is in points a millisecond. The content comes to rest at `targetContentOffset`, which may be changed.
- (void)scrollViewWillEndDragging:(UIScrollView *)scrollView
                     withVelocity:(CGPoint)velocity
              targetContentOffset:(inout CGPoint *)targetContentOffset;
- (void)scrollViewDidEndDragging:(UIScrollView *)scrollView willDecelerate:(BOOL)decelerate;
- (void)scrollViewWillBeginDecelerating:(UIScrollView *)scrollView;
- (void)scrollViewDidEndDecelerating:(UIScrollView *)scrollView;
/// At the next turn of the main queue after code has moved the content with animation.
- (void)scrollViewDidEndScrollingAnimation:(UIScrollView *)scrollView;
/// YES where the delegate does not say.
- (BOOL)scrollViewShouldScrollToTop:(UIScrollView *)scrollView;
- (void)scrollViewDidScrollToTop:(UIScrollView *)scrollView;
- (void)scrollViewDidChangeAdjustedContentInset:(UIScrollView *)scrollView;
@end

SIM_STATE_TYPE(ScrollViewState);

/// Main thread.
@interface UIScrollView : UIView {
 @private
  SIM_STATE(ScrollViewState, _scrollViewState);
}
/// The origin of the bounds. Setting it tells the delegate when it changes.
@property(nonatomic) CGPoint contentOffset;
- (void)setContentOffset:(CGPoint)contentOffset animated:(BOOL)animated;
@property(nonatomic) CGSize contentSize;
@property(nonatomic) UIEdgeInsets contentInset;
/// What of the safe area is added to `contentInset`. Automatic at first.
@property(nonatomic) UIScrollViewContentInsetAdjustmentBehavior contentInsetAdjustmentBehavior;
/// `contentInset` with that.
@property(nonatomic, readonly) UIEdgeInsets adjustedContentInset;
/// It has changed. Overrides call super, which does nothing; the delegate is told too.
- (void)adjustedContentInsetDidChange;
@property(nonatomic) UIEdgeInsets scrollIndicatorInsets;
@property(nonatomic, getter=isScrollEnabled) BOOL scrollEnabled;
@property(nonatomic) BOOL bounces;
@property(nonatomic) BOOL alwaysBounceVertical;
@property(nonatomic) BOOL alwaysBounceHorizontal;
/// NO at first. With YES the content comes to rest at multiples of the view's size.
@property(nonatomic, getter=isPagingEnabled) BOOL pagingEnabled;
/// YES at first: a tap on the status bar brings the top of the content back, unless several views on the screen say so.
@property(nonatomic) BOOL scrollsToTop;
/// Whether a finger is on the content and moves it.
@property(nonatomic, readonly, getter=isTracking) BOOL tracking;
@property(nonatomic, readonly, getter=isDragging) BOOL dragging;
/// Whether the content still moves after the finger was lifted.
@property(nonatomic, readonly, getter=isDecelerating) BOOL decelerating;
@property(nonatomic) BOOL showsVerticalScrollIndicator;
@property(nonatomic) BOOL showsHorizontalScrollIndicator;
@property(nonatomic) UIScrollViewKeyboardDismissMode keyboardDismissMode;
/// Not owned.
@property(nonatomic, assign) id<UIScrollViewDelegate> delegate;
/// What anchors of the content, and of the visible rectangle, relate to. Constraints of views in the scroll view with
/// its edges are with those of the content, whose size follows from them.
@property(nonatomic, readonly, strong) UILayoutGuide *contentLayoutGuide;
@property(nonatomic, readonly, strong) UILayoutGuide *frameLayoutGuide;
/// Moves the content by the least amount that brings `rect` (in content coordinates) into view.
- (void)scrollRectToVisible:(CGRect)rect animated:(BOOL)animated;
@end
