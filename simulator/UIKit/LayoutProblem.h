// Problems of layout, and the rectangles that come of their solutions.
//
// What hangs together by constraints is one problem, which is made and solved when one of its views is laid out: views
// and guides that constraints place are its unknowns, everything else is a constant. Making a problem is cheap, so that
// it is made anew whenever anything has changed that layout may depend on, and solved only when its equations are not
// those of before.
#pragma once

#import <UIKit/LayoutState.h>

#include <UIKit/LayoutSolver.hpp>

namespace sim {

struct LayoutProblem {
  std::vector<LayoutItem *>
      members;  ///< Not owned; nullptr for one that is gone. Four variables each: x, width, y, height.
  std::vector<LayoutEquation> equations;
  std::vector<unsigned long> revisions;  ///< Of the members' contents.
  std::vector<double> values;
  std::vector<NSLayoutConstraint *> broken;  ///< For comparison alone: they may be gone.
  unsigned long generation = 0;              ///< The `layoutGeneration` for which it holds.
};

/// Brings the item's problem up to date. Superviews whose subviews are to move need layout after that.
void solve(LayoutItem &item);

/// In whole pixels: in the superview's coordinates, or in those of the view that owns the guide. After `solve`.
CGRect placeOf(const LayoutItem &item);

/// The size nearest to `target` that the constraints in `view` leave it; a side on which nothing bears takes the
/// target.
CGSize fittingSize(UIView *view, CGSize target, double horizontalPriority, double verticalPriority);

/// Whether an active constraint in `view` bears on its height.
bool constraintsSayHeight(UIView *view);

/// Something that layout may depend on has changed.
void layoutInputsChanged();
/// The same, of where a view lies. While views are laid out it counts only for those whose place an equation has as a
/// number: those that a solution has moved are its unknowns, and need not be solved again for that.
void layoutInputsMoved(UIView *view);
/// As long as there is one, views are being laid out.
class LayoutPass final {
 public:
  LayoutPass();
  ~LayoutPass();
  LayoutPass(const LayoutPass &) = delete;
  LayoutPass &operator=(const LayoutPass &) = delete;
};
/// The same, of the item: what is placed together with it is laid out anew.
void layoutInputsChanged(LayoutItem &item);

/// How far the view's readable content keeps from its edges.
UIEdgeInsets readableInsets(UIView *view);

/// To the nearest pixel of the screen.
CGFloat roundedToPixel(CGFloat points);

}  // namespace sim
