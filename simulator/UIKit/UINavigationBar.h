// The bar above the pages of a navigation controller.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UINavigationItem;

typedef NS_ENUM(NSInteger, UIBarStyle) {
  UIBarStyleDefault = 0,
  UIBarStyleBlack = 1,
};

SIM_STATE_TYPE(NavigationBarState);

/// State only; the items are those of the controller's stack. Main thread.
@interface UINavigationBar : UIView {
 @private
  SIM_STATE(NavigationBarState, _navigationBarState);
}
@property(nonatomic) UIBarStyle barStyle;
@property(nonatomic, getter=isTranslucent) BOOL translucent;
@property(nonatomic) BOOL prefersLargeTitles;
@property(nonatomic, retain) UIColor *barTintColor;
@property(nonatomic, copy) NSDictionary *titleTextAttributes;
@property(nonatomic, copy) NSDictionary *largeTitleTextAttributes;
@property(nonatomic, copy) NSArray<UINavigationItem *> *items;
@property(nonatomic, readonly) UINavigationItem *topItem;
/// The item below the top one; nil when there is none.
@property(nonatomic, readonly) UINavigationItem *backItem;
@end
