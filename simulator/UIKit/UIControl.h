// Controls: views that send actions. Main thread only.
#pragma once

#import <UIKit/UIContextMenuInteraction.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIControlMemory);

@class UIEvent;
@class UITouch;

typedef NS_OPTIONS(NSUInteger, UIControlEvents) {
  UIControlEventTouchDown = 1 << 0,
  UIControlEventTouchDownRepeat = 1 << 1,
  UIControlEventTouchDragInside = 1 << 2,
  UIControlEventTouchDragOutside = 1 << 3,
  UIControlEventTouchDragEnter = 1 << 4,
  UIControlEventTouchDragExit = 1 << 5,
  UIControlEventTouchUpInside = 1 << 6,
  UIControlEventTouchUpOutside = 1 << 7,
  UIControlEventTouchCancel = 1 << 8,
  UIControlEventValueChanged = 1 << 12,
  UIControlEventPrimaryActionTriggered = 1 << 13,
  /// The control's menu is about to open.
  UIControlEventMenuActionTriggered = 1 << 14,
  UIControlEventEditingDidBegin = 1 << 16,
  UIControlEventEditingChanged = 1 << 17,
  UIControlEventEditingDidEnd = 1 << 18,
  UIControlEventEditingDidEndOnExit = 1 << 19,
  UIControlEventAllTouchEvents = 0x00000FFF,
  UIControlEventAllEditingEvents = 0x000F0000,
  UIControlEventAllEvents = 0xFFFFFFFF,
};

typedef NS_OPTIONS(NSUInteger, UIControlState) {
  UIControlStateNormal = 0,
  UIControlStateHighlighted = 1 << 0,
  UIControlStateDisabled = 1 << 1,
  UIControlStateSelected = 1 << 2,
};

typedef NS_ENUM(NSInteger, UIControlContentHorizontalAlignment) {
  UIControlContentHorizontalAlignmentCenter = 0,
  UIControlContentHorizontalAlignmentLeft = 1,
  UIControlContentHorizontalAlignmentRight = 2,
  UIControlContentHorizontalAlignmentFill = 3,
  UIControlContentHorizontalAlignmentLeading = 4,
  UIControlContentHorizontalAlignmentTrailing = 5,
};

typedef NS_ENUM(NSInteger, UIControlContentVerticalAlignment) {
  UIControlContentVerticalAlignmentCenter = 0,
  UIControlContentVerticalAlignmentTop = 1,
  UIControlContentVerticalAlignmentBottom = 2,
  UIControlContentVerticalAlignmentFill = 3,
};

@interface UIControl : UIView <UIContextMenuInteractionDelegate> {
 @private
  SIM_STATE(UIControlMemory, _controlState);
}
/// With the action for UIControlEventPrimaryActionTriggered; nil for none.
- (instancetype)initWithFrame:(CGRect)frame primaryAction:(UIAction *)primaryAction;
@property(nonatomic, getter=isEnabled) BOOL enabled;
@property(nonatomic, getter=isSelected) BOOL selected;
@property(nonatomic, getter=isHighlighted) BOOL highlighted;
@property(nonatomic) UIControlContentHorizontalAlignment contentHorizontalAlignment;
@property(nonatomic) UIControlContentVerticalAlignment contentVerticalAlignment;
@property(nonatomic, readonly) UIControlState state;

/// Whether a finger that came down on the control is followed, and whether it is inside now, or near.
@property(nonatomic, readonly, getter=isTracking) BOOL tracking;
@property(nonatomic, readonly, getter=isTouchInside) BOOL touchInside;
/// For subclasses, which may follow the finger. NO ends it. YES here.
- (BOOL)beginTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event;
- (BOOL)continueTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event;
- (void)endTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event;
- (void)cancelTrackingWithEvent:(UIEvent *)event;

/// `target` is not owned; nil means the first in the responder chain that answers `action`. The action takes nothing,
/// the sender, or the sender and the event (nil where none led to it). Adding the same pair again adds to its events.
- (void)addTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events;
/// nil stands for every target, NULL for every action.
- (void)removeTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events;
/// Owned. Adding one whose identifier is known puts it in the place of that one, for the events of both.
- (void)addAction:(UIAction *)action forControlEvents:(UIControlEvents)controlEvents;
- (void)removeAction:(UIAction *)action forControlEvents:(UIControlEvents)controlEvents;
- (void)removeActionForIdentifier:(UIActionIdentifier)actionIdentifier forControlEvents:(UIControlEvents)controlEvents;
/// Of those added when it began, in that order: an action, or a target (which may be nil) with its selector.
- (void)enumerateEventHandlers:(void (^)(UIAction *actionHandler, id target, SEL action, UIControlEvents controlEvents,
                                         BOOL *stop))iterator;
/// NSNull stands for the nil target. Actions have no target.
- (NSSet *)allTargets;
- (UIControlEvents)allControlEvents;
/// Selector names; nil when there are none.
- (NSArray<NSString *> *)actionsForTarget:(id)target forControlEvent:(UIControlEvents)event;
- (void)sendActionsForControlEvents:(UIControlEvents)events;
/// Every action goes through here. A target that does not answer raises NSInvalidArgumentException.
- (void)sendAction:(SEL)action to:(id)target forEvent:(UIEvent *)event;
/// Every UIAction goes through here.
- (void)sendAction:(UIAction *)action;
@end

@interface UIControl (Menu)
/// For subclasses that implement `contextMenuInteraction:configurationForMenuAtLocation:`, which is nil here. A finger
/// that stays opens the menu while it is enabled; NO at first.
@property(nonatomic, getter=isContextMenuInteractionEnabled) BOOL contextMenuInteractionEnabled;
/// nil until it was enabled.
@property(nonatomic, readonly) UIContextMenuInteraction *contextMenuInteraction;
/// NO at first. A tap opens the menu, in place of the actions of a tap, while the interaction is enabled.
@property(nonatomic) BOOL showsMenuAsPrimaryAction;
/// Subclasses call super.
- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
    willDisplayMenuForConfiguration:(UIContextMenuConfiguration *)configuration
                           animator:(id<UIContextMenuInteractionAnimating>)animator;
- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
       willEndForConfiguration:(UIContextMenuConfiguration *)configuration
                      animator:(id<UIContextMenuInteractionAnimating>)animator;
@end
