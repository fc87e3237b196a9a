#import "Settings/Scrolling.h"

#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <objcxx/Retained.h>

#import "Settings/views/Views.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace sim {
namespace {

constexpr std::array<std::pair<std::string_view, ScrollPhase>, 5> kPhases{{
    {"began", ScrollPhase::kBegan},
    {"moved", ScrollPhase::kMoved},
    {"lifted", ScrollPhase::kLifted},
    {"ended", ScrollPhase::kEnded},
    {"jumped", ScrollPhase::kJumped},
}};

/// Adds what goes to its top, at or below `view`.
void addScrollingToTop(UIView *view, std::vector<UIScrollView *> &all) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[UIScrollView class]]) {
    UIScrollView *scrolling = (UIScrollView *)view;
    const bool movesDown = [scrolling sim_greatestOffset].y > [scrolling sim_leastOffset].y;
    if ([scrolling scrollsToTop] && [scrolling isScrollEnabled] && movesDown) all.push_back(scrolling);
  }
  for (UIView *each in [view subviews]) addScrollingToTop(each, all);
}

}  // namespace

void writeScrolling(JsonText &out, UIScrollView *view) {
  if (!view) return out.null();
  out.beginObject();
  out.name("id").string(idOf(view));
  out.name("number").natural([view sim_positionNumber]);
  const CGPoint start = [view sim_leastOffset];
  writePair(out.name("start"), start.x, start.y);
  if ([view sim_isFollowed]) out.name("followed").flag(true);
  out.endObject();
}

std::optional<ScrollPhase> scrollPhaseNamed(std::string_view name) {
  const auto found = std::ranges::find(kPhases, name, &decltype(kPhases)::value_type::first);
  return found == kPhases.end() ? std::nullopt : std::optional(found->second);
}

EventResult scrollTo(UIScrollView *view, const Scroll &scroll) {
  const bool isByFinger = scroll.phase != ScrollPhase::kJumped;
  const bool acceptsFinger = [view isScrollEnabled] && [view sim_acceptsTouches];
  if (isByFinger && !acceptsFinger) return refused("No finger scrolls this.");
  const auto kept = objcxx::share(view);
  const CGPoint now = [view contentOffset];
  const CGPoint offset = CGPointMake(scroll.x.value_or(now.x), scroll.y.value_or(now.y));
  const bool isTable = [view isKindOfClass:[UITableView class]];
  if (isByFinger && isTable) (void)[(UITableView *)view sim_closeSwipedRow];
  [view sim_scrollTo:offset phase:scroll.phase velocity:scroll.velocity];
  return {};
}

EventResult scrollToTop(UIViewController *page) {
  std::vector<UIScrollView *> all;
  addScrollingToTop([page view], all);
  if (all.size() == 1) (void)[all.front() sim_scrollToTop];
  return {};
}

}  // namespace sim
