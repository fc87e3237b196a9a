#import <UIKit/LayoutProblem.h>

#import <UIKit/LayoutEquations.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UIViewLayout.h>

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

unsigned long generation = 1;
int passes = 0;

NSString *listOf(NSArray *constraints) {
  NSMutableString *list = [NSMutableString string];
  for (NSLayoutConstraint *constraint in constraints) [list appendFormat:@"\n    \"%@\"", constraint];
  return list;
}

/// Tells of what cannot be satisfied, as a device does.
void tellOfConflict(const LayoutEquations &made, const std::vector<LayoutEquation> &equations, std::size_t broken) {
  NSMutableArray *conflict = [NSMutableArray array];
  for (const std::size_t number : layoutConflict(made.variableCount(), equations, broken)) {
    if (NSLayoutConstraint *source = made.sourceOf(number)) [conflict addObject:source];
  }
  NSLog(@"Unable to simultaneously satisfy constraints. Probably at least one of the constraints in the following list "
        @"is one you don't want.\n(%@\n)\nWill attempt to recover by breaking constraint %@",
        listOf(conflict), made.sourceOf(broken));
}

void tellOfConflicts(LayoutEquations &made, const LayoutSolution &solution, const LayoutProblem *former,
                     LayoutProblem &problem) {
  for (const std::size_t number : solution.broken) {
    NSLayoutConstraint *source = made.sourceOf(number);
    problem.broken.push_back(source);
    const bool isKnown =
        former && std::find(former->broken.begin(), former->broken.end(), source) != former->broken.end();
    if (!isKnown) tellOfConflict(made, made.equations(), number);
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
      if (!lies) [[member->view superview] setNeedsLayout];
    } else if ([member->guide sim_state].kind == GuideKind::kScrollContent) {
      UIScrollView *scroll = (UIScrollView *)member->host();
      if (!CGSizeEqualToSize([scroll contentSize], contentSizeIn(*member))) [scroll setNeedsLayout];
    }
  }
}

void requestLayoutOf(const LayoutItem &item) {
  [item.host() setNeedsLayout];
  if (item.view) [[item.view superview] setNeedsLayout];
}

void requestLayoutOfMentioned(NSLayoutConstraint *constraint) {
  const LayoutConstraintState &state = [constraint sim_state];
  if (!state.holder) return;
  if (state.first) requestLayoutOf(*state.first);
  if (state.second) requestLayoutOf(*state.second);
}

/// What insets in the view place is to be laid out: they follow from where the view lies.
void requestLayoutByInsetsIn(UIView *view) {
  for (UIView *subview in [view subviews]) {
    ViewLayout *layout = [subview sim_layoutIfMade];
    if (!layout || !layout->bearsOnProblems) continue;  // Nor does what is in it.
    requestLayoutOf(layout->item);
    for (const auto &guide : layout->systemGuides) {
      if (!guide) continue;
      for (NSLayoutConstraint *mention : [guide.get() sim_state].item.mentions) requestLayoutOfMentioned(mention);
    }
    requestLayoutByInsetsIn(subview);
  }
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

void layoutInputsMoved(UIView *view) {
  const ViewLayout *layout = [view sim_layoutIfMade];
  const bool bears = layout && layout->bearsOnProblems;
  if (passes == 0 || bears) layoutInputsChanged();
  if (bears) requestLayoutByInsetsIn(view);
}

LayoutPass::LayoutPass() { ++passes; }

LayoutPass::~LayoutPass() { --passes; }

void layoutInputsChanged(LayoutItem &item) {
  ++generation;
  requestLayoutOf(item);
  // Who is placed further away is found when those are solved.
  for (NSLayoutConstraint *mention : item.mentions) requestLayoutOfMentioned(mention);
}

void solve(LayoutItem &item) {
  if (item.problem && item.problem->generation == generation) return;
  const unsigned long present = generation;  // Views that are asked for their content may change something.
  LayoutEquations made(nil);
  made.gather(item);
  const auto former = item.problem;
  const auto isOfFormer = [&former](const LayoutItem *member) { return member->problem == former; };
  const bool isSame = former && former->members == made.members() &&
                      std::all_of(former->members.begin(), former->members.end(), isOfFormer) &&
                      former->equations == made.equations() && former->revisions == made.revisions();
  if (isSame) {
    former->generation = present;
    return requestMoves(*former);
  }
  auto problem = std::make_shared<LayoutProblem>();
  LayoutSolution solution = made.solution();
  tellOfConflicts(made, solution, former.get(), *problem);
  problem->members = std::move(made.members());
  problem->equations = std::move(made.equations());
  problem->revisions = std::move(made.revisions());
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
  LayoutEquations made(view);
  LayoutItem &item = [view sim_layout].item;
  made.gather(item);
  made.wish(view, LayoutAxis::kHorizontal, target.width, horizontalPriority);
  made.wish(view, LayoutAxis::kVertical, target.height, verticalPriority);
  const LayoutSolution solution = made.solution();
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
      return item && item->host() == view && layoutAxisOf(attribute) == LayoutAxis::kVertical;
    };
    return isOf(state.first, state.firstAttribute) || isOf(state.second, state.secondAttribute);
  };
  return std::any_of(layout->constraints.begin(), layout->constraints.end(), saysHeight);
}

}  // namespace sim
