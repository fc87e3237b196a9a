#import "theme/Alerts.h"

#import <dispatch/dispatch.h>

#include <cstdint>

namespace zuno {
namespace {

constexpr std::int64_t kPause = 50 * NSEC_PER_MSEC;

/// A page presents nothing else while what it presented is still on its way out: UIKit would refuse it with a log line.
void presentWhenFree(UIViewController *page, UIViewController *alert) {
  UIViewController *inTheWay = [page presentedViewController];
  void (^again)(void) = ^{
    presentWhenFree(page, alert);
  };
  if (!inTheWay) {
    [page presentViewController:alert animated:YES completion:nil];
  } else if (inTheWay == alert) {
    return;
  } else if (![inTheWay isBeingDismissed]) {
    [inTheWay dismissViewControllerAnimated:YES completion:again];
  } else if (![[inTheWay transitionCoordinator] animateAlongsideTransition:nil
                                                                completion:^(id) {
                                                                  again();
                                                                }]) {
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, kPause), dispatch_get_main_queue(), again);
  }
}

}  // namespace

UIAlertController *alertTitled(NSString *title, NSString *message) {
  return [UIAlertController alertControllerWithTitle:title message:message preferredStyle:UIAlertControllerStyleAlert];
}

void addAction(UIAlertController *alert, NSString *title, UIAlertActionStyle style, void (^handler)(void)) {
  [alert addAction:[UIAlertAction actionWithTitle:title
                                            style:style
                                          handler:^(UIAlertAction *) {
                                            if (handler) handler();
                                          }]];
}

void addField(UIAlertController *alert, NSString *placeholder) {
  [alert addTextFieldWithConfigurationHandler:^(UITextField *field) {
    [field setPlaceholder:placeholder];
    [field setClearButtonMode:UITextFieldViewModeWhileEditing];
  }];
}

NSString *fieldText(UIAlertController *alert, NSUInteger index) {
  return [(UITextField *)[[alert textFields] objectAtIndex:index] text];
}

void presentError(UIViewController *page, NSString *message, UIAlertActionStyle okStyle) {
  UIAlertController *alert = alertTitled(@"Error", message);
  addAction(alert, @"OK", okStyle, nil);
  presentWhenFree(page, alert);
}

}  // namespace zuno
