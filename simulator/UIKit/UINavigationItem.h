// What a view controller shows in the navigation bar while it is on top of the stack.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

@class UIBarButtonItem;
@class UINavigationBarAppearance;
@class UIView;

typedef NS_ENUM(NSInteger, UINavigationItemLargeTitleDisplayMode) {
  UINavigationItemLargeTitleDisplayModeAutomatic = 0,
  UINavigationItemLargeTitleDisplayModeAlways,
  UINavigationItemLargeTitleDisplayModeNever,
};

SIM_STATE_TYPE(NavigationItemState);

/// State only. Main thread.
@interface UINavigationItem : NSObject {
 @private
  SIM_STATE(NavigationItemState, _navigationItemState);
}
- (instancetype)initWithTitle:(NSString *)title;

@property(nonatomic, copy) NSString *title;
@property(nonatomic, retain) UIView *titleView;
@property(nonatomic, copy) NSString *prompt;
/// Names this page in the back button of the page above it; nil means the title.
@property(nonatomic, copy) NSString *backButtonTitle;
/// Its title names this page in the back button of the page above it, before `backButtonTitle`.
@property(nonatomic, retain) UIBarButtonItem *backBarButtonItem;
@property(nonatomic) BOOL hidesBackButton;
- (void)setHidesBackButton:(BOOL)hidesBackButton animated:(BOOL)animated;
/// NO at first: items on the left replace the back button.
@property(nonatomic) BOOL leftItemsSupplementBackButton;

/// The first of `leftBarButtonItems`. Setting it makes it the only one.
@property(nonatomic, retain) UIBarButtonItem *leftBarButtonItem;
/// The first of `rightBarButtonItems`, the outermost one. Setting it makes it the only one.
@property(nonatomic, retain) UIBarButtonItem *rightBarButtonItem;
@property(nonatomic, copy) NSArray<UIBarButtonItem *> *leftBarButtonItems;
@property(nonatomic, copy) NSArray<UIBarButtonItem *> *rightBarButtonItems;
- (void)setLeftBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated;
- (void)setRightBarButtonItem:(UIBarButtonItem *)item animated:(BOOL)animated;
- (void)setLeftBarButtonItems:(NSArray<UIBarButtonItem *> *)items animated:(BOOL)animated;
- (void)setRightBarButtonItems:(NSArray<UIBarButtonItem *> *)items animated:(BOOL)animated;

@property(nonatomic) UINavigationItemLargeTitleDisplayMode largeTitleDisplayMode;

/// In place of the bar's while this item is on top; nil for the bar's.
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *standardAppearance;
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *compactAppearance;
@property(nonatomic, readwrite, copy) UINavigationBarAppearance *scrollEdgeAppearance;
@end
