// Something to choose in a menu, or that a control does. Main thread only.
#pragma once

#import <UIKit/UIMenu.h>
#import <UIKit/UIMenuElement.h>

@class UIAction;

typedef NSString *UIActionIdentifier;
typedef void (^UIActionHandler)(__kindof UIAction *action);

SIM_STATE_TYPE(ActionState);

@interface UIAction : UIMenuElement {
 @private
  SIM_STATE(ActionState, _actionState);
}
/// Without title and image. The identifier is one that nothing else has.
+ (instancetype)actionWithHandler:(UIActionHandler)handler;
/// nil as the identifier stands for one that nothing else has. `handler` is copied.
+ (instancetype)actionWithTitle:(NSString *)title
                          image:(UIImage *)image
                     identifier:(UIActionIdentifier)identifier
                        handler:(UIActionHandler)handler;
@property(nonatomic, copy) NSString *title;
@property(nonatomic, copy) UIImage *image;
/// What the action does in more words; assistive technologies are told. nil at first.
@property(nonatomic, copy) NSString *discoverabilityTitle;
@property(nonatomic, readonly) UIActionIdentifier identifier;
@property(nonatomic) UIMenuElementAttributes attributes;
@property(nonatomic) UIMenuElementState state;
/// What the handler is called for, while it is: the control, the bar button item. nil else. Not owned.
@property(nonatomic, readonly) id sender;
@end
