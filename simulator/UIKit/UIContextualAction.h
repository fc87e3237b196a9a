// An action behind a row, in the form that swipe configurations carry.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UIContextualAction;
@class UIImage;
@class UIView;

typedef NS_ENUM(NSInteger, UIContextualActionStyle) {
  UIContextualActionStyleNormal = 0,
  UIContextualActionStyleDestructive,
};

/// `completionHandler` is to be called once with whether the action was performed.
typedef void (^UIContextualActionHandler)(UIContextualAction *action, __kindof UIView *sourceView,
                                          void (^completionHandler)(BOOL actionPerformed));

SIM_STATE_TYPE(ContextualActionState);

/// Main thread.
@interface UIContextualAction : NSObject {
 @private
  SIM_STATE(ContextualActionState, _contextualActionState);
}
/// The handler is copied.
+ (instancetype)contextualActionWithStyle:(UIContextualActionStyle)style
                                    title:(NSString *)title
                                  handler:(UIContextualActionHandler)handler;
@property(nonatomic, readonly) UIContextualActionStyle style;
@property(nonatomic, readonly, copy) UIContextualActionHandler handler;
@property(nonatomic, copy) NSString *title;
/// At first red for the destructive style and grey for the normal one.
@property(nonatomic, copy) UIColor *backgroundColor;
@property(nonatomic, copy) UIImage *image;
@end
