// Alerts and action sheets.
#pragma once

#import <UIKit/UIAlertAction.h>
#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

@class UITextField;

typedef NS_ENUM(NSInteger, UIAlertControllerStyle) {
  UIAlertControllerStyleActionSheet = 0,
  UIAlertControllerStyleAlert,
};

SIM_STATE_TYPE(AlertControllerState);

/// Main thread.
@interface UIAlertController : UIViewController {
 @private
  SIM_STATE(AlertControllerState, _alertControllerState);
}
+ (instancetype)alertControllerWithTitle:(NSString *)title
                                 message:(NSString *)message
                          preferredStyle:(UIAlertControllerStyle)preferredStyle;
/// Raises NSInternalInconsistencyException for a second action of the cancel style.
- (void)addAction:(UIAlertAction *)action;
/// In the order in which they were added.
@property(nonatomic, readonly) NSArray<UIAlertAction *> *actions;
/// Raises NSInternalInconsistencyException when the action was not added before.
@property(nonatomic, retain) UIAlertAction *preferredAction;
/// The handler is called at once with the new field. Raises NSInternalInconsistencyException for an action sheet.
- (void)addTextFieldWithConfigurationHandler:(void (^)(UITextField *textField))configurationHandler;
/// nil when none was added.
@property(nonatomic, readonly) NSArray<UITextField *> *textFields;
@property(nonatomic, copy) NSString *message;
@property(nonatomic, readonly) UIAlertControllerStyle preferredStyle;
@end
