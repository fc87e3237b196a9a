// A button of an alert.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

@class UIAlertAction;

typedef NS_ENUM(NSInteger, UIAlertActionStyle) {
  UIAlertActionStyleDefault = 0,
  UIAlertActionStyleCancel,
  UIAlertActionStyleDestructive,
};

SIM_STATE_TYPE(AlertActionState);

/// Main thread.
@interface UIAlertAction : NSObject <NSCopying> {
 @private
  SIM_STATE(AlertActionState, _alertActionState);
}
/// The handler is copied; nil for a button that only dismisses.
+ (instancetype)actionWithTitle:(NSString *)title
                          style:(UIAlertActionStyle)style
                        handler:(void (^)(UIAlertAction *action))handler;
@property(nonatomic, readonly) NSString *title;
@property(nonatomic, readonly) UIAlertActionStyle style;
@property(nonatomic, getter=isEnabled) BOOL enabled;
@end
