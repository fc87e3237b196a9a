// The bar above the pages of a navigation controller.
#pragma once

#import <UIKit/UIBarCommon.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UIImage;
@class UINavigationBarAppearance;
@class UINavigationItem;

typedef NS_ENUM(NSInteger, UIBarStyle) {
  UIBarStyleDefault = 0,
  UIBarStyleBlack = 1,
  UIBarStyleBlackOpaque = UIBarStyleBlack,
  UIBarStyleBlackTranslucent = 2,
};

SIM_STATE_TYPE(NavigationBarState);

/// The items are those of the controller's stack. What is set of the bar itself counts until `standardAppearance` is
/// set, which then says all there is to say. Main thread.
@interface UINavigationBar : UIView {
 @private
  SIM_STATE(NavigationBarState, _navigationBarState);
}
@property(nonatomic) UIBarStyle barStyle UI_APPEARANCE_SELECTOR;
/// YES at first. With NO the bar hides what lies below, which begins under it.
@property(nonatomic, getter=isTranslucent) BOOL translucent UI_APPEARANCE_SELECTOR;
@property(nonatomic) BOOL prefersLargeTitles UI_APPEARANCE_SELECTOR;
@property(nonatomic, retain) UIColor *barTintColor UI_APPEARANCE_SELECTOR;
/// NSFontAttributeName and NSForegroundColorAttributeName are drawn.
@property(nonatomic, copy) NSDictionary *titleTextAttributes UI_APPEARANCE_SELECTOR;
@property(nonatomic, copy) NSDictionary *largeTitleTextAttributes UI_APPEARANCE_SELECTOR;
/// In place of the bar's colour and blur, stretched over bar and status bar; an empty picture leaves the bar clear. The
/// compact one is for the lower bar of a phone on its side; where there is none the default one is shown.
- (void)setBackgroundImage:(UIImage *)image forBarMetrics:(UIBarMetrics)metrics UI_APPEARANCE_SELECTOR;
- (UIImage *)backgroundImageForBarMetrics:(UIBarMetrics)metrics UI_APPEARANCE_SELECTOR;
/// The bar is at UIBarPositionTopAttached: a picture for another position but UIBarPositionAny is never shown.
- (void)setBackgroundImage:(UIImage *)image
            forBarPosition:(UIBarPosition)position
                barMetrics:(UIBarMetrics)metrics UI_APPEARANCE_SELECTOR;
- (UIImage *)backgroundImageForBarPosition:(UIBarPosition)position
                                barMetrics:(UIBarMetrics)metrics UI_APPEARANCE_SELECTOR;
/// In place of the line under the bar; an empty picture leaves it away.
@property(nonatomic, strong) UIImage *shadowImage UI_APPEARANCE_SELECTOR;
@property(nonatomic, copy) NSArray<UINavigationItem *> *items;
@property(nonatomic, readonly) UINavigationItem *topItem;
/// The item below the top one; nil when there is none.
@property(nonatomic, readonly) UINavigationItem *backItem;

/// While content lies below the bar. Never nil: before one is set, it has what the properties above say, and counts as
/// set as soon as it is changed.
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *standardAppearance UI_APPEARANCE_SELECTOR;
/// The same on a phone on its side; nil for `standardAppearance`.
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *compactAppearance UI_APPEARANCE_SELECTOR;
/// While the content is at its top; nil for the standard one without background and line, as on iOS 15.
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *scrollEdgeAppearance UI_APPEARANCE_SELECTOR;
@end
