// What a finger that scrolls moves on a page, as the automation interface tells of it and moves it.
#pragma once

#import <UIKit/UIKit.h>
#import <UIKit/UIScrollView+Sim.h>

#include <optional>
#include <string_view>

#include "Settings/EventResult.hpp"
#import "Settings/JsonValues.h"

namespace sim {

/// Writes what there is to know for scrolling `view`: {"id","number","start","followed"}; null for nil. `followed` is
/// there only where it is true.
void writeScrolling(JsonText &out, UIScrollView *view);

/// Where a finger moves content. What is missing stays as it is.
struct Scroll {
  std::optional<CGFloat> x, y;  ///< The new offset, in points.
  ScrollPhase phase = ScrollPhase::kWhole;
  CGPoint velocity = CGPointZero;  ///< Of the finger that is lifted, in points a millisecond.
};
/// "began", "moved", "lifted", "ended" or "jumped"; nullopt for any other name.
std::optional<ScrollPhase> scrollPhaseNamed(std::string_view name);
EventResult scrollTo(UIScrollView *view, const Scroll &scroll);

/// A tap on the status bar: the top of what can be scrolled up and down on `page` comes back, if that is one view.
EventResult scrollToTop(UIViewController *page);

}  // namespace sim
