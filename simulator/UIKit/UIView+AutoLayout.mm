// Constraints, layout guides and sizes of content of a view, and its place by them.
#import "LayoutProblem.h"

#import <UIKit/LayoutState.h>
#import <UIKit/NSLayoutConstraint+Sim.h>
#import <UIKit/UINavigationBar.h>
#import <UIKit/UITableView.h>
#import <UIKit/UITableViewHeaderFooterView.h>
#import <UIKit/UIViewLayout.h>
#import <UIKit/UIViewController.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

const CGSize UILayoutFittingCompressedSize = {0, 0};
const CGSize UILayoutFittingExpandedSize = {10000, 10000};

namespace {

const UILayoutPriority kDefaultResistance = UILayoutPriorityDefaultHigh;

/// Of `items` those that are not, or not only, about what is in `tree`.
void leaveAllAround(sim::LayoutItem &item, UIView *tree) {
  const std::vector<NSLayoutConstraint *> mentions = item.mentions;
  for (NSLayoutConstraint *constraint : mentions) {
    UIView *holder = [constraint sim_state].holder;
    if (holder && ![holder isDescendantOfView:tree]) [constraint setActive:NO];
  }
}

UILayoutPriority checked(UILayoutPriority priority) {
  if (priority > 0 && priority <= UILayoutPriorityRequired) return priority;
  [NSException raise:NSInternalInconsistencyException
              format:@"It's illegal to set priority:%f. Priorities must be greater than 0 and less or equal to 1000.",
                     double(priority)];
  return priority;
}

}  // namespace

@implementation UIView (LayoutState)

- (sim::ViewLayout &)sim_layout {
  if (!_state->layout) _state->layout = std::make_unique<sim::ViewLayout>(self);
  return *_state->layout;
}

- (sim::ViewLayout *)sim_layoutIfMade {
  return _state->layout.get();
}

- (UILayoutGuide *)sim_guideOfKind:(sim::GuideKind)kind {
  auto &guide = [self sim_layout].systemGuides[static_cast<std::size_t>(kind)];
  if (!guide) guide = objcxx::adopt([[UILayoutGuide alloc] sim_initWithKind:kind owner:self]);
  return guide.get();
}

- (void)sim_dropConstraintsAround {
  [self sim_dropConstraintsAroundTree:self];
}

- (void)sim_dropConstraintsAroundTree:(UIView *)tree {
  if (sim::ViewLayout *layout = _state->layout.get()) {
    leaveAllAround(layout->item, tree);
    for (const auto &guide : layout->guides) leaveAllAround([guide.get() sim_state].item, tree);
    for (const auto &guide : layout->systemGuides) {
      if (guide) leaveAllAround([guide.get() sim_state].item, tree);
    }
  }
  for (const auto &subview : _state->subviews) [subview.get() sim_dropConstraintsAroundTree:tree];
}

@end

@implementation UIView (UIConstraintBasedLayoutInstallingConstraints)

- (NSArray *)constraints {
  NSMutableArray *constraints = [NSMutableArray array];
  if (_state->layout) {
    for (const auto &constraint : _state->layout->constraints) [constraints addObject:constraint.get()];
  }
  return constraints;
}

- (void)addConstraint:(NSLayoutConstraint *)constraint {
  if (!constraint) [NSException raise:NSInvalidArgumentException format:@"There is no constraint to add."];
  const sim::LayoutConstraintState &state = [constraint sim_state];
  if (state.holder == self) return;
  const auto isInside = [self](const sim::LayoutItem *item) {
    UIView *host = item ? item->host() : nil;
    return host && [host isDescendantOfView:self];
  };
  if (!isInside(state.first) || (state.second && !isInside(state.second))) {
    [NSException raise:NSGenericException
                format:@"Unable to install constraint %@ on view %@. Does the constraint reference something from "
                       @"outside the subtree of the view? That's illegal.",
                       constraint, self];
  }
  const auto kept = objcxx::share(constraint);
  [constraint setActive:NO];
  [constraint sim_joinView:self];
}

- (void)addConstraints:(NSArray *)constraints {
  for (NSLayoutConstraint *constraint in constraints) [self addConstraint:constraint];
}

- (void)removeConstraint:(NSLayoutConstraint *)constraint {
  if (constraint && [constraint sim_state].holder == self) [constraint setActive:NO];
}

- (void)removeConstraints:(NSArray *)constraints {
  for (NSLayoutConstraint *constraint in constraints) [self removeConstraint:constraint];
}

@end

@implementation UIView (UIConstraintBasedLayoutCoreMethods)

- (BOOL)needsUpdateConstraints {
  return _state->needsUpdateConstraints;
}

- (void)setNeedsUpdateConstraints {
  _state->needsUpdateConstraints = true;
  [self sim_passOnNeedForConstraints];
  [self setNeedsLayout];
}

- (void)updateConstraints {
}

- (void)updateConstraintsIfNeeded {
  constexpr int kMostRounds = 100;  // Updates that ask for updates are given them, but not for ever.
  for (int round = 0; _state->treeNeedsUpdateConstraints && round < kMostRounds; ++round) {
    _state->treeNeedsUpdateConstraints = false;
    for (UIView *subview in [self subviews]) [subview updateConstraintsIfNeeded];
    if (!_state->needsUpdateConstraints) continue;
    _state->needsUpdateConstraints = false;
    if ([_state->viewController respondsToSelector:@selector(updateViewConstraints)]) {
      [(UIViewController *)_state->viewController updateViewConstraints];
    } else {
      [self updateConstraints];
    }
  }
}

@end

@implementation UIView (UIConstraintBasedCompatibility)

+ (BOOL)requiresConstraintBasedLayout {
  return NO;
}

- (BOOL)translatesAutoresizingMaskIntoConstraints {
  return !_state->layout || _state->layout->translates;
}

- (void)setTranslatesAutoresizingMaskIntoConstraints:(BOOL)translates {
  if (translates == [self translatesAutoresizingMaskIntoConstraints]) return;
  sim::ViewLayout &layout = [self sim_layout];
  layout.translates = translates;
  sim::layoutInputsChanged(layout.item);
}

@end

@implementation UIView (UIConstraintBasedLayoutLayering)

- (CGSize)intrinsicContentSize {
  return CGSizeMake(UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric);
}

- (void)invalidateIntrinsicContentSize {
  [_state->superview sim_contentOfSubviewChanged];
  sim::ViewLayout *layout = _state->layout.get();
  if (!layout) return;
  layout->contentSize.reset();
  ++layout->contentRevision;
  if (layout->item.problem || layout->activeConstraints > 0) sim::layoutInputsChanged(layout->item);
}

- (UILayoutPriority)contentHuggingPriorityForAxis:(UILayoutConstraintAxis)axis {
  const sim::ViewLayout *layout = _state->layout.get();
  const auto set = layout ? layout->hugging[axis == UILayoutConstraintAxisVertical] : std::nullopt;
  return set ? *set : [self sim_defaultHuggingForAxis:axis];
}

- (void)setContentHuggingPriority:(UILayoutPriority)priority forAxis:(UILayoutConstraintAxis)axis {
  sim::ViewLayout &layout = [self sim_layout];
  layout.hugging[axis == UILayoutConstraintAxisVertical] = checked(priority);
  sim::layoutInputsChanged(layout.item);
}

- (UILayoutPriority)contentCompressionResistancePriorityForAxis:(UILayoutConstraintAxis)axis {
  const sim::ViewLayout *layout = _state->layout.get();
  const auto set = layout ? layout->resistance[axis == UILayoutConstraintAxisVertical] : std::nullopt;
  return set ? *set : kDefaultResistance;
}

- (void)setContentCompressionResistancePriority:(UILayoutPriority)priority forAxis:(UILayoutConstraintAxis)axis {
  sim::ViewLayout &layout = [self sim_layout];
  layout.resistance[axis == UILayoutConstraintAxisVertical] = checked(priority);
  sim::layoutInputsChanged(layout.item);
}

- (UIView *)viewForFirstBaselineLayout {
  return [self viewForLastBaselineLayout];
}

- (UIView *)viewForLastBaselineLayout {
  return self;
}

@end

@implementation UIView (UIConstraintBasedLayoutFittingSize)

- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize {
  return [self systemLayoutSizeFittingSize:targetSize
             withHorizontalFittingPriority:UILayoutPriorityFittingSizeLevel
                   verticalFittingPriority:UILayoutPriorityFittingSizeLevel];
}

- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize
        withHorizontalFittingPriority:(UILayoutPriority)horizontalFittingPriority
              verticalFittingPriority:(UILayoutPriority)verticalFittingPriority {
  [self updateConstraintsIfNeeded];
  return sim::fittingSize(self, targetSize, horizontalFittingPriority, verticalFittingPriority);
}

@end

@implementation UIView (UILayoutGuideSupport)

- (NSArray *)layoutGuides {
  NSMutableArray *guides = [NSMutableArray array];
  if (_state->layout) {
    for (const auto &guide : _state->layout->guides) [guides addObject:guide.get()];
  }
  return guides;
}

- (void)addLayoutGuide:(UILayoutGuide *)guide {
  if (!guide || [guide sim_state].owner == self) return;
  const auto kept = objcxx::share(guide);
  [[guide owningView] removeLayoutGuide:guide];
  [guide sim_state].owner = self;
  [self sim_layout].guides.push_back(kept);
}

- (void)removeLayoutGuide:(UILayoutGuide *)guide {
  if (!guide || [guide sim_state].owner != self || [guide sim_state].kind != sim::GuideKind::kCustom) return;
  const auto kept = objcxx::share(guide);
  const std::vector<NSLayoutConstraint *> mentions = [guide sim_state].item.mentions;
  for (NSLayoutConstraint *constraint : mentions) [constraint setActive:NO];
  std::erase_if([self sim_layout].guides, [guide](const auto &own) { return own.get() == guide; });
  [guide sim_state].owner = nil;
}

@end

@implementation UIView (SimLayoutContent)

- (CGFloat)sim_contentHeightForWidth:(CGFloat)width {
  (void)width;
  return -1;
}

- (BOOL)sim_getBaselines:(sim::Baselines &)baselines {
  (void)baselines;
  return NO;
}

- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis {
  (void)axis;
  return UILayoutPriorityDefaultLow;
}

- (void)sim_contentOfSubviewChanged {
}

- (BOOL)sim_isPlacedByFramework {
  if (_state->viewController) return YES;
  for (Class place in @[
         [UITableView class], [UITableViewCell class], [UITableViewHeaderFooterView class], [UINavigationBar class]
       ]) {
    if ([_state->superview isKindOfClass:place]) return YES;
  }
  return NO;
}

- (void)sim_arrangementChanged {
}

- (void)sim_placeByConstraints {
  const auto solved = [](sim::LayoutItem &item) -> sim::LayoutItem & {
    sim::solve(item);
    return item;
  };
  // All first: to move one view is to change what problems are made of.
  NSArray *subviews = [self subviews];
  for (UIView *subview in subviews) {
    if (sim::isPlacedByConstraints(subview)) (void)solved(subview->_state->layout->item);
  }
  if (_state->layout) [self sim_sizeContentByConstraints];
  for (UIView *subview in subviews) {
    if (!sim::isPlacedByConstraints(subview)) continue;
    const sim::LayoutItem &item = subview->_state->layout->item;
    if (!item.problem) continue;
    const CGRect place = sim::placeOf(item);
    CGRect bounds = [subview bounds];
    if (!CGSizeEqualToSize(bounds.size, place.size)) {
      bounds.size = place.size;
      [subview setBounds:bounds];
    }
    const CGPoint center = CGPointMake(CGRectGetMidX(place), CGRectGetMidY(place));
    if (!CGPointEqualToPoint([subview center], center)) [subview setCenter:center];
  }
}

/// Of a scroll view whose content constraints bear on.
- (void)sim_sizeContentByConstraints {
  if (![self isKindOfClass:[UIScrollView class]]) return;
  const auto &guide = _state->layout->systemGuides[static_cast<std::size_t>(sim::GuideKind::kScrollContent)];
  if (!guide) return;
  sim::LayoutItem &content = [guide.get() sim_state].item;
  const auto isActive = [](NSLayoutConstraint *constraint) { return [constraint sim_state].holder != nil; };
  const auto bearsOnContent = [&](const sim::LayoutItem &item) {
    return std::any_of(item.mentions.begin(), item.mentions.end(), isActive);
  };
  if (!content.problem && !bearsOnContent(content)) return;
  sim::solve(content);
  if (content.problem->equations.empty()) return;
  [(UIScrollView *)self setContentSize:sim::placeOf(content).size];
}

- (void)sim_geometryChanged {
  // Only what is around the view has to be laid out by its frame; what is in it is when its size changes.
  const bool bearsOnOthers =
      _state->layout && _state->layout->placingConstraints > 0 && !sim::isPlacedByConstraints(self);
  if (bearsOnOthers) sim::layoutInputsChanged(_state->layout->item);
  else sim::layoutInputsMoved(self);
}

- (void)sim_passOnNeedForConstraints {
  for (UIView *view = self; view; view = view->_state->superview) {
    if (view != self && view->_state->treeNeedsUpdateConstraints) break;
    view->_state->treeNeedsUpdateConstraints = true;
  }
}

@end
