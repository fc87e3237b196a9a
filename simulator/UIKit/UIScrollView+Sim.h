// The simulator's own face of a scroll view: how the host moves its content as a finger does.
#pragma once

#import <UIKit/UIScrollView.h>

#include <cstdint>

namespace sim {

/// What is at work while the content moves.
enum class ScrollPhase {
  kBegan,   ///< A finger begins to drag the content.
  kMoved,   ///< The content has moved on: the finger drags it, or it glides.
  kLifted,  ///< The finger leaves the content, which glides on.
  kEnded,   ///< The content has come to rest: it glides no more, or the finger is lifted that had stopped.
  kWhole,   ///< A drag from its beginning to its end.
  kJumped,  ///< No finger: the content lies elsewhere now, as when the focus goes to something that did not show.
};

}  // namespace sim

@interface UIScrollView (Sim)
/// The offsets between which a finger can leave the content: at its top and left, and at its end.
@property(nonatomic, readonly) CGPoint sim_leastOffset;
@property(nonatomic, readonly) CGPoint sim_greatestOffset;
/// Whether a finger can move the content. A view that is larger than its content has nothing to move.
@property(nonatomic, readonly) BOOL sim_isScrollable;
/// Whether anything follows while the content moves: the delegate, an observer, or a class that has methods of its own
/// for it.
@property(nonatomic, readonly) BOOL sim_isFollowed;
/// Changes whenever code moves the content, and not when a finger does. No two scroll views of the process ever have
/// the same. Never 0.
@property(nonatomic, readonly) std::uint32_t sim_positionNumber;
/// What the host does when a finger moves the content: tells the delegate and goes to `offset`, or to the nearest place
/// that there is. Phases that were left out are made up for. `velocity`, of a finger that is lifted, is in points a
/// millisecond.
- (void)sim_scrollTo:(CGPoint)offset phase:(sim::ScrollPhase)phase velocity:(CGPoint)velocity;
/// Goes to `offset`, as it is, with neither a finger nor anybody's code having moved the content.
- (void)sim_moveQuietlyTo:(CGPoint)offset;
/// A tap on the status bar. NO when the delegate refuses.
- (BOOL)sim_scrollToTop;
@end
