#import "theme/PresetAlerts.h"

namespace zuno {

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
  [page presentViewController:alert animated:YES completion:nil];
}

}  // namespace zuno
