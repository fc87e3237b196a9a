#import <UIKit/UISwipeActionsConfiguration.h>

#include <objcxx/Retained.h>

@implementation UISwipeActionsConfiguration

@synthesize actions = _actions;
@synthesize performsFirstActionWithFullSwipe = _performsFirstActionWithFullSwipe;

+ (instancetype)configurationWithActions:(NSArray *)actions {
  UISwipeActionsConfiguration *configuration = objcxx::adopt([[self alloc] init]).autoreleased();
  configuration->_actions = [actions copy];
  configuration->_performsFirstActionWithFullSwipe = YES;
  return configuration;
}

- (void)dealloc {
  [_actions release];
  [super dealloc];
}

@end
