// The tree of views, and layout.
#import "LayoutProblem.h"

#import <UIKit/UIAppearance+Sim.h>
#import <UIKit/UIResponder+Sim.h>
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIViewLayout.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

/// What a view tells its controller.
@protocol SIMLayoutObserver
- (void)viewWillLayoutSubviews;
- (void)viewDidLayoutSubviews;
@end

namespace {

using Subviews = std::vector<objcxx::Retained<UIView>>;

Subviews::iterator find(Subviews &views, UIView *view) {
  return std::find_if(views.begin(), views.end(), [&](const auto &handle) { return handle.get() == view; });
}

void refuse(NSString *reason) { [NSException raise:NSInvalidArgumentException format:@"%@", reason]; }

// Layout that asks for layout again is given it, but not for ever.
constexpr int kMostLayoutRounds = 100;

void layOut(UIView *view) {
  sim::UIViewState &state = [view sim_state];
  for (int round = 0; state.needsLayout && round < kMostLayoutRounds; ++round) {
    if (state.treeNeedsUpdateConstraints) [view updateConstraintsIfNeeded];
    [view sim_tellSafeArea];
    [view sim_placeByConstraints];
    state.needsLayout = false;
    [view sim_performWithTraits:^{
      const auto observer = (UIResponder<SIMLayoutObserver> *)[view sim_state].viewController;
      const BOOL observes = [observer respondsToSelector:@selector(viewWillLayoutSubviews)];
      if (observes) [observer viewWillLayoutSubviews];
      [view sim_layoutSublayers];
      if (observes) [observer viewDidLayoutSubviews];
    }];
  }
  state.needsLayout = false;
  for (UIView *subview in [view subviews]) layOut(subview);
}

bool needsLayout(UIView *view) {
  const sim::UIViewState &state = [view sim_state];
  if (state.needsLayout) return true;
  return std::any_of(state.subviews.begin(), state.subviews.end(),
                     [](const auto &subview) { return needsLayout(subview.get()); });
}

}  // namespace

@implementation UIView (UIViewHierarchy)

- (UIView *)superview {
  return _state->superview;
}

- (NSArray *)subviews {
  if (!_state->subviewsArray) {
    NSMutableArray *views = [NSMutableArray arrayWithCapacity:_state->subviews.size()];
    for (const auto &view : _state->subviews) [views addObject:view.get()];
    _state->subviewsArray = objcxx::adopt((NSArray *)[views copy]);
  }
  return [[_state->subviewsArray.get() retain] autorelease];
}

- (UIWindow *)window {
  return [_state->superview window];
}

- (void)removeFromSuperview {
  if (!_state->superview) return;
  [[self retain] autorelease];
  UIWindow *window = [self window];
  UIResponder *first = SIMFirstResponder();
  if ([first isKindOfClass:[UIView class]] && [(UIView *)first isDescendantOfView:self]) [first resignFirstResponder];

  [_state->superview willRemoveSubview:self];
  [self willMoveToSuperview:nil];
  [self sim_willMoveFromWindow:window toWindow:nil];
  [self sim_detach];
  [self sim_didMoveFromWindow:window toWindow:nil];
  [self didMoveToSuperview];
}

- (void)sim_detach {
  UIView *superview = _state->superview;
  if (!superview) return;
  [[self retain] autorelease];
  [self sim_dropConstraintsAround];
  auto &siblings = superview->_state->subviews;
  siblings.erase(find(siblings, self));
  superview->_state->subviewsArray = nullptr;
  [superview sim_didTakeSublayerOf:self];
  _state->superview = nil;
  [superview setNeedsLayout];
}

- (void)addSubview:(UIView *)view {
  [self insertSubview:view atIndex:NSIntegerMax];
}

- (void)insertSubview:(UIView *)view atIndex:(NSInteger)index {
  if (!view) return;
  if ([self isDescendantOfView:view]) refuse(@"A view cannot be added below itself.");
  auto &views = _state->subviews;
  if (view->_state->superview == self) {
    const auto handle = *find(views, view);
    views.erase(find(views, view));
    const auto place = std::min<size_t>(size_t(std::max<NSInteger>(index, 0)), views.size());
    views.insert(views.begin() + std::ptrdiff_t(place), handle);
    _state->subviewsArray = nullptr;
    [self sim_didPlaceSublayerOf:view];
    [self setNeedsLayout];
    return;
  }

  const auto added = objcxx::share(view);
  const UIUserInterfaceStyle style = [view sim_setUserInterfaceStyle];
  UIWindow *from = [view window];
  UIWindow *to = [self window];
  [view->_state->superview willRemoveSubview:view];
  [view willMoveToSuperview:self];
  [view sim_willMoveFromWindow:from toWindow:to];
  [view sim_detach];
  const auto place = std::min<size_t>(size_t(std::max<NSInteger>(index, 0)), views.size());
  views.insert(views.begin() + std::ptrdiff_t(place), added);
  _state->subviewsArray = nullptr;
  view->_state->superview = self;
  [self sim_didPlaceSublayerOf:view];
  [self setNeedsLayout];
  if (view->_state->treeNeedsUpdateConstraints) [view sim_passOnNeedForConstraints];
  [view sim_didMoveFromWindow:from toWindow:to];
  if (style != [view sim_setUserInterfaceStyle]) {
    [view sim_traitCollectionDidChange:[[UITraitCollection sim_deviceTraits] sim_withUserInterfaceStyle:style]];
  }
  [view didMoveToSuperview];
  [self didAddSubview:view];
}

- (void)insertSubview:(UIView *)view belowSubview:(UIView *)sibling {
  [self sim_insertSubview:view besideSubview:sibling offset:0];
}

- (void)insertSubview:(UIView *)view aboveSubview:(UIView *)sibling {
  [self sim_insertSubview:view besideSubview:sibling offset:1];
}

- (void)sim_insertSubview:(UIView *)view besideSubview:(UIView *)sibling offset:(NSInteger)offset {
  if (!view || view == sibling) return;
  auto &views = _state->subviews;
  if (find(views, sibling) == views.end()) refuse(@"The other view is not a subview of the receiver.");
  NSInteger index = find(views, sibling) - views.begin();
  const auto own = find(views, view);
  if (own != views.end() && own - views.begin() < index) --index;
  [self insertSubview:view atIndex:index + offset];
}

- (void)exchangeSubviewAtIndex:(NSInteger)one withSubviewAtIndex:(NSInteger)other {
  const auto count = NSInteger(_state->subviews.size());
  if (one < 0 || other < 0 || one >= count || other >= count) {
    [NSException raise:NSRangeException format:@"There are %ld subviews.", long(count)];
  }
  std::swap(_state->subviews[size_t(one)], _state->subviews[size_t(other)]);
  _state->subviewsArray = nullptr;
  for (const NSInteger index : {std::max(one, other), std::min(one, other)}) {
    [self sim_didPlaceSublayerOf:_state->subviews[size_t(index)].get()];
  }
}

- (void)bringSubviewToFront:(UIView *)view {
  if (view && view->_state->superview == self) [self insertSubview:view atIndex:NSIntegerMax];
}

- (void)sendSubviewToBack:(UIView *)view {
  if (view && view->_state->superview == self) [self insertSubview:view atIndex:0];
}

- (void)didAddSubview:(UIView *)subview {
  (void)subview;
}

- (void)willRemoveSubview:(UIView *)subview {
  (void)subview;
}

- (void)willMoveToSuperview:(UIView *)superview {
  (void)superview;
}

- (void)didMoveToSuperview {
}

- (void)willMoveToWindow:(UIWindow *)window {
  (void)window;
}

- (void)didMoveToWindow {
}

- (void)sim_willMoveFromWindow:(UIWindow *)from toWindow:(UIWindow *)to {
  if (from == to) return;
  [self willMoveToWindow:to];
  for (UIView *subview in [self subviews]) [subview sim_willMoveFromWindow:from toWindow:to];
}

- (void)sim_didMoveFromWindow:(UIWindow *)from toWindow:(UIWindow *)to {
  if (from == to) return;
  if (to && sim::hasAppearances()) {
    sim::applyAppearance(self, sim::containersOf(self), [UITraitCollection sim_deviceTraits]);
  }
  [self didMoveToWindow];
  for (UIView *subview in [self subviews]) [subview sim_didMoveFromWindow:from toWindow:to];
}

- (BOOL)isDescendantOfView:(UIView *)view {
  for (UIView *ancestor = self; ancestor; ancestor = ancestor->_state->superview) {
    if (ancestor == view) return YES;
  }
  return NO;
}

- (UIView *)viewWithTag:(NSInteger)tag {
  if ([self tag] == tag) return self;
  for (UIView *subview in [self subviews]) {
    if (UIView *found = [subview viewWithTag:tag]) return found;
  }
  return nil;
}

- (void)setNeedsLayout {
  _state->needsLayout = true;
}

- (void)layoutIfNeeded {
  UIView *top = self;
  while (top->_state->superview && top->_state->superview->_state->needsLayout) top = top->_state->superview;
  [top updateConstraintsIfNeeded];
  // What lies in one view may move another one that was laid out before.
  const sim::LayoutPass pass;
  for (int round = 0; round < kMostLayoutRounds; ++round) {
    layOut(top);
    if (!needsLayout(top)) break;
  }
}

- (void)layoutSubviews {
}

- (BOOL)endEditing:(BOOL)force {
  (void)force;
  UIResponder *first = SIMFirstResponder();
  if (![first isKindOfClass:[UIView class]] || ![(UIView *)first isDescendantOfView:self]) return YES;
  return [first resignFirstResponder];
}

@end
