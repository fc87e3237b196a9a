#import <UIKit/LayoutState.h>

#import "LayoutProblem.h"

#import <UIKit/NSLayoutConstraint+Sim.h>
#import <UIKit/UIViewLayout.h>

namespace sim {

LayoutItem::~LayoutItem() {
  for (NSLayoutConstraint *constraint : mentions) {
    LayoutConstraintState &state = [constraint sim_state];
    if (state.first == this) state.first = nullptr;
    if (state.second == this) state.second = nullptr;
  }
  if (problem && problem->members[place] == this) problem->members[place] = nullptr;
}

UIView *LayoutItem::host() const { return view ? view : [guide sim_state].owner; }

void ViewLayout::letGo() {
  for (const auto &constraint : constraints) [constraint.get() sim_leaveHolder];
  for (const auto &guide : guides) [guide.get() sim_state].owner = nil;
  for (const auto &guide : systemGuides) {
    if (guide) [guide.get() sim_state].owner = nil;
  }
}

bool isPlacedByConstraints(UIView *view) {
  const ViewLayout *layout = [view sim_layoutIfMade];
  if (!layout || layout->translates || layout->activeConstraints == 0 || ![view superview]) return false;
  // What only its content bears on collapses around that, unless the system has a place for it.
  return layout->placingConstraints > 0 || ![view sim_isPlacedByFramework];
}

}  // namespace sim
