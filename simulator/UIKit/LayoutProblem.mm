#import "LayoutProblem.h"

#import <UIKit/NSText+Sim.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UITableView.h>
#import <UIKit/UIViewLayout.h>

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

unsigned long generation = 1;
unsigned long moves = 0;
unsigned long lastVisit = 0;

enum class Axis : std::size_t { kHorizontal = 0, kVertical = 1 };

/// A sum of variables and a constant.
struct Sum {
  double constant = 0;
  std::vector<LayoutTerm> terms;

  Sum() = default;
  explicit Sum(double value) : constant(value) {}
  void add(const Sum &other, double factor) {
    constant += factor * other.constant;
    for (const LayoutTerm &term : other.terms) terms.push_back({term.variable, factor * term.coefficient});
  }
};

/// Along one axis.
struct Line {
  Sum start, length;
};

double along(CGPoint point, Axis axis) { return axis == Axis::kHorizontal ? point.x : point.y; }
double along(CGSize size, Axis axis) { return axis == Axis::kHorizontal ? size.width : size.height; }
double before(UIEdgeInsets insets, Axis axis) { return axis == Axis::kHorizontal ? insets.left : insets.top; }
double after(UIEdgeInsets insets, Axis axis) { return axis == Axis::kHorizontal ? insets.right : insets.bottom; }

Axis axisOf(NSLayoutAttribute attribute) {
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
    case NSLayoutAttributeCenterXWithinMargins: return Axis::kHorizontal;
    default: return Axis::kVertical;
  }
}

bool isSize(NSLayoutAttribute attribute) {
  return attribute == NSLayoutAttributeWidth || attribute == NSLayoutAttributeHeight;
}

bool isScrollView(UIView *view) { return [view isKindOfClass:[UIScrollView class]]; }

/// Gathers what hangs together with an item, and its equations.
class Maker final {
 public:
  /// With a root its size is unknown, and nothing outside it counts.
  explicit Maker(UIView *root) : root_(root), visit_(++lastVisit) {}

  void gather(LayoutItem &start) {
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

  void wish(UIView *view, Axis axis, double length, double priority) {
    Sum sum = lengthOf(view, axis);
    add(std::move(sum), LayoutRelation::kEqual, length, priority);
  }

  /// Solves, with the heights that texts take in the widths that come out.
  LayoutSolution solution() const {
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

  int variableCount() const { return static_cast<int>(members_.size() * 4); }
  std::vector<LayoutItem *> &members() { return members_; }
  std::vector<LayoutEquation> &equations() { return equations_; }
  std::vector<unsigned long> &revisions() { return revisions_; }
  /// The constraint of an equation; nil for one of a content's size.
  NSLayoutConstraint *sourceOf(std::size_t number) const { return number < sources_.size() ? sources_[number] : nil; }

 private:
  struct Made {
    unsigned long order;
    LayoutEquation equation;
    NSLayoutConstraint *source;
  };
  /// The equations that say how high a text is, whose constant follows its width.
  struct Wrapping {
    UIView *view;
    std::size_t place;
    std::size_t firstEquation, equationCount;
    CGSize unwrapped;
  };

  std::size_t placeFor(LayoutItem &item) {
    if (item.visit != visit_) {
      item.visit = visit_;
      item.visitPlace = members_.size();
      members_.push_back(&item);
    }
    return item.visitPlace;
  }

  bool isUnknown(UIView *view) const { return view == root_ || isPlacedByConstraints(view); }

  static bool isContent(const LayoutItem &item) {
    return item.guide && [item.guide sim_state].kind == GuideKind::kScrollContent;
  }

  Sum variable(LayoutItem &item, Axis axis, bool isLength) {
    Sum sum;
    sum.terms.push_back({static_cast<int>(placeFor(item) * 4 + static_cast<std::size_t>(axis) * 2 + isLength), 1});
    return sum;
  }

  Sum lengthOf(UIView *view, Axis axis) {
    if (isUnknown(view)) return variable([view sim_layout].item, axis, true);
    return Sum(along([view bounds].size, axis));
  }

  Sum startOf(UIView *view, Axis axis) {
    if (isPlacedByConstraints(view)) return variable([view sim_layout].item, axis, false);
    const CGPoint center = [view center];
    return Sum(along(center, axis) - along([view bounds].size, axis) / 2);
  }

  /// The content of a scroll view, in its coordinates. That of a table view is its own affair.
  Line contentLine(UIScrollView *view, Axis axis) {
    if ([view isKindOfClass:[UITableView class]]) {
      return {Sum(0), axis == Axis::kHorizontal ? lengthOf(view, axis) : Sum([view contentSize].height)};
    }
    return {Sum(0), variable([[view contentLayoutGuide] sim_state].item, axis, true)};
  }

  Line guideLine(UILayoutGuide *guide, Axis axis) {
    LayoutGuideState &state = [guide sim_state];
    UIView *owner = state.owner;
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
        if (axis == Axis::kHorizontal) return inset(UIEdgeInsetsZero);
        return {Sum(origin), Sum([owner safeAreaInsets].top)};
      case GuideKind::kBottom: {
        Line line = inset(UIEdgeInsetsZero);
        if (axis == Axis::kHorizontal) return line;
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
  Line lineIn(UIView *ancestor, const LayoutItem &item, const LayoutItem *other, Axis axis) {
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

  Sum valueOf(const LayoutItem &item, NSLayoutAttribute attribute, UIView *ancestor, const LayoutItem *other) {
    const Axis axis = axisOf(attribute);
    // Sizes of a scroll view are those of its frame, also for what is in it.
    if (isSize(attribute)) return item.guide ? guideLine(item.guide, axis).length : lengthOf(item.view, axis);
    Line line = lineIn(ancestor, item, other, axis);
    Sum value = line.start;
    const UIEdgeInsets margins =
        item.view && attribute >= NSLayoutAttributeLeftMargin ? [item.view layoutMargins] : UIEdgeInsetsZero;
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

  void takeMentionsOf(LayoutItem &member) {
    for (NSLayoutConstraint *constraint : member.mentions) {
      LayoutConstraintState &state = [constraint sim_state];
      if (!state.holder || state.visit == visit_) continue;
      if (root_ && ![state.ancestor isDescendantOfView:root_]) continue;
      state.visit = visit_;
      take(constraint, state);
    }
  }

  void take(NSLayoutConstraint *constraint, const LayoutConstraintState &state) {
    Sum sum = valueOf(*state.first, state.firstAttribute, state.ancestor, state.second);
    if (state.second)
      sum.add(valueOf(*state.second, state.secondAttribute, state.ancestor, state.first), -state.multiplier);
    const double constant = state.constant - sum.constant;
    made_.push_back({state.order,
                     {std::move(sum.terms), static_cast<LayoutRelation>(state.relation), constant, state.priority},
                     constraint});
  }

  void add(Sum sum, LayoutRelation relation, double constant, double priority) {
    equations_.push_back({std::move(sum.terms), relation, constant - sum.constant, priority});
  }

  /// A view is as large as its content: no larger with its hugging, no smaller with its resistance.
  void addContentOf(std::size_t place) {
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
    for (const Axis axis : {Axis::kHorizontal, Axis::kVertical}) {
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
      if (axis == Axis::kVertical && wraps) {
        wrappings_.push_back({view, place, first, equations_.size() - first, size});
      }
    }
    sources_.resize(equations_.size(), nil);
  }

  /// Nothing is less than nothing wide. Said where it would come out so alone, as it hardly ever does.
  void keepFromTurningOver(std::vector<LayoutEquation> &equations, LayoutSolution &solution) const {
    constexpr double kAlmostRequired = 999.5;
    const std::size_t count = equations.size();
    for (std::size_t variable = 1; variable < solution.values.size(); variable += 2) {
      if (solution.values[variable] >= -1e-6) continue;
      equations.push_back({{{static_cast<int>(variable), 1}}, LayoutRelation::kAtLeast, 0, kAlmostRequired});
    }
    if (equations.size() > count) solution = solveLayout(variableCount(), equations);
  }

  /// Whether any text takes another height than it was said to.
  bool wrapTexts(std::vector<LayoutEquation> &equations, const LayoutSolution &solution) const {
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

  UIView *root_;
  unsigned long visit_;
  std::vector<LayoutItem *> members_;
  std::vector<Made> made_;
  std::vector<LayoutEquation> equations_;
  std::vector<NSLayoutConstraint *> sources_;
  std::vector<unsigned long> revisions_;
  std::vector<Wrapping> wrappings_;
};

NSString *listOf(NSArray *constraints) {
  NSMutableString *list = [NSMutableString string];
  for (NSLayoutConstraint *constraint in constraints) [list appendFormat:@"\n    \"%@\"", constraint];
  return list;
}

/// Tells of what cannot be satisfied, as a device does.
void tellOfConflict(const Maker &maker, const std::vector<LayoutEquation> &equations, std::size_t broken) {
  NSMutableArray *conflict = [NSMutableArray array];
  for (const std::size_t number : layoutConflict(maker.variableCount(), equations, broken)) {
    if (NSLayoutConstraint *source = maker.sourceOf(number)) [conflict addObject:source];
  }
  NSLog(@"Unable to simultaneously satisfy constraints. Probably at least one of the constraints in the following list "
        @"is one you don't want.\n(%@\n)\nWill attempt to recover by breaking constraint %@",
        listOf(conflict), maker.sourceOf(broken));
}

void tellOfConflicts(Maker &maker, const LayoutSolution &solution, const LayoutProblem *former,
                     LayoutProblem &problem) {
  for (const std::size_t number : solution.broken) {
    NSLayoutConstraint *source = maker.sourceOf(number);
    problem.broken.push_back(source);
    const bool isKnown =
        former && std::find(former->broken.begin(), former->broken.end(), source) != former->broken.end();
    if (!isKnown) tellOfConflict(maker, maker.equations(), number);
  }
}

CGSize contentSizeIn(const LayoutItem &content) {
  const double *values = &content.problem->values[content.place * 4];
  return CGSizeMake(roundedToPixel(values[1]), roundedToPixel(values[3]));
}

/// Whoever places what lies elsewhere now has to do so.
void requestMoves(const LayoutProblem &problem) {
  for (const LayoutItem *member : problem.members) {
    if (member->view) {
      const CGRect place = placeOf(*member);
      const CGRect bounds = [member->view bounds];
      const CGPoint center = [member->view center];
      const bool lies = CGSizeEqualToSize(bounds.size, place.size) && center.x == CGRectGetMidX(place) &&
                        center.y == CGRectGetMidY(place);
      if (lies) continue;
      [[member->view superview] setNeedsLayout];
      ++moves;
    } else if ([member->guide sim_state].kind == GuideKind::kScrollContent) {
      UIScrollView *scroll = (UIScrollView *)member->host();
      if (CGSizeEqualToSize([scroll contentSize], contentSizeIn(*member))) continue;
      [scroll setNeedsLayout];
      ++moves;
    }
  }
}

void requestLayoutOf(const LayoutItem &item) {
  [item.host() setNeedsLayout];
  if (item.view) [[item.view superview] setNeedsLayout];
}

}  // namespace

UIEdgeInsets readableInsets(UIView *view) {
  constexpr CGFloat kReadableWidth = 672;
  UIEdgeInsets insets = [view layoutMargins];
  const CGFloat spare = ([view bounds].size.width - kReadableWidth) / 2;
  insets.left = std::max(insets.left, spare);
  insets.right = std::max(insets.right, spare);
  return insets;
}

CGFloat roundedToPixel(CGFloat points) {
  constexpr double kNoise = 1e-6;  // What is half a pixel but for rounding goes the same way on both edges of a view.
  const double scale = [[UIScreen mainScreen] scale];
  return std::floor(points * scale + 0.5 + kNoise) / scale;
}

void layoutInputsChanged() { ++generation; }

void layoutInputsChanged(LayoutItem &item) {
  ++generation;
  requestLayoutOf(item);
  // Who is placed further away is found when those are solved.
  for (NSLayoutConstraint *mention : item.mentions) {
    const LayoutConstraintState &state = [mention sim_state];
    if (!state.holder) continue;
    if (state.first) requestLayoutOf(*state.first);
    if (state.second) requestLayoutOf(*state.second);
  }
}

unsigned long layoutMoves() { return moves; }

void solve(LayoutItem &item) {
  if (item.problem && item.problem->generation == generation) return;
  const unsigned long present = generation;  // Views that are asked for their content may change something.
  Maker maker(nil);
  maker.gather(item);
  const auto former = item.problem;
  const auto isOfFormer = [&former](const LayoutItem *member) { return member->problem == former; };
  const bool isSame = former && former->members == maker.members() &&
                      std::all_of(former->members.begin(), former->members.end(), isOfFormer) &&
                      former->equations == maker.equations() && former->revisions == maker.revisions();
  if (isSame) {
    former->generation = present;
    return requestMoves(*former);
  }
  auto problem = std::make_shared<LayoutProblem>();
  LayoutSolution solution = maker.solution();
  tellOfConflicts(maker, solution, former.get(), *problem);
  problem->members = std::move(maker.members());
  problem->equations = std::move(maker.equations());
  problem->revisions = std::move(maker.revisions());
  problem->values = std::move(solution.values);
  problem->generation = present;
  for (std::size_t place = 0; place < problem->members.size(); ++place) {
    problem->members[place]->problem = problem;
    problem->members[place]->place = place;
  }
  requestMoves(*problem);
}

CGRect placeOf(const LayoutItem &item) {
  const double *values = &item.problem->values[item.place * 4];
  const CGFloat x = roundedToPixel(values[0]);
  const CGFloat y = roundedToPixel(values[2]);
  return CGRectMake(x, y, std::max<CGFloat>(roundedToPixel(values[0] + values[1]) - x, 0),
                    std::max<CGFloat>(roundedToPixel(values[2] + values[3]) - y, 0));
}

CGSize fittingSize(UIView *view, CGSize target, double horizontalPriority, double verticalPriority) {
  Maker maker(view);
  LayoutItem &item = [view sim_layout].item;
  maker.gather(item);
  maker.wish(view, Axis::kHorizontal, target.width, horizontalPriority);
  maker.wish(view, Axis::kVertical, target.height, verticalPriority);
  const LayoutSolution solution = maker.solution();
  const std::size_t place = item.visitPlace * 4;
  return CGSizeMake(ceiledToPixel(std::max(solution.values[place + 1], 0.0)),
                    ceiledToPixel(std::max(solution.values[place + 3], 0.0)));
}

bool constraintsSayHeight(UIView *view) {
  const ViewLayout *layout = [view sim_layoutIfMade];
  if (!layout) return false;
  const auto saysHeight = [view](const objcxx::Retained<NSLayoutConstraint> &held) {
    const LayoutConstraintState &state = [held.get() sim_state];
    const auto isOf = [view](const LayoutItem *item, NSLayoutAttribute attribute) {
      return item && item->host() == view && axisOf(attribute) == Axis::kVertical;
    };
    return isOf(state.first, state.firstAttribute) || isOf(state.second, state.secondAttribute);
  };
  return std::any_of(layout->constraints.begin(), layout->constraints.end(), saysHeight);
}

}  // namespace sim
