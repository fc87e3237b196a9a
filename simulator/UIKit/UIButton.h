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
