// What is presented over the pages, found by its class.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#import "Settings/presented/PresentedAdapter.h"

namespace sim {

class PageNumbers;

/// What knows `presented`; every controller is known at least as a page. nullptr for nil.
const PresentedAdapter* presentedAdapter(UIViewController* presented);

/// "alert", "sheet" or "menu".
std::string_view nameOf(PresentedPlace place);

/// Writes `presented` when its place is `place`; otherwise, and for nil, null.
void writePresented(JsonText& out, UIViewController* presented, PresentedPlace place, PageNumbers& numbers,
                    ImageStore& images);

}  // namespace sim
