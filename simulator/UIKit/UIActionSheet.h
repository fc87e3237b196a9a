// Action sheets as they were before UIAlertController, which shows them. Main thread only.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIActionSheet;
@class UIBarButtonItem;

@protocol UIActionSheetDelegate <NSObject>
@optional
- (void)actionSheet:(UIActionSheet *)actionSheet clickedButtonAtIndex:(NSInteger)buttonIndex;
- (void)willPresentActionSheet:(UIActionSheet *)actionSheet;
- (void)didPresentActionSheet:(UIActionSheet *)actionSheet;
- (void)actionSheet:(UIActionSheet *)actionSheet willDismissWithButtonIndex:(NSInteger)buttonIndex;
- (void)actionSheet:(UIActionSheet *)actionSheet didDismissWithButtonIndex:(NSInteger)buttonIndex;
@end

SIM_STATE_TYPE(OldAlert);

@interface UIActionSheet : UIView {
 @private
  SIM_STATE(OldAlert, _alert);
}
/// `delegate` is not owned; the titles of the other buttons end in nil. The destructive button comes first, the one
/// that cancels last.
- (instancetype)initWithTitle:(NSString *)title
                     delegate:(id<UIActionSheetDelegate>)delegate
            cancelButtonTitle:(NSString *)cancelButtonTitle
       destructiveButtonTitle:(NSString *)destructiveButtonTitle
            otherButtonTitles:(NSString *)otherButtonTitles, ... __attribute__((sentinel(0, 1)));
/// Not owned.
@property(nonatomic, assign) id<UIActionSheetDelegate> delegate;
@property(nonatomic, copy) NSString *title;
/// The index of the new button, from 0 on.
- (NSInteger)addButtonWithTitle:(NSString *)title;
- (NSString *)buttonTitleAtIndex:(NSInteger)buttonIndex;
@property(nonatomic, readonly) NSInteger numberOfButtons;
/// -1 for none, all of them.
@property(nonatomic) NSInteger cancelButtonIndex;
@property(nonatomic) NSInteger destructiveButtonIndex;
@property(nonatomic, readonly) NSInteger firstOtherButtonIndex;
@property(nonatomic, readonly, getter=isVisible) BOOL visible;
/// The sheet is kept until it is dismissed. On a large screen it is shown from the middle of the view, from the
/// rectangle or from the item; without those it raises NSGenericException there, as every sheet does.
- (void)showInView:(UIView *)view;
- (void)showFromRect:(CGRect)rect inView:(UIView *)view animated:(BOOL)animated;
- (void)showFromBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated;
/// The delegate is told of the dismissal, not of a click.
- (void)dismissWithClickedButtonIndex:(NSInteger)buttonIndex animated:(BOOL)animated;
@end
