#import <UIKit/UIStackView.h>

#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <vector>

namespace sim {

struct ArrangedView {
  objcxx::Retained<UIView> view;
  CGFloat spacingAfter = UIStackViewSpacingUseDefault;
};

struct UIStackViewState {
  std::vector<ArrangedView> arranged;
  UILayoutConstraintAxis axis = UILayoutConstraintAxisHorizontal;
  UIStackViewDistribution distribution = UIStackViewDistributionFill;
  UIStackViewAlignment alignment = UIStackViewAlignmentFill;
  CGFloat spacing = 0;
  BOOL baselineRelative = NO;
  BOOL marginsRelative = NO;
  bool isArranged = false;  ///< Whether `constraints` are those of the present arrangement.
  objcxx::Retained<NSArray> constraints;
  objcxx::Retained<NSArray> guides;

  std::vector<ArrangedView>::iterator find(UIView *view) {
    return std::find_if(arranged.begin(), arranged.end(), [view](const auto &each) { return each.view.get() == view; });
  }
};

}  // namespace sim

namespace {

constexpr CGFloat kSystemSpacing = 8;
// Below everything that anybody wishes: what nothing else decides is as small as it gets.
constexpr float kShrinks = 1;
constexpr float kKeepsToTheTop = 2;
constexpr float kCentres = 149;
constexpr float kAlmostRequired = 999;

/// The attributes along the row and across it.
struct Attributes {
  NSLayoutAttribute start, end, center, size;
};

Attributes attributesOf(UILayoutConstraintAxis axis) {
  if (axis == UILayoutConstraintAxisHorizontal) {
    return {NSLayoutAttributeLeading, NSLayoutAttributeTrailing, NSLayoutAttributeCenterX, NSLayoutAttributeWidth};
  }
  return {NSLayoutAttributeTop, NSLayoutAttributeBottom, NSLayoutAttributeCenterY, NSLayoutAttributeHeight};
}

/// Makes the constraints of one arrangement.
class Arranger final {
 public:
  Arranger(UIStackView *stack, const sim::UIStackViewState &state)
      : stack_(stack), frame_(state.marginsRelative ? (id)stack.layoutMarginsGuide : (id)stack), state_(state) {
    for (const sim::ArrangedView &each : state.arranged) {
      if (![each.view.get() isHidden]) shown_.push_back(&each);
    }
    along_ = attributesOf(state.axis);
    across_ = attributesOf(state.axis == UILayoutConstraintAxisHorizontal ? UILayoutConstraintAxisVertical
                                                                          : UILayoutConstraintAxisHorizontal);
  }

  void arrange() {
    const auto equal = NSLayoutRelationEqual;
    wish(relate(stack_, along_.size, equal, nil, NSLayoutAttributeNotAnAttribute, 0), kShrinks);
    wish(relate(stack_, across_.size, equal, nil, NSLayoutAttributeNotAnAttribute, 0), kShrinks);
    if (shown_.empty()) return;
    relate(first(), along_.start, equal, frame_, along_.start, 0);
    relate(shown_.back()->view.get(), along_.end, equal, frame_, along_.end, 0);
    for (std::size_t at = 1; at < shown_.size(); ++at) space(at);
    for (std::size_t at = 0; at < shown_.size(); ++at) {
      if (at > 0) relateSizes(shown_[at]->view.get());
      align(shown_[at]->view.get());
    }
  }

  NSArray *constraints() const { return constraints_; }
  NSArray *guides() const { return guides_; }

 private:
  UIView *first() const { return shown_.front()->view.get(); }

  NSLayoutConstraint *relate(id one, NSLayoutAttribute attribute, NSLayoutRelation relation, id other,
                             NSLayoutAttribute otherAttribute, CGFloat constant, CGFloat multiplier = 1) {
    NSLayoutConstraint *made = [NSLayoutConstraint constraintWithItem:one
                                                            attribute:attribute
                                                            relatedBy:relation
                                                               toItem:other
                                                            attribute:otherAttribute
                                                           multiplier:multiplier
                                                             constant:constant];
    [constraints_ addObject:made];
    return made;
  }

  static void wish(NSLayoutConstraint *constraint, float priority) { [constraint setPriority:priority]; }

  UILayoutGuide *makeGuide() {
    UILayoutGuide *guide = [[[UILayoutGuide alloc] init] autorelease];
    [guides_ addObject:guide];
    [stack_ addLayoutGuide:guide];
    return guide;
  }

  CGFloat spacingBefore(std::size_t at) const {
    const CGFloat own = shown_[at - 1]->spacingAfter;
    if (own == UIStackViewSpacingUseDefault) {
      return state_.spacing == UIStackViewSpacingUseSystem ? kSystemSpacing : state_.spacing;
    }
    return own == UIStackViewSpacingUseSystem ? kSystemSpacing : own;
  }

  /// Between a view and the one before.
  void space(std::size_t at) {
    UIView *before = shown_[at - 1]->view.get();
    UIView *view = shown_[at]->view.get();
    const bool byBaselines = state_.baselineRelative && state_.axis == UILayoutConstraintAxisVertical;
    const NSLayoutAttribute end = byBaselines ? NSLayoutAttributeLastBaseline : along_.end;
    const NSLayoutAttribute start = byBaselines ? NSLayoutAttributeFirstBaseline : along_.start;
    const bool spreads = state_.distribution == UIStackViewDistributionEqualSpacing ||
                         state_.distribution == UIStackViewDistributionEqualCentering;
    relate(view, start, spreads ? NSLayoutRelationGreaterThanOrEqual : NSLayoutRelationEqual, before, end,
           spacingBefore(at));
    if (!spreads || shown_.size() < 3) return;
    const bool isOfGaps = state_.distribution == UIStackViewDistributionEqualSpacing;
    UILayoutGuide *gap = makeGuide();
    relate(gap, along_.start, NSLayoutRelationEqual, before, isOfGaps ? end : along_.center, 0);
    relate(gap, along_.end, NSLayoutRelationEqual, view, isOfGaps ? start : along_.center, 0);
    if (at == 1) return;
    NSLayoutConstraint *same = relate(gap, along_.size, NSLayoutRelationEqual, [guides_ firstObject], along_.size, 0);
    if (!isOfGaps) wish(same, kCentres);
  }

  void relateSizes(UIView *view) {
    if (state_.distribution == UIStackViewDistributionFillEqually) {
      relate(view, along_.size, NSLayoutRelationEqual, first(), along_.size, 0);
    } else if (state_.distribution == UIStackViewDistributionFillProportionally) {
      const auto lengthOf = [this](UIView *each) {
        const CGSize size = [each intrinsicContentSize];
        return state_.axis == UILayoutConstraintAxisHorizontal ? size.width : size.height;
      };
      const CGFloat own = lengthOf(view);
      const CGFloat firsts = lengthOf(first());
      if (!(own > 0) || !(firsts > 0)) return;
      wish(relate(view, along_.size, NSLayoutRelationEqual, first(), along_.size, 0, own / firsts), kAlmostRequired);
    }
  }

  void align(UIView *view) {
    const auto same = [&](NSLayoutAttribute attribute) {
      return relate(view, attribute, NSLayoutRelationEqual, frame_, attribute, 0);
    };
    const auto within = [&] {
      relate(view, across_.start, NSLayoutRelationGreaterThanOrEqual, frame_, across_.start, 0);
      relate(view, across_.end, NSLayoutRelationLessThanOrEqual, frame_, across_.end, 0);
    };
    switch (state_.alignment) {
      case UIStackViewAlignmentFill:
        same(across_.start);
        same(across_.end);
        return;
      case UIStackViewAlignmentLeading: same(across_.start); break;
      case UIStackViewAlignmentCenter: same(across_.center); break;
      case UIStackViewAlignmentTrailing: same(across_.end); break;
      case UIStackViewAlignmentFirstBaseline:
      case UIStackViewAlignmentLastBaseline: {
        const auto baseline = state_.alignment == UIStackViewAlignmentFirstBaseline ? NSLayoutAttributeFirstBaseline
                                                                                    : NSLayoutAttributeLastBaseline;
        wish(same(across_.start), kKeepsToTheTop);
        if (view != first() && state_.axis == UILayoutConstraintAxisHorizontal) {
          relate(view, baseline, NSLayoutRelationEqual, first(), baseline, 0);
        }
        break;
      }
    }
    within();
  }

  UIStackView *stack_;
  id frame_;  ///< What the row fills: the stack view or the guide of its margins.
  const sim::UIStackViewState &state_;
  std::vector<const sim::ArrangedView *> shown_;
  Attributes along_{}, across_{};
  NSMutableArray *constraints_ = [NSMutableArray array];
  NSMutableArray *guides_ = [NSMutableArray array];
};

}  // namespace

@implementation UIStackView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _stackState = std::make_unique<sim::UIStackViewState>();
  return self;
}

- (instancetype)initWithArrangedSubviews:(NSArray *)views {
  if (!(self = [self initWithFrame:CGRectZero])) return nil;
  for (UIView *view in views) [self addArrangedSubview:view];
  return self;
}

- (NSArray *)arrangedSubviews {
  NSMutableArray *views = [NSMutableArray array];
  for (const auto &each : _stackState->arranged) [views addObject:each.view.get()];
  return views;
}

- (void)addArrangedSubview:(UIView *)view {
  if (!view || _stackState->find(view) != _stackState->arranged.end()) return;
  [self insertArrangedSubview:view atIndex:_stackState->arranged.size()];
}

- (void)insertArrangedSubview:(UIView *)view atIndex:(NSUInteger)stackIndex {
  if (!view) [NSException raise:NSInvalidArgumentException format:@"There is no view to arrange."];
  auto &arranged = _stackState->arranged;
  const auto former = _stackState->find(view);
  sim::ArrangedView moved{objcxx::share(view)};
  const bool isMove = former != arranged.end();
  if (stackIndex > arranged.size() - (isMove ? 1 : 0)) {
    [NSException raise:NSRangeException
                format:@"There is no place %lu among %lu arranged views.", (unsigned long)stackIndex,
                       (unsigned long)arranged.size()];
  }
  if (isMove) {
    moved = *former;
    arranged.erase(former);
  } else {
    if ([view superview] != self) [self addSubview:view];
    [view setTranslatesAutoresizingMaskIntoConstraints:NO];
  }
  arranged.insert(arranged.begin() + static_cast<std::ptrdiff_t>(stackIndex), moved);
  [self sim_arrangementChanged];
}

- (void)removeArrangedSubview:(UIView *)view {
  const auto at = _stackState->find(view);
  if (at == _stackState->arranged.end()) return;
  _stackState->arranged.erase(at);
  [self sim_arrangementChanged];
}

- (void)willRemoveSubview:(UIView *)subview {
  [super willRemoveSubview:subview];
  [self removeArrangedSubview:subview];
}

- (UILayoutConstraintAxis)axis {
  return _stackState->axis;
}

- (void)setAxis:(UILayoutConstraintAxis)axis {
  _stackState->axis = axis;
  [self sim_arrangementChanged];
}

- (UIStackViewDistribution)distribution {
  return _stackState->distribution;
}

- (void)setDistribution:(UIStackViewDistribution)distribution {
  _stackState->distribution = distribution;
  [self sim_arrangementChanged];
}

- (UIStackViewAlignment)alignment {
  return _stackState->alignment;
}

- (void)setAlignment:(UIStackViewAlignment)alignment {
  _stackState->alignment = alignment;
  [self sim_arrangementChanged];
}

- (CGFloat)spacing {
  return _stackState->spacing;
}

- (void)setSpacing:(CGFloat)spacing {
  _stackState->spacing = spacing;
  [self sim_arrangementChanged];
}

- (void)setCustomSpacing:(CGFloat)spacing afterView:(UIView *)view {
  const auto at = _stackState->find(view);
  if (at == _stackState->arranged.end()) return;
  at->spacingAfter = spacing;
  [self sim_arrangementChanged];
}

- (CGFloat)customSpacingAfterView:(UIView *)view {
  const auto at = _stackState->find(view);
  return at == _stackState->arranged.end() ? UIStackViewSpacingUseDefault : at->spacingAfter;
}

- (BOOL)isBaselineRelativeArrangement {
  return _stackState->baselineRelative;
}

- (void)setBaselineRelativeArrangement:(BOOL)relative {
  _stackState->baselineRelative = relative;
  [self sim_arrangementChanged];
}

- (BOOL)isLayoutMarginsRelativeArrangement {
  return _stackState->marginsRelative;
}

- (void)setLayoutMarginsRelativeArrangement:(BOOL)relative {
  _stackState->marginsRelative = relative;
  [self sim_arrangementChanged];
}

- (void)sim_arrangementChanged {
  _stackState->isArranged = false;
  [self setNeedsUpdateConstraints];
}

/// The proportions of the row follow from the sizes.
- (void)sim_contentOfSubviewChanged {
  if (_stackState->distribution == UIStackViewDistributionFillProportionally) [self sim_arrangementChanged];
}

- (void)updateConstraints {
  auto &state = *_stackState;
  if (!state.isArranged) {
    state.isArranged = true;
    [NSLayoutConstraint deactivateConstraints:state.constraints.get()];
    for (UILayoutGuide *guide in state.guides.get()) [self removeLayoutGuide:guide];
    Arranger arranger(self, state);
    arranger.arrange();
    [NSLayoutConstraint activateConstraints:arranger.constraints()];
    state.constraints = objcxx::share(arranger.constraints());
    state.guides = objcxx::share(arranger.guides());
  }
  [super updateConstraints];
}

/// The view whose text the row's first, or last, baseline is of.
- (UIView *)viewForFirstBaselineLayout {
  return _stackState->arranged.empty() ? self : [_stackState->arranged.front().view.get() viewForFirstBaselineLayout];
}

- (UIView *)viewForLastBaselineLayout {
  return _stackState->arranged.empty() ? self : [_stackState->arranged.back().view.get() viewForLastBaselineLayout];
}

@end
