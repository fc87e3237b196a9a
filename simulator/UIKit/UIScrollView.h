// A view that shows a part of a larger content. Here it holds the state of scrolling only.
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
