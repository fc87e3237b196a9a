#import <UIKit/UIAlertAction+Sim.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {
struct AlertActionState {
  objcxx::Retained<NSString> title;
  UIAlertActionStyle style = UIAlertActionStyleDefault;
  objcxx::BlockHandle<void, UIAlertAction *> handler;
  BOOL enabled = YES;
};
}  // namespace sim

@implementation UIAlertAction

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _alertActionState = std::make_unique<sim::AlertActionState>();
  return self;
}

+ (instancetype)actionWithTitle:(NSString *)title
                          style:(UIAlertActionStyle)style
                        handler:(void (^)(UIAlertAction *action))handler {
  UIAlertAction *action = objcxx::adopt([[self alloc] init]).autoreleased();
  action->_alertActionState->title = objcxx::adopt((NSString *)[title copy]);
  action->_alertActionState->style = style;
  action->_alertActionState->handler = objcxx::copyOf(handler);
  return action;
}

- (id)copyWithZone:(NSZone *)zone {
  UIAlertAction *copy = [[[self class] allocWithZone:zone] init];
  *copy->_alertActionState = *_alertActionState;
  return copy;
}

- (NSString *)title {
  return _alertActionState->title.get();
}

- (UIAlertActionStyle)style {
  return _alertActionState->style;
}

- (BOOL)isEnabled {
  return _alertActionState->enabled;
}

- (void)setEnabled:(BOOL)enabled {
  _alertActionState->enabled = enabled;
}

- (void (^)(UIAlertAction *))sim_handler {
  return _alertActionState->handler.get();
}

- (void)sim_clearHandler {
  _alertActionState->handler = {};
}

@end
