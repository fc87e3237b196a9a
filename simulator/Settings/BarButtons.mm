#import "Settings/BarButtons.h"

#import <UIKit/UIBarButtonItem.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UINavigationItem.h>

namespace sim {

NSArray *barButtons(UIViewController *page) {
  NSMutableArray *buttons = [NSMutableArray array];
  const auto add = [&](UIBarButtonItem *item) {
    NSString *system = [item sim_systemItemName];
    if (![system isEqualToString:@"flexibleSpace"] && ![system isEqualToString:@"fixedSpace"]) [buttons addObject:item];
  };
  UINavigationItem *bar = [page navigationItem];
  for (UIBarButtonItem *item in [bar leftBarButtonItems]) add(item);
  for (UIBarButtonItem *item in [[bar rightBarButtonItems] reverseObjectEnumerator]) add(item);
  return buttons;
}

bool isLeftButton(UIViewController *page, UIBarButtonItem *item) {
  for (UIBarButtonItem *left in [[page navigationItem] leftBarButtonItems]) {
    if (left == item) return true;
  }
  return false;
}

}  // namespace sim
