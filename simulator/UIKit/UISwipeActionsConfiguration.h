// The actions on one side of a row.
#pragma once

#import <UIKit/UIContextualAction.h>

/// Main thread.
@interface UISwipeActionsConfiguration : NSObject {
 @private
  NSArray *_actions;
  BOOL _performsFirstActionWithFullSwipe;
}
+ (instancetype)configurationWithActions:(NSArray<UIContextualAction *> *)actions;
/// Of UIContextualAction, outermost first.
@property(nonatomic, readonly, copy) NSArray<UIContextualAction *> *actions;
@property(nonatomic) BOOL performsFirstActionWithFullSwipe;
@end
