#import "UIScrollViewState.h"

#import <Foundation/NotCarried.h>
#import <UIKit/LayoutState.h>
#import <UIKit/UINavigationController.h>
#import <UIKit/UIView+Sim.h>
#import <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

@implementation UIScrollView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;

  _scrollViewState = std::make_unique<sim::ScrollViewState>();
  [self setClipsToBounds:YES];
  return self;
}

- (id<UIScrollViewDelegate>)delegate {
  return _scrollViewState->delegate;
}

- (void)setDelegate:(id<UIScrollViewDelegate>)delegate {
  _scrollViewState->delegate = delegate;
}

/// What is not on the screen is moved by nobody.
- (void)didMoveToWindow {
  [super didMoveToWindow];
  if (![self window]) _scrollViewState->motion = sim::ScrollMotion::kNone;
}

- (CGPoint)contentOffset {
  return [self bounds].origin;
}

- (void)setContentOffset:(CGPoint)contentOffset {
  CGRect bounds = [self bounds];
  if (CGPointEqualToPoint(bounds.origin, contentOffset)) return;

  [self sim_willMoveTo:contentOffset];
  bounds.origin = contentOffset;
  [self setBounds:bounds];
  [self setNeedsLayout];
  id<UIScrollViewDelegate> delegate = _scrollViewState->delegate;
  if ([delegate respondsToSelector:@selector(scrollViewDidScroll:)]) [delegate scrollViewDidScroll:self];
}

- (void)setContentOffset:(CGPoint)contentOffset animated:(BOOL)animated {
  const bool moves = !CGPointEqualToPoint([self contentOffset], contentOffset);
  [self setContentOffset:contentOffset];
  if (animated && moves) [self sim_endScrollingAnimation];
}

/// At the next turn of the main queue.
- (void)sim_endScrollingAnimation {
  const auto kept = objcxx::share(self);
  dispatch_async(dispatch_get_main_queue(), ^{
    id<UIScrollViewDelegate> delegate = [kept.get() delegate];
    if ([delegate respondsToSelector:@selector(scrollViewDidEndScrollingAnimation:)]) {
      [delegate scrollViewDidEndScrollingAnimation:kept.get()];
    }
  });
}

- (void)scrollRectToVisible:(CGRect)rect animated:(BOOL)animated {
  const CGRect bounds = [self bounds];
  const auto nearest = [](CGFloat origin, CGFloat length, CGFloat from, CGFloat extent) {
    if (from < origin || extent > length) return from;
    return std::max(origin, from + extent - length);
  };
  [self setContentOffset:CGPointMake(nearest(bounds.origin.x, bounds.size.width, rect.origin.x, rect.size.width),
                                     nearest(bounds.origin.y, bounds.size.height, rect.origin.y, rect.size.height))
                animated:animated];
}

- (BOOL)isTracking {
  return [self isDragging];
}

- (BOOL)isDragging {
  const auto motion = _scrollViewState->motion;
  return motion == sim::ScrollMotion::kDragging || motion == sim::ScrollMotion::kLifting;
}

- (BOOL)isDecelerating {
  return _scrollViewState->motion == sim::ScrollMotion::kDecelerating;
}

- (CGSize)contentSize {
  return _scrollViewState->contentSize;
}

- (void)setContentSize:(CGSize)contentSize {
  const CGSize former = std::exchange(_scrollViewState->contentSize, contentSize);
  if (contentSize.width < former.width || contentSize.height < former.height) [self sim_stayWithinContent];
}

- (UILayoutGuide *)contentLayoutGuide {
  return [self sim_guideOfKind:sim::GuideKind::kScrollContent];
}

- (UILayoutGuide *)frameLayoutGuide {
  return [self sim_guideOfKind:sim::GuideKind::kScrollFrame];
}

- (UIEdgeInsets)contentInset {
  return _scrollViewState->contentInset;
}

- (void)setContentInset:(UIEdgeInsets)contentInset {
  _scrollViewState->contentInset = contentInset;
  [self sim_tellAdjustedInset];
}

- (UIScrollViewContentInsetAdjustmentBehavior)contentInsetAdjustmentBehavior {
  return _scrollViewState->adjustment;
}

- (void)setContentInsetAdjustmentBehavior:(UIScrollViewContentInsetAdjustmentBehavior)behavior {
  _scrollViewState->adjustment = behavior;
  [self sim_tellAdjustedInset];
}

/// The page that this is the scroll view of: its view, or the first that lies in it. nil for any other scroll view.
- (UIViewController *)sim_pageAround {
  UIView *view = self;
  if (![[view nextResponder] isKindOfClass:[UIViewController class]]) {
    view = [view superview];
    NSArray *siblings = [view subviews];
    if ([siblings count] == 0 || [siblings objectAtIndex:0] != self) return nil;
  }
  UIResponder *next = [view nextResponder];
  return [next isKindOfClass:[UIViewController class]] ? (UIViewController *)next : nil;
}

- (UIEdgeInsets)adjustedContentInset {
  UIEdgeInsets inset = _scrollViewState->contentInset;
  const auto behavior = _scrollViewState->adjustment;
  UIViewController *page = [self sim_pageAround];
  const BOOL isAutomatic = behavior == UIScrollViewContentInsetAdjustmentAutomatic;
  if (behavior == UIScrollViewContentInsetAdjustmentNever) return inset;
  if (isAutomatic && page && ![page automaticallyAdjustsScrollViewInsets]) return inset;

  const BOOL always = behavior == UIScrollViewContentInsetAdjustmentAlways;
  const CGSize size = [self bounds].size;
  const CGSize content = [self contentSize];
  const BOOL acrossScrolls = content.width > size.width || [self alwaysBounceHorizontal];
  const BOOL downScrolls =
      content.height > size.height || [self alwaysBounceVertical] || (isAutomatic && [page navigationController]);
  const UIEdgeInsets safeArea = [self safeAreaInsets];
  if (always || downScrolls) {
    inset.top += safeArea.top;
    inset.bottom += safeArea.bottom;
  }
  if (always || acrossScrolls) {
    inset.left += safeArea.left;
    inset.right += safeArea.right;
  }
  return inset;
}

- (void)adjustedContentInsetDidChange {
}

/// Tells of an adjusted inset that is another than the one told last. At the top of its content, the view stays there.
- (void)sim_tellAdjustedInset {
  const UIEdgeInsets former = _scrollViewState->toldInset;
  const UIEdgeInsets inset = [self adjustedContentInset];
  if (UIEdgeInsetsEqualToEdgeInsets(former, inset)) return;

  _scrollViewState->toldInset = inset;
  const CGPoint offset = [self contentOffset];
  const CGPoint least = [self sim_leastOffset];
  [self sim_moveQuietlyTo:CGPointMake(offset.x == -former.left ? least.x : offset.x,
                                      offset.y == -former.top ? least.y : offset.y)];
  [self adjustedContentInsetDidChange];
  id<UIScrollViewDelegate> delegate = _scrollViewState->delegate;
  if ([delegate respondsToSelector:@selector(scrollViewDidChangeAdjustedContentInset:)]) {
    [delegate scrollViewDidChangeAdjustedContentInset:self];
  }
}

- (void)sim_layoutSublayers {
  [self sim_tellAdjustedInset];
  [super sim_layoutSublayers];
}

- (UIEdgeInsets)scrollIndicatorInsets {
  return _scrollViewState->indicatorInsets;
}

- (void)setScrollIndicatorInsets:(UIEdgeInsets)insets {
  sim::notCarried(@"UIScrollView.scrollIndicatorInsets", @"No scroll indicators are drawn.");
  _scrollViewState->indicatorInsets = insets;
}

- (BOOL)isScrollEnabled {
  return _scrollViewState->scrollEnabled;
}

- (void)setScrollEnabled:(BOOL)scrollEnabled {
  _scrollViewState->scrollEnabled = scrollEnabled;
  if (!scrollEnabled) [self sim_comeToRest];
}

- (BOOL)bounces {
  return _scrollViewState->bounces;
}

- (void)setBounces:(BOOL)bounces {
  _scrollViewState->bounces = bounces;
}

- (BOOL)alwaysBounceVertical {
  return _scrollViewState->alwaysBounceVertical;
}

- (void)setAlwaysBounceVertical:(BOOL)alwaysBounceVertical {
  _scrollViewState->alwaysBounceVertical = alwaysBounceVertical;
}

- (BOOL)alwaysBounceHorizontal {
  return _scrollViewState->alwaysBounceHorizontal;
}

- (void)setAlwaysBounceHorizontal:(BOOL)alwaysBounceHorizontal {
  _scrollViewState->alwaysBounceHorizontal = alwaysBounceHorizontal;
}

- (BOOL)isPagingEnabled {
  return _scrollViewState->pagingEnabled;
}

- (void)setPagingEnabled:(BOOL)pagingEnabled {
  _scrollViewState->pagingEnabled = pagingEnabled;
}

- (BOOL)scrollsToTop {
  return _scrollViewState->scrollsToTop;
}

- (void)setScrollsToTop:(BOOL)scrollsToTop {
  _scrollViewState->scrollsToTop = scrollsToTop;
}

- (BOOL)showsVerticalScrollIndicator {
  return _scrollViewState->showsVerticalIndicator;
}

- (void)setShowsVerticalScrollIndicator:(BOOL)shows {
  if (shows) sim::notCarried(@"UIScrollView.showsVerticalScrollIndicator", @"No scroll indicators are drawn.");
  _scrollViewState->showsVerticalIndicator = shows;
}

- (BOOL)showsHorizontalScrollIndicator {
  return _scrollViewState->showsHorizontalIndicator;
}

- (void)setShowsHorizontalScrollIndicator:(BOOL)shows {
  if (shows) sim::notCarried(@"UIScrollView.showsHorizontalScrollIndicator", @"No scroll indicators are drawn.");
  _scrollViewState->showsHorizontalIndicator = shows;
}

- (UIScrollViewKeyboardDismissMode)keyboardDismissMode {
  return _scrollViewState->keyboardDismissMode;
}

- (void)setKeyboardDismissMode:(UIScrollViewKeyboardDismissMode)mode {
  if (mode != UIScrollViewKeyboardDismissModeNone) {
    sim::notCarried(@"UIScrollView.keyboardDismissMode", @"The keyboard is the computer's own.");
  }
  _scrollViewState->keyboardDismissMode = mode;
}

@end
