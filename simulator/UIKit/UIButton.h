// A button.
#pragma once

#import <UIKit/UIControl.h>
#import <UIKit/UIImageView.h>
#import <UIKit/UILabel.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIButtonState);

typedef NS_ENUM(NSInteger, UIButtonType) {
  UIButtonTypeCustom = 0,
  UIButtonTypeSystem,
  UIButtonTypeDetailDisclosure,
  UIButtonTypeInfoLight,
  UIButtonTypeInfoDark,
  UIButtonTypeContactAdd,
  UIButtonTypeClose = 7,
};

@interface UIButton : UIControl {
 @private
  SIM_STATE(UIButtonState, _buttonState);
}
+ (instancetype)buttonWithType:(UIButtonType)type;
@property(nonatomic, readonly) UIButtonType buttonType;
/// Made on first use, as on a device. Laid out in `layoutSubviews`.
@property(nonatomic, readonly) UILabel *titleLabel;
@property(nonatomic, readonly) UIImageView *imageView;
- (void)setTitle:(NSString *)title forState:(UIControlState)state;
/// Shown in place of a title. What its attributes leave open is the title label's.
- (void)setAttributedTitle:(NSAttributedString *)title forState:(UIControlState)state;
- (void)setTitleColor:(UIColor *)color forState:(UIControlState)state;
- (void)setImage:(UIImage *)image forState:(UIControlState)state;
- (void)setBackgroundImage:(UIImage *)image forState:(UIControlState)state;
/// What was set for exactly that state, else what was set for normal.
- (NSString *)titleForState:(UIControlState)state;
- (NSAttributedString *)attributedTitleForState:(UIControlState)state;
- (UIColor *)titleColorForState:(UIControlState)state;
- (UIImage *)imageForState:(UIControlState)state;
- (UIImage *)backgroundImageForState:(UIControlState)state;
@property(nonatomic, readonly) NSString *currentTitle;
@property(nonatomic, readonly) NSAttributedString *currentAttributedTitle;
@property(nonatomic, readonly) UIColor *currentTitleColor;
@property(nonatomic, readonly) UIImage *currentImage;
@end

@interface UIButton (Layout)
/// Points around picture and title, which count in the size that fits.
@property(nonatomic) UIEdgeInsets contentEdgeInsets;
/// By which the title, the picture are moved from where they would lie; the size that fits does not know of them.
@property(nonatomic) UIEdgeInsets titleEdgeInsets;
@property(nonatomic) UIEdgeInsets imageEdgeInsets;
/// Where the parts lie, in the button's coordinates. Subclasses say otherwise.
- (CGRect)backgroundRectForBounds:(CGRect)bounds;
- (CGRect)contentRectForBounds:(CGRect)bounds;
- (CGRect)titleRectForContentRect:(CGRect)contentRect;
- (CGRect)imageRectForContentRect:(CGRect)contentRect;
@end

@interface UIButton (Menu)
/// With the title and the image of the action, which the button does; custom, of the system's kind, or of any type, of
/// which those with a picture of their own keep it.
- (instancetype)initWithFrame:(CGRect)frame primaryAction:(UIAction *)primaryAction;
+ (instancetype)systemButtonWithPrimaryAction:(UIAction *)primaryAction;
+ (instancetype)buttonWithType:(UIButtonType)buttonType primaryAction:(UIAction *)primaryAction;
/// Of the system's kind, for UIControlEventPrimaryActionTriggered. `target` is not owned.
+ (instancetype)systemButtonWithImage:(UIImage *)image target:(id)target action:(SEL)action;
/// A menu that a finger opens which stays, or a tap with `showsMenuAsPrimaryAction`. Copied, so that its elements
/// cannot be changed any more. Setting one enables the context menu interaction, nil disables it.
@property(nonatomic, copy) UIMenu *menu;
/// NO at first. With a menu that is the primary action, the button shows the title and the image of the action that was
/// chosen last, at first of the first one; without, each tap selects the button or ends that.
@property(nonatomic) BOOL changesSelectionAsPrimaryAction;
/// While its menu is shown.
@property(nonatomic, readonly, getter=isHeld) BOOL held;
@end
