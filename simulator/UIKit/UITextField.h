// A line of text that the user edits.
#pragma once

#import <UIKit/NSText.h>
#import <UIKit/UIControl.h>
#import <UIKit/UIFont.h>
#import <UIKit/UITextInputTraits.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UITextFieldState);

@class UITextField;

typedef NS_ENUM(NSInteger, UITextBorderStyle) {
  UITextBorderStyleNone,
  UITextBorderStyleLine,
  UITextBorderStyleBezel,
  UITextBorderStyleRoundedRect,
};

typedef NS_ENUM(NSInteger, UITextFieldViewMode) {
  UITextFieldViewModeNever,
  UITextFieldViewModeWhileEditing,
  UITextFieldViewModeUnlessEditing,
  UITextFieldViewModeAlways,
};

@protocol UITextFieldDelegate <NSObject>
@optional
- (BOOL)textFieldShouldBeginEditing:(UITextField *)textField;
- (void)textFieldDidBeginEditing:(UITextField *)textField;
- (BOOL)textFieldShouldEndEditing:(UITextField *)textField;
- (void)textFieldDidEndEditing:(UITextField *)textField;
- (BOOL)textField:(UITextField *)textField
    shouldChangeCharactersInRange:(NSRange)range
                replacementString:(NSString *)string;
- (void)textFieldDidChangeSelection:(UITextField *)textField;
- (BOOL)textFieldShouldClear:(UITextField *)textField;
- (BOOL)textFieldShouldReturn:(UITextField *)textField;
@end

UIKIT_EXTERN NSString *const UITextFieldTextDidBeginEditingNotification;
UIKIT_EXTERN NSString *const UITextFieldTextDidEndEditingNotification;
UIKIT_EXTERN NSString *const UITextFieldTextDidChangeNotification;

@interface UITextField : UIControl <UITextInputTraits> {
 @private
  SIM_STATE(UITextFieldState, _fieldState);
}
/// Never nil; setting nil empties it. Setting it sends no action and asks no delegate.
@property(nonatomic, copy) NSString *text;
@property(nonatomic, copy) NSAttributedString *attributedText;
@property(nonatomic, retain) UIColor *textColor;
@property(nonatomic, retain) UIFont *font;
@property(nonatomic) NSTextAlignment textAlignment;
@property(nonatomic) UITextBorderStyle borderStyle;
@property(nonatomic, copy) NSString *placeholder;
@property(nonatomic, copy) NSAttributedString *attributedPlaceholder;
@property(nonatomic) BOOL clearsOnBeginEditing;
@property(nonatomic) BOOL adjustsFontSizeToFitWidth;
@property(nonatomic) CGFloat minimumFontSize;
/// Not owned.
@property(nonatomic, assign) id<UITextFieldDelegate> delegate;
@property(nonatomic, readonly, getter=isEditing) BOOL editing;
@property(nonatomic) UITextFieldViewMode clearButtonMode;
@property(nonatomic, retain) UIView *leftView;
@property(nonatomic) UITextFieldViewMode leftViewMode;
@property(nonatomic, retain) UIView *rightView;
@property(nonatomic) UITextFieldViewMode rightViewMode;
@end
