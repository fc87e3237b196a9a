#import <UIKit/LayoutEquations.h>

#import <UIKit/LayoutProblem.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UITableView.h>
#import <UIKit/UIViewLayout.h>

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

unsigned long lastVisit = 0;

double along(CGPoint point, LayoutAxis axis) { return axis == LayoutAxis::kHorizontal ? point.x : point.y; }
double along(CGSize size, LayoutAxis axis) { return axis == LayoutAxis::kHorizontal ? size.width : size.height; }
double before(UIEdgeInsets insets, LayoutAxis axis) {
  return axis == LayoutAxis::kHorizontal ? insets.left : insets.top;
}
double after(UIEdgeInsets insets, LayoutAxis axis) {
  return axis == LayoutAxis::kHorizontal ? insets.right : insets.bottom;
}

bool isSize(NSLayoutAttribute attribute) {
  return attribute == NSLayoutAttributeWidth || attribute == NSLayoutAttributeHeight;
}

bool isScrollView(UIView *view) { return [view isKindOfClass:[UIScrollView class]]; }

/// Insets follow from where the view and those that it is in lie.
void insetsAreRead(UIView *view) {
  for (; view; view = [view superview]) [view sim_layout].bearsOnProblems = true;
}

bool hasInsets(GuideKind kind) {
  return kind != GuideKind::kCustom && kind != GuideKind::kScrollContent && kind != GuideKind::kScrollFrame;
}

bool isContent(const LayoutItem &item) {
  return item.guide && [item.guide sim_state].kind == GuideKind::kScrollContent;
}

}  // namespace

LayoutAxis layoutAxisOf(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttributeLeft:
    case NSLayoutAttributeRight:
    case NSLayoutAttributeLeading:
    case NSLayoutAttributeTrailing:
    case NSLayoutAttributeWidth:
    case NSLayoutAttributeCenterX:
    case NSLayoutAttributeLeftMargin:
    case NSLayoutAttributeRightMargin:
    case NSLayoutAttributeLeadingMargin:
    case NSLayoutAttributeTrailingMargin:
    case NSLayoutAttributeCenterXWithinMargins: return LayoutAxis::kHorizontal;
    default: return LayoutAxis::kVertical;
  }
}

LayoutEquations::LayoutEquations(UIView *root) : root_(root), visit_(++lastVisit) {}

void LayoutEquations::Sum::add(const Sum &other, double factor) {
  constant += factor * other.constant;
  for (const LayoutTerm &term : other.terms) terms.push_back({term.variable, factor * term.coefficient});
}

void LayoutEquations::gather(LayoutItem &start) {
  (void)placeFor(start);
  for (std::size_t at = 0; at < members_.size(); ++at) {
    LayoutItem &member = *members_[at];
    takeMentionsOf(member);
    // What is said in a scroll view of its edges is said of its content, and of a view's guides of the view.
    if (isContent(member)) takeMentionsOf([member.host() sim_layout].item);
    if (!member.view) continue;
    for (const auto &guide : [member.view sim_layout].systemGuides) {
      if (guide) takeMentionsOf([guide.get() sim_state].item);
    }
  }
  std::sort(made_.begin(), made_.end(), [](const Made &a, const Made &b) { return a.order < b.order; });
  for (Made &made : made_) {
    equations_.push_back(std::move(made.equation));
    sources_.push_back(made.source);
  }
  for (std::size_t place = 0; place < members_.size(); ++place) addContentOf(place);
}

void LayoutEquations::wish(UIView *view, LayoutAxis axis, double length, double priority) {
  Sum sum = lengthOf(view, axis);
  add(std::move(sum), LayoutRelation::kEqual, length, priority);
}

LayoutSolution LayoutEquations::solution() const {
  std::vector<LayoutEquation> equations = equations_;
  LayoutSolution solution = solveLayout(variableCount(), equations);
  keepFromTurningOver(equations, solution);
  constexpr int kMostRounds = 3;  // A height that bears on the width of its text may never settle.
  for (int round = 0; round < kMostRounds && wrapTexts(equations, solution); ++round) {
    solution = solveLayout(variableCount(), equations);
    keepFromTurningOver(equations, solution);
  }
  return solution;
}

std::size_t LayoutEquations::placeFor(LayoutItem &item) {
  if (item.visit != visit_) {
    item.visit = visit_;
    item.visitPlace = members_.size();
    members_.push_back(&item);
  }
  return item.visitPlace;
}

bool LayoutEquations::isUnknown(UIView *view) const { return view == root_ || isPlacedByConstraints(view); }

LayoutEquations::Sum LayoutEquations::variable(LayoutItem &item, LayoutAxis axis, bool isLength) {
  Sum sum;
  sum.terms.push_back({static_cast<int>(placeFor(item) * 4 + static_cast<std::size_t>(axis) * 2 + isLength), 1});
  return sum;
}

LayoutEquations::Sum LayoutEquations::lengthOf(UIView *view, LayoutAxis axis) {
  if (isUnknown(view)) return variable([view sim_layout].item, axis, true);
  [view sim_layout].bearsOnProblems = true;
  return Sum(along([view bounds].size, axis));
}

LayoutEquations::Sum LayoutEquations::startOf(UIView *view, LayoutAxis axis) {
  if (isPlacedByConstraints(view)) return variable([view sim_layout].item, axis, false);
  [view sim_layout].bearsOnProblems = true;
  return Sum(along([view center], axis) - along([view bounds].size, axis) / 2);
}

/// The content of a scroll view, in its coordinates. That of a table view is its own affair.
LayoutEquations::Line LayoutEquations::contentLine(UIScrollView *view, LayoutAxis axis) {
  if ([view isKindOfClass:[UITableView class]]) {
    [view sim_layout].bearsOnProblems = true;
    return {Sum(0), axis == LayoutAxis::kHorizontal ? lengthOf(view, axis) : Sum([view contentSize].height)};
  }
  return {Sum(0), variable([[view contentLayoutGuide] sim_state].item, axis, true)};
}

LayoutEquations::Line LayoutEquations::guideLine(UILayoutGuide *guide, LayoutAxis axis) {
  LayoutGuideState &state = [guide sim_state];
  UIView *owner = state.owner;
  if (hasInsets(state.kind)) insetsAreRead(owner);
  const double origin = along([owner bounds].origin, axis);
  const auto inset = [&](UIEdgeInsets insets) {
    Line line{Sum(origin + before(insets, axis)), lengthOf(owner, axis)};
    line.length.constant -= before(insets, axis) + after(insets, axis);
    return line;
  };
  switch (state.kind) {
    case GuideKind::kCustom: return {variable(state.item, axis, false), variable(state.item, axis, true)};
    case GuideKind::kSafeArea: return inset([owner safeAreaInsets]);
    case GuideKind::kMargins: return inset([owner layoutMargins]);
    case GuideKind::kReadable: return inset(readableInsets(owner));
    case GuideKind::kScrollFrame: return inset(UIEdgeInsetsZero);
    case GuideKind::kScrollContent: return contentLine((UIScrollView *)owner, axis);
    case GuideKind::kTop:
      if (axis == LayoutAxis::kHorizontal) return inset(UIEdgeInsetsZero);
      return {Sum(origin), Sum([owner safeAreaInsets].top)};
    case GuideKind::kBottom: {
      Line line = inset(UIEdgeInsetsZero);
      if (axis == LayoutAxis::kHorizontal) return line;
      const double covered = [owner safeAreaInsets].bottom;
      line.start.add(line.length, 1);
      line.start.constant -= covered;
      line.length = Sum(covered);
      return line;
    }
  }
  return {};
}

/// Where the item lies in the coordinates of `ancestor`, which it is in or is itself.
LayoutEquations::Line LayoutEquations::lineIn(UIView *ancestor, const LayoutItem &item, const LayoutItem *other,
                                              LayoutAxis axis) {
  Line line;
  UIView *container;
  if (item.guide) {
    line = guideLine(item.guide, axis);
    container = item.host();
  } else if (item.view == ancestor) {
    const bool isOfContent = isScrollView(ancestor) && other && other->host() != ancestor;
    if (isOfContent) return contentLine((UIScrollView *)ancestor, axis);
    return {Sum(along([ancestor bounds].origin, axis)), lengthOf(ancestor, axis)};
  } else {
    line = {startOf(item.view, axis), lengthOf(item.view, axis)};
    container = [item.view superview];
  }
  for (; container && container != ancestor; container = [container superview]) {
    line.start.add(startOf(container, axis), 1);
    line.start.constant -= along([container bounds].origin, axis);
  }
  return line;
}

LayoutEquations::Sum LayoutEquations::valueOf(const LayoutItem &item, NSLayoutAttribute attribute, UIView *ancestor,
                                              const LayoutItem *other) {
  const LayoutAxis axis = layoutAxisOf(attribute);
  // Sizes of a scroll view are those of its frame, also for what is in it.
  if (isSize(attribute)) return item.guide ? guideLine(item.guide, axis).length : lengthOf(item.view, axis);
  Line line = lineIn(ancestor, item, other, axis);
  Sum value = line.start;
  const bool hasMargins = item.view && attribute >= NSLayoutAttributeLeftMargin;
  if (hasMargins) insetsAreRead(item.view);
  const UIEdgeInsets margins = hasMargins ? [item.view layoutMargins] : UIEdgeInsetsZero;
  switch (attribute) {
    case NSLayoutAttributeRight:
    case NSLayoutAttributeTrailing:
    case NSLayoutAttributeBottom: value.add(line.length, 1); break;
    case NSLayoutAttributeCenterX:
    case NSLayoutAttributeCenterY: value.add(line.length, 0.5); break;
    case NSLayoutAttributeFirstBaseline:
      if (Baselines baselines; [[item.view viewForFirstBaselineLayout] sim_getBaselines:baselines]) {
        value.constant += baselines.firstFromTop;
      } else {
        value.add(line.length, 1);
      }
      break;
    case NSLayoutAttributeLastBaseline: {
      Baselines baselines;
      (void)[[item.view viewForLastBaselineLayout] sim_getBaselines:baselines];
      value.add(line.length, 1);
      value.constant -= baselines.lastFromBottom;
      break;
    }
    case NSLayoutAttributeLeftMargin:
    case NSLayoutAttributeLeadingMargin:
    case NSLayoutAttributeTopMargin: value.constant += before(margins, axis); break;
    case NSLayoutAttributeRightMargin:
    case NSLayoutAttributeTrailingMargin:
    case NSLayoutAttributeBottomMargin:
      value.add(line.length, 1);
      value.constant -= after(margins, axis);
      break;
    case NSLayoutAttributeCenterXWithinMargins:
    case NSLayoutAttributeCenterYWithinMargins:
      value.add(line.length, 0.5);
      value.constant += (before(margins, axis) - after(margins, axis)) / 2;
      break;
    default: break;
  }
  return value;
}

void LayoutEquations::takeMentionsOf(LayoutItem &member) {
  for (NSLayoutConstraint *constraint : member.mentions) {
    LayoutConstraintState &state = [constraint sim_state];
    if (!state.holder || state.visit == visit_) continue;
    if (root_ && ![state.ancestor isDescendantOfView:root_]) continue;
    state.visit = visit_;
    take(constraint, state);
  }
}

void LayoutEquations::take(NSLayoutConstraint *constraint, const LayoutConstraintState &state) {
  Sum sum = valueOf(*state.first, state.firstAttribute, state.ancestor, state.second);
  if (state.second)
    sum.add(valueOf(*state.second, state.secondAttribute, state.ancestor, state.first), -state.multiplier);
  const double constant = state.constant - sum.constant;
  made_.push_back({state.order,
                   {std::move(sum.terms), static_cast<LayoutRelation>(state.relation), constant, state.priority},
                   constraint});
}

void LayoutEquations::add(Sum sum, LayoutRelation relation, double constant, double priority) {
  equations_.push_back({std::move(sum.terms), relation, constant - sum.constant, priority});
}

/// A view is as large as its content: no larger with its hugging, no smaller with its resistance.
void LayoutEquations::addContentOf(std::size_t place) {
  UIView *view = members_[place]->view;
  revisions_.push_back(0);
  if (!view) return;
  ViewLayout &layout = [view sim_layout];
  if (!layout.contentSize) {
    const CGSize size = [view intrinsicContentSize];
    layout.contentSize = size;
  }
  revisions_.back() = layout.contentRevision;
  const CGSize size = *layout.contentSize;
  const bool wraps = [view sim_contentHeightForWidth:CGFLOAT_MAX] >= 0;
  for (const LayoutAxis axis : {LayoutAxis::kHorizontal, LayoutAxis::kVertical}) {
    const double length = along(size, axis);
    if (!(length >= 0) || !std::isfinite(length)) continue;
    const auto direction = static_cast<UILayoutConstraintAxis>(axis);
    const double hugging = [view contentHuggingPriorityForAxis:direction];
    const double resistance = [view contentCompressionResistancePriorityForAxis:direction];
    const std::size_t first = equations_.size();
    const auto addOne = [&](LayoutRelation relation, double priority) {
      if (priority > 0) add(variable(*members_[place], axis, true), relation, length, priority);
    };
    if (hugging == resistance) {
      addOne(LayoutRelation::kEqual, hugging);
    } else {
      addOne(LayoutRelation::kAtMost, hugging);
      addOne(LayoutRelation::kAtLeast, resistance);
    }
    if (axis == LayoutAxis::kVertical && wraps) {
      wrappings_.push_back({view, place, first, equations_.size() - first, size});
    }
  }
  sources_.resize(equations_.size(), nil);
}

/// Nothing is less than nothing wide. Said where it would come out so alone, as it hardly ever does.
void LayoutEquations::keepFromTurningOver(std::vector<LayoutEquation> &equations, LayoutSolution &solution) const {
  constexpr double kAlmostRequired = 999.5;
  const std::size_t count = equations.size();
  for (std::size_t variable = 1; variable < solution.values.size(); variable += 2) {
    if (solution.values[variable] >= -1e-6) continue;
    equations.push_back({{{static_cast<int>(variable), 1}}, LayoutRelation::kAtLeast, 0, kAlmostRequired});
  }
  if (equations.size() > count) solution = solveLayout(variableCount(), equations);
}

/// Whether any text takes another height than it was said to.
bool LayoutEquations::wrapTexts(std::vector<LayoutEquation> &equations, const LayoutSolution &solution) const {
  bool hasChanged = false;
  for (const Wrapping &wrapping : wrappings_) {
    const double width = solution.values[wrapping.place * 4 + 1];
    const bool fits = width > wrapping.unwrapped.width - 0.01;
    const double height = fits ? wrapping.unwrapped.height : [wrapping.view sim_contentHeightForWidth:width];
    for (std::size_t at = 0; at < wrapping.equationCount; ++at) {
      double &constant = equations[wrapping.firstEquation + at].constant;
      hasChanged = hasChanged || constant != height;
      constant = height;
    }
  }
  return hasChanged;
}

}  // namespace sim
