// A button in a navigation bar.
#pragma once

#import <UIKit/UIAction.h>
#import <UIKit/UIBarItem.h>
#import <UIKit/UIMenu.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UIView;

typedef NS_ENUM(NSInteger, UIBarButtonItemStyle) {
  UIBarButtonItemStylePlain = 0,
  UIBarButtonItemStyleBordered = 1,
  UIBarButtonItemStyleDone = 2,
};

typedef NS_ENUM(NSInteger, UIBarButtonSystemItem) {
  UIBarButtonSystemItemDone = 0,
  UIBarButtonSystemItemCancel,
  UIBarButtonSystemItemEdit,
  UIBarButtonSystemItemSave,
  UIBarButtonSystemItemAdd,
  UIBarButtonSystemItemFlexibleSpace,
  UIBarButtonSystemItemFixedSpace,
  UIBarButtonSystemItemCompose,
  UIBarButtonSystemItemReply,
  UIBarButtonSystemItemAction,
  UIBarButtonSystemItemOrganize,
  UIBarButtonSystemItemBookmarks,
  UIBarButtonSystemItemSearch,
  UIBarButtonSystemItemRefresh,
  UIBarButtonSystemItemStop,
  UIBarButtonSystemItemCamera,
  UIBarButtonSystemItemTrash,
  UIBarButtonSystemItemPlay,
  UIBarButtonSystemItemPause,
  UIBarButtonSystemItemRewind,
  UIBarButtonSystemItemFastForward,
  UIBarButtonSystemItemUndo,
  UIBarButtonSystemItemRedo,
  UIBarButtonSystemItemPageCurl,
  UIBarButtonSystemItemClose,
};

SIM_STATE_TYPE(BarButtonItemState);

/// A button that sends `action` to `target`. The target is not owned. Main thread.
@interface UIBarButtonItem : UIBarItem {
 @private
  SIM_STATE(BarButtonItemState, _barButtonItemState);
}
- (instancetype)initWithTitle:(NSString *)title style:(UIBarButtonItemStyle)style target:(id)target action:(SEL)action;
- (instancetype)initWithImage:(UIImage *)image style:(UIBarButtonItemStyle)style target:(id)target action:(SEL)action;
- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem target:(id)target action:(SEL)action;
- (instancetype)initWithCustomView:(UIView *)customView;
/// The action is copied; a system item ignores its title and its image.
- (instancetype)initWithPrimaryAction:(UIAction *)primaryAction;
- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem primaryAction:(UIAction *)primaryAction;
/// A tap opens the menu.
- (instancetype)initWithTitle:(NSString *)title menu:(UIMenu *)menu;
- (instancetype)initWithImage:(UIImage *)image menu:(UIMenu *)menu;
- (instancetype)initWithBarButtonSystemItem:(UIBarButtonSystemItem)systemItem menu:(UIMenu *)menu;

@property(nonatomic) UIBarButtonItemStyle style;
/// In points; 0 means by content.
@property(nonatomic) CGFloat width;
@property(nonatomic, retain) UIView *customView;
/// Takes no argument, the item, or the item and an event (always nil here).
@property(nonatomic) SEL action;
/// Not owned; nil sends the action along the responder chain of the page in front.
@property(nonatomic, assign) id target;
@property(nonatomic, retain) UIColor *tintColor;
/// In place of `target` and `action`. Setting one that is not nil gives its title and image to an item that is none of
/// the system's.
@property(nonatomic, copy) UIAction *primaryAction;
/// Opened by a tap, or by a finger that stays where a tap does something else. Copied, so that its elements cannot be
/// changed any more.
@property(nonatomic, copy) UIMenu *menu;
@end
