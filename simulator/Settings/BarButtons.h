// The buttons in the navigation bar of a page.
#pragma once

#import <UIKit/UIKit.h>

namespace sim {

/// Left buttons, then right ones as they stand from left to right (the first right item is the outermost). Spaces are
/// left out. UIBarButtonItem, autoreleased.
NSArray *barButtons(UIViewController *page);
bool isLeftButton(UIViewController *page, UIBarButtonItem *item);

}  // namespace sim
