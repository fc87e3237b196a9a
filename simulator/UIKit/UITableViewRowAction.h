// An action behind a row, in the form that table view delegates give as an array.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

@class UIColor;
@class UITableViewRowAction;

typedef NS_ENUM(NSInteger, UITableViewRowActionStyle) {
  UITableViewRowActionStyleDefault = 0,
  UITableViewRowActionStyleDestructive = UITableViewRowActionStyleDefault,
  UITableViewRowActionStyleNormal,
};

SIM_STATE_TYPE(RowActionState);

/// Main thread.
@interface UITableViewRowAction : NSObject <NSCopying> {
 @private
  SIM_STATE(RowActionState, _rowActionState);
}
/// The handler is copied.
+ (instancetype)rowActionWithStyle:(UITableViewRowActionStyle)style
                             title:(NSString *)title
                           handler:(void (^)(UITableViewRowAction *action, NSIndexPath *indexPath))handler;
@property(nonatomic, readonly) UITableViewRowActionStyle style;
@property(nonatomic, copy) NSString *title;
/// At first red for the destructive style and grey for the normal one.
@property(nonatomic, copy) UIColor *backgroundColor;
@end
