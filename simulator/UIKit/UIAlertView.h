// Alerts as they were before UIAlertController, which shows them. Main thread only.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIAlertView;
@class UITextField;

typedef NS_ENUM(NSInteger, UIAlertViewStyle) {
  UIAlertViewStyleDefault = 0,
  UIAlertViewStyleSecureTextInput,
  UIAlertViewStylePlainTextInput,
  UIAlertViewStyleLoginAndPasswordInput,
};

@protocol UIAlertViewDelegate <NSObject>
@optional
- (void)alertView:(UIAlertView *)alertView clickedButtonAtIndex:(NSInteger)buttonIndex;
- (void)willPresentAlertView:(UIAlertView *)alertView;
- (void)didPresentAlertView:(UIAlertView *)alertView;
- (void)alertView:(UIAlertView *)alertView willDismissWithButtonIndex:(NSInteger)buttonIndex;
- (void)alertView:(UIAlertView *)alertView didDismissWithButtonIndex:(NSInteger)buttonIndex;
@end

SIM_STATE_TYPE(OldAlert);

@interface UIAlertView : UIView {
 @private
  SIM_STATE(OldAlert, _alert);
}
/// `delegate` is not owned; the titles of the other buttons end in nil.
- (instancetype)initWithTitle:(NSString *)title
                      message:(NSString *)message
                     delegate:(id)delegate
            cancelButtonTitle:(NSString *)cancelButtonTitle
            otherButtonTitles:(NSString *)otherButtonTitles, ... __attribute__((sentinel(0, 1)));
/// Not owned: UIAlertViewDelegate.
@property(nonatomic, assign) id delegate;
@property(nonatomic, copy) NSString *title;
@property(nonatomic, copy) NSString *message;
/// The index of the new button, from 0 on.
- (NSInteger)addButtonWithTitle:(NSString *)title;
- (NSString *)buttonTitleAtIndex:(NSInteger)buttonIndex;
@property(nonatomic, readonly) NSInteger numberOfButtons;
/// -1 for none, both.
@property(nonatomic) NSInteger cancelButtonIndex;
@property(nonatomic, readonly) NSInteger firstOtherButtonIndex;
@property(nonatomic, readonly, getter=isVisible) BOOL visible;
@property(nonatomic, assign) UIAlertViewStyle alertViewStyle;
/// Raises NSRangeException where the style has no such field.
- (UITextField *)textFieldAtIndex:(NSInteger)textFieldIndex;
/// The alert is kept until it is dismissed.
- (void)show;
/// The delegate is told of the dismissal, not of a click.
- (void)dismissWithClickedButtonIndex:(NSInteger)buttonIndex animated:(BOOL)animated;
@end
