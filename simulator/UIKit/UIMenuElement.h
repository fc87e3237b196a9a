// What a menu holds. Main thread only.
#pragma once

#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class UIImage;

typedef NS_ENUM(NSInteger, UIMenuElementState) {
  UIMenuElementStateOff,
  UIMenuElementStateOn,
  UIMenuElementStateMixed,
};

typedef NS_OPTIONS(NSUInteger, UIMenuElementAttributes) {
  UIMenuElementAttributesDisabled = 1 << 0,
  UIMenuElementAttributesDestructive = 1 << 1,
  UIMenuElementAttributesHidden = 1 << 2,
};

SIM_STATE_TYPE(MenuElementState);

/// Abstract base of actions, menus and what is still to come of a menu. A menu that is given to a button is copied, and
/// the elements of the copy cannot be changed: their setters raise NSInternalInconsistencyException. Copies that
/// somebody asks for by `copy` can.
@interface UIMenuElement : NSObject <NSCopying> {
 @private
  SIM_STATE(MenuElementState, _menuElementState);
}
/// Never nil.
@property(nonatomic, readonly) NSString *title;
/// A second line below the title; nil at first.
@property(nonatomic, copy) NSString *subtitle;
@property(nonatomic, readonly) UIImage *image;
@end
