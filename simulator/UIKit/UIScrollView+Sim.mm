// How a finger moves the content of a scroll view, and who is told.
#import "UIScrollViewState.h"

#import <UIKit/UITableView.h>
#import <UIKit/UITextView.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// How far content glides on, in points, for each point a millisecond that the finger had: of the rate 0.998, by which
/// the speed falls each millisecond, 0.998 / (1 - 0.998).
constexpr CGFloat kGlide = 499;

std::uint32_t nextPositionNumber() {
  static std::uint32_t last = 0;
  return ++last;
}

CGPoint clamped(CGPoint offset, CGPoint least, CGPoint greatest) {
  return CGPointMake(std::clamp(offset.x, least.x, greatest.x), std::clamp(offset.y, least.y, greatest.y));
}

/// Where content comes to rest in pages of `length`: at the nearest one, or the next that a quick finger goes towards.
CGFloat nearestPage(CGFloat offset, CGFloat velocity, CGFloat least, CGFloat length) {
  if (length <= 0) return offset;
  const CGFloat page = (offset - least) / length;
  const CGFloat chosen = velocity > 0 ? std::ceil(page) : velocity < 0 ? std::floor(page) : std::round(page);
  return least + chosen * length;
}

/// Whether the method of `view` is none of the frameworks' own. An observer has one put in its place, too.
bool hasOwn(UIView *view, SEL method) {
  const IMP code = [view methodForSelector:method];
  const std::array<Class, 3> known{[UIScrollView class], [UITableView class], [UITextView class]};
  return std::ranges::none_of(known, [&](Class each) { return [each instanceMethodForSelector:method] == code; });
}

}  // namespace

@interface UIScrollView (SimFinger)
- (void)sim_beginDragging;
- (void)sim_liftFingerWithVelocity:(CGPoint)velocity glides:(BOOL)glides;
@end

@implementation UIScrollView (SimMoving)

- (void)sim_willMoveTo:(CGPoint)offset {
  auto &state = *_scrollViewState;
  const bool isExpected = state.expected && CGPointEqualToPoint(*state.expected, offset);
  if (!isExpected) state.positionNumber = nextPositionNumber();
}

- (void)sim_stayWithinContent {
  if (_scrollViewState->motion != sim::ScrollMotion::kNone) return;
  const CGPoint offset = [self contentOffset];
  const CGPoint greatest = [self sim_greatestOffset];
  [self sim_moveQuietlyTo:CGPointMake(std::min(offset.x, greatest.x), std::min(offset.y, greatest.y))];
}

- (void)sim_comeToRest {
  auto &motion = _scrollViewState->motion;
  if (motion == sim::ScrollMotion::kDragging) return [self sim_liftFingerWithVelocity:CGPointZero glides:NO];
  if (motion != sim::ScrollMotion::kDecelerating) return;
  motion = sim::ScrollMotion::kNone;
  id<UIScrollViewDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(scrollViewDidEndDecelerating:)]) {
    [delegate scrollViewDidEndDecelerating:self];
  }
}

@end

@implementation UIScrollView (Sim)

- (CGPoint)sim_leastOffset {
  const UIEdgeInsets inset = [self adjustedContentInset];
  return CGPointMake(0 - inset.left, 0 - inset.top);  // Without an inset 0, not -0.
}

- (CGPoint)sim_greatestOffset {
  const CGPoint least = [self sim_leastOffset];
  const UIEdgeInsets inset = [self adjustedContentInset];
  const CGSize content = [self contentSize];
  const CGSize size = [self bounds].size;
  return CGPointMake(std::max(least.x, content.width + inset.right - size.width),
                     std::max(least.y, content.height + inset.bottom - size.height));
}

- (BOOL)sim_isScrollable {
  const CGPoint least = [self sim_leastOffset];
  const CGPoint greatest = [self sim_greatestOffset];
  return [self isScrollEnabled] && (greatest.x > least.x || greatest.y > least.y);
}

- (BOOL)sim_isFollowed {
  static const std::array<SEL, 6> told {
    @selector(scrollViewDidScroll:), @selector(scrollViewWillBeginDragging:),
        @selector(scrollViewWillEndDragging:withVelocity:targetContentOffset:),
        @selector(scrollViewDidEndDragging:willDecelerate:), @selector(scrollViewWillBeginDecelerating:),
        @selector(scrollViewDidEndDecelerating:),
  };
  static const std::array<SEL, 3> overridden {
    @selector(setContentOffset:), @selector(setBounds:), @selector(layoutSubviews)
  };
  id<UIScrollViewDelegate> delegate = [self delegate];
  return std::ranges::any_of(told, [&](SEL each) { return [delegate respondsToSelector:each]; }) ||
         std::ranges::any_of(overridden, [&](SEL each) { return hasOwn(self, each); });
}

- (std::uint32_t)sim_positionNumber {
  auto &number = _scrollViewState->positionNumber;
  if (number == 0) number = nextPositionNumber();
  return number;
}

- (void)sim_moveQuietlyTo:(CGPoint)offset {
  if (CGPointEqualToPoint([self contentOffset], offset)) return;
  auto &state = *_scrollViewState;
  const auto former = std::exchange(state.expected, offset);
  @try {
    [self setContentOffset:offset];
  } @finally {
    state.expected = former;
  }
  // A class may have its own idea of where the content may lie.
  if (!CGPointEqualToPoint([self contentOffset], offset)) state.positionNumber = nextPositionNumber();
}

- (void)sim_scrollTo:(CGPoint)offset phase:(sim::ScrollPhase)phase velocity:(CGPoint)velocity {
  using sim::ScrollMotion;
  using sim::ScrollPhase;
  const auto kept = objcxx::share(self);
  const auto &motion = _scrollViewState->motion;
  const bool isGliding = motion == ScrollMotion::kDecelerating;
  // A finger that comes down stops what glides.
  const bool comesDown = phase == ScrollPhase::kBegan || phase == ScrollPhase::kWhole;
  if (comesDown || (phase == ScrollPhase::kLifted && isGliding)) [self sim_comeToRest];
  if (phase != ScrollPhase::kJumped && motion == ScrollMotion::kNone) [self sim_beginDragging];
  [self sim_moveQuietlyTo:clamped(offset, [self sim_leastOffset], [self sim_greatestOffset])];
  [self layoutIfNeeded];  // Whoever is told of the end looks at what can be seen.
  if (phase == ScrollPhase::kLifted) [self sim_liftFingerWithVelocity:velocity glides:YES];
  if (phase == ScrollPhase::kEnded || phase == ScrollPhase::kWhole) [self sim_comeToRest];
}

- (BOOL)sim_scrollToTop {
  const auto kept = objcxx::share(self);
  id<UIScrollViewDelegate> delegate = [self delegate];
  const bool asks = [delegate respondsToSelector:@selector(scrollViewShouldScrollToTop:)];
  if (asks && ![delegate scrollViewShouldScrollToTop:self]) return NO;
  [self sim_comeToRest];
  [self setContentOffset:CGPointMake([self contentOffset].x, [self sim_leastOffset].y)];
  if ([delegate respondsToSelector:@selector(scrollViewDidScrollToTop:)]) [delegate scrollViewDidScrollToTop:self];
  return YES;
}

@end

@implementation UIScrollView (SimFinger)

- (void)sim_beginDragging {
  _scrollViewState->motion = sim::ScrollMotion::kDragging;
  id<UIScrollViewDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(scrollViewWillBeginDragging:)]) {
    [delegate scrollViewWillBeginDragging:self];
  }
}

- (CGPoint)sim_restOf:(CGPoint)velocity {
  const CGPoint least = [self sim_leastOffset];
  const CGSize page = [self bounds].size;
  const CGPoint offset = [self contentOffset];
  CGPoint rest = CGPointMake(offset.x + velocity.x * kGlide, offset.y + velocity.y * kGlide);
  if ([self isPagingEnabled]) {
    rest = CGPointMake(nearestPage(offset.x, velocity.x, least.x, page.width),
                       nearestPage(offset.y, velocity.y, least.y, page.height));
  }
  return clamped(rest, least, [self sim_greatestOffset]);
}

- (void)sim_liftFingerWithVelocity:(CGPoint)velocity glides:(BOOL)glides {
  auto &motion = _scrollViewState->motion;
  const auto tell = [self](SEL method) { return [[self delegate] respondsToSelector:method]; };
  motion = sim::ScrollMotion::kLifting;
  const CGPoint rest = [self sim_restOf:velocity];
  CGPoint target = rest;
  if (tell(@selector(scrollViewWillEndDragging:withVelocity:targetContentOffset:))) {
    [[self delegate] scrollViewWillEndDragging:self withVelocity:velocity targetContentOffset:&target];
  }
  motion = sim::ScrollMotion::kNone;
  if (tell(@selector(scrollViewDidEndDragging:willDecelerate:))) {
    [[self delegate] scrollViewDidEndDragging:self willDecelerate:glides];
  }
  // The delegate may have begun something else.
  if (glides && motion == sim::ScrollMotion::kNone) {
    motion = sim::ScrollMotion::kDecelerating;
    if (tell(@selector(scrollViewWillBeginDecelerating:))) [[self delegate] scrollViewWillBeginDecelerating:self];
  }
  // Where content comes to rest of its own is told as it does; where the delegate wants it to, nobody else knows.
  if (!CGPointEqualToPoint(target, rest) && std::isfinite(target.x) && std::isfinite(target.y)) {
    [self setContentOffset:clamped(target, [self sim_leastOffset], [self sim_greatestOffset])];
  }
}

@end
