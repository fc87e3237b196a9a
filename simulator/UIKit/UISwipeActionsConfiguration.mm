#import <UIKit/UISwipeActionsConfiguration.h>

#import <Foundation/NotCarried.h>
#include <objcxx/Retained.h>

@implementation UISwipeActionsConfiguration

@synthesize actions = _actions;

+ (instancetype)configurationWithActions:(NSArray *)actions {
  UISwipeActionsConfiguration *configuration = objcxx::adopt([[self alloc] init]).autoreleased();
  configuration->_actions = [actions copy];
  configuration->_performsFirstActionWithFullSwipe = YES;
  return configuration;
}

- (BOOL)performsFirstActionWithFullSwipe {
  return _performsFirstActionWithFullSwipe;
}

- (void)setPerformsFirstActionWithFullSwipe:(BOOL)performs {
  if (performs) {
    sim::notCarried(@"UISwipeActionsConfiguration.performsFirstActionWithFullSwipe",
                    @"A swipe uncovers the actions, however far it goes.");
  }
  _performsFirstActionWithFullSwipe = performs;
}

- (void)dealloc {
  [_actions release];
  [super dealloc];
}

@end
