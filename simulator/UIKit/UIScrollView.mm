#import <UIKit/UIScrollView.h>

#import <Foundation/NotCarried.h>
#import <UIKit/LayoutState.h>
#import <UIKit/UINavigationController.h>
#import <UIKit/UIView+Sim.h>

#include <algorithm>

namespace sim {
struct ScrollViewState {
  CGSize contentSize = CGSizeZero;
  UIEdgeInsets contentInset = UIEdgeInsetsZero;
  UIEdgeInsets indicatorInsets = UIEdgeInsetsZero;
  UIScrollViewContentInsetAdjustmentBehavior adjustment = UIScrollViewContentInsetAdjustmentAutomatic;
  UIEdgeInsets toldInset = UIEdgeInsetsZero;  // The adjusted one that was told last.
  BOOL scrollEnabled = YES;
  BOOL bounces = YES;
  BOOL alwaysBounceVertical = NO;
  BOOL showsVerticalIndicator = YES;
  BOOL showsHorizontalIndicator = YES;
  UIScrollViewKeyboardDismissMode keyboardDismissMode = UIScrollViewKeyboardDismissModeNone;
  id<UIScrollViewDelegate> delegate = nil;  // not owned
};
}  // namespace sim

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

- (CGPoint)contentOffset {
  return [self bounds].origin;
}

- (void)setContentOffset:(CGPoint)contentOffset {
  [self setContentOffset:contentOffset animated:NO];
}

- (void)setContentOffset:(CGPoint)contentOffset animated:(BOOL)animated {
  CGRect bounds = [self bounds];
  if (CGPointEqualToPoint(bounds.origin, contentOffset)) return;

  bounds.origin = contentOffset;
  [self setBounds:bounds];
  [self setNeedsLayout];
  id<UIScrollViewDelegate> delegate = _scrollViewState->delegate;
  if ([delegate respondsToSelector:@selector(scrollViewDidScroll:)]) [delegate scrollViewDidScroll:self];
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

- (CGSize)contentSize {
  return _scrollViewState->contentSize;
}

- (void)setContentSize:(CGSize)contentSize {
  _scrollViewState->contentSize = contentSize;
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
  const BOOL acrossScrolls = content.width > size.width;
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
