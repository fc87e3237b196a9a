// A menu that a finger opens which stays on a view. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIContextMenuConfiguration.h>
#import <UIKit/UIInteraction.h>

@class UIContextMenuInteraction;
@class UIViewController;

typedef NS_ENUM(NSInteger, UIContextMenuInteractionAppearance) {
  UIContextMenuInteractionAppearanceUnknown = 0,
  UIContextMenuInteractionAppearanceRich,
  UIContextMenuInteractionAppearanceCompact,
};

@protocol UIContextMenuInteractionAnimating <NSObject>
/// nil: there are no previews.
@property(nonatomic, readonly) UIViewController *previewViewController;
/// Runs at once when the method that got the animator has returned.
- (void)addAnimations:(void (^)(void))animations;
/// Runs when the menu is there, or gone.
- (void)addCompletion:(void (^)(void))completion;
@end

@protocol UIContextMenuInteractionDelegate <NSObject>
/// `location` is in the coordinates of the interaction's view. nil means no menu, and the touch goes on.
- (UIContextMenuConfiguration *)contextMenuInteraction:(UIContextMenuInteraction *)interaction
                        configurationForMenuAtLocation:(CGPoint)location;
@optional
- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
    willDisplayMenuForConfiguration:(UIContextMenuConfiguration *)configuration
                           animator:(id<UIContextMenuInteractionAnimating>)animator;
- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
       willEndForConfiguration:(UIContextMenuConfiguration *)configuration
                      animator:(id<UIContextMenuInteractionAnimating>)animator;
@end

SIM_STATE_TYPE(ContextMenuInteractionState);

@interface UIContextMenuInteraction : NSObject <UIInteraction> {
 @private
  SIM_STATE(ContextMenuInteractionState, _interactionState);
}
- (instancetype)initWithDelegate:(id<UIContextMenuInteractionDelegate>)delegate;
/// Not owned.
@property(nonatomic, readonly) id<UIContextMenuInteractionDelegate> delegate;
/// Compact for the menu of a control, rich for any other, while it is shown or about to be; else unknown.
@property(nonatomic, readonly) UIContextMenuInteractionAppearance menuAppearance;
/// Where the finger was that opened the menu; nil stands for the window.
- (CGPoint)locationInView:(UIView *)view;
/// `block` is given a copy of the open menu and of each menu that is open in it, and gives what is shown instead.
- (void)updateVisibleMenuWithBlock:(UIMenu * (^)(UIMenu *visibleMenu))block;
- (void)dismissMenu;
@end
