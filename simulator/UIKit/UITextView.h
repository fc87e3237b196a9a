// Several lines of text that the user may edit.
#pragma once

#import <UIKit/NSText.h>
#import <UIKit/UIFont.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UITextInputTraits.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UITextViewState);

@class UITextView;

@protocol UITextViewDelegate <NSObject, UIScrollViewDelegate>
@optional
- (BOOL)textViewShouldBeginEditing:(UITextView *)textView;
- (void)textViewDidBeginEditing:(UITextView *)textView;
- (BOOL)textViewShouldEndEditing:(UITextView *)textView;
- (void)textViewDidEndEditing:(UITextView *)textView;
- (BOOL)textView:(UITextView *)textView shouldChangeTextInRange:(NSRange)range replacementText:(NSString *)text;
- (void)textViewDidChange:(UITextView *)textView;
- (void)textViewDidChangeSelection:(UITextView *)textView;
@end

UIKIT_EXTERN NSString *const UITextViewTextDidBeginEditingNotification;
UIKIT_EXTERN NSString *const UITextViewTextDidChangeNotification;
UIKIT_EXTERN NSString *const UITextViewTextDidEndEditingNotification;

@interface UITextView : UIScrollView <UITextInputTraits> {
 @private
  SIM_STATE(UITextViewState, _textState);
}
/// Never nil; setting nil empties it. Setting it asks no delegate.
@property(nonatomic, copy) NSString *text;
/// Where it has no font or colour it is in 12 points and black, as on a device. Its first character's font, colour and
/// alignment become the view's own, and setting those of the view gives them to the whole text. Dropped when the text
/// is set or edited.
@property(copy) NSAttributedString *attributedText;
@property(nonatomic, retain) UIFont *font;
@property(nonatomic, retain) UIColor *textColor;
@property(nonatomic) NSTextAlignment textAlignment;
/// The selected characters, kept within the text.
@property(nonatomic) NSRange selectedRange;
@property(nonatomic, getter=isEditable) BOOL editable;
@property(nonatomic, getter=isSelectable) BOOL selectable;
/// (8, 0, 8, 0).
@property(nonatomic) UIEdgeInsets textContainerInset;
/// Not owned.
@property(nonatomic, assign) id<UITextViewDelegate> delegate;
@end
