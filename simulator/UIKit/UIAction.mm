#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIMenuElement+Sim.h>

#import <UIKit/UIImage.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

namespace sim {

struct ActionState {
  objcxx::Retained<NSString> identifier;
  objcxx::Retained<NSString> discoverabilityTitle;
  objcxx::BlockHandle<void, __kindof UIAction *> handler;
  UIMenuElementAttributes attributes = 0;
  UIMenuElementState state = UIMenuElementStateOff;
  id sender = nil;  // Not owned.
};

}  // namespace sim

@implementation UIAction

@dynamic title, image;

- (instancetype)sim_initWithTitle:(NSString *)title image:(UIImage *)image {
  if (!(self = [super sim_initWithTitle:title image:image])) return nil;
  _actionState = std::make_unique<sim::ActionState>();
  return self;
}

+ (instancetype)actionWithHandler:(UIActionHandler)handler {
  return [self actionWithTitle:@"" image:nil identifier:nil handler:handler];
}

+ (instancetype)actionWithTitle:(NSString *)title
                          image:(UIImage *)image
                     identifier:(UIActionIdentifier)identifier
                        handler:(UIActionHandler)handler {
  UIAction *action = objcxx::adopt([[self alloc] sim_initWithTitle:title image:image]).autoreleased();
  NSString *known = identifier ?: [@"com.apple.action.dynamic." stringByAppendingString:[[NSUUID UUID] UUIDString]];
  action->_actionState->identifier = objcxx::adopt((NSString *)[known copy]);
  action->_actionState->handler = objcxx::copyOf(handler);
  return action;
}

- (id)copyWithZone:(NSZone *)zone {
  UIAction *copy = [super copyWithZone:zone];
  *copy->_actionState = *_actionState;
  copy->_actionState->sender = nil;
  return copy;
}

- (void)setTitle:(NSString *)title {
  [self sim_requireMutable];
  [self sim_setTitle:title];
}

- (void)setImage:(UIImage *)image {
  [self sim_requireMutable];
  [self sim_setImage:image];
}

- (NSString *)discoverabilityTitle {
  return _actionState->discoverabilityTitle.get();
}

- (void)setDiscoverabilityTitle:(NSString *)title {
  [self sim_requireMutable];
  _actionState->discoverabilityTitle = objcxx::adopt((NSString *)[title copy]);
}

- (UIActionIdentifier)identifier {
  return _actionState->identifier.get();
}

- (UIMenuElementAttributes)attributes {
  return _actionState->attributes;
}

- (void)setAttributes:(UIMenuElementAttributes)attributes {
  [self sim_requireMutable];
  _actionState->attributes = attributes;
}

- (UIMenuElementState)state {
  return _actionState->state;
}

- (void)setState:(UIMenuElementState)state {
  [self sim_requireMutable];
  _actionState->state = state;
}

- (id)sender {
  return _actionState->sender;
}

@end

@implementation UIAction (Sim)

- (void)sim_performFrom:(id)sender {
  // The handler may be the end of the action and of its sender.
  const auto kept = objcxx::share(self);
  const auto keptSender = objcxx::share((NSObject *)sender);
  const auto handler = _actionState->handler;
  _actionState->sender = sender;
  if (handler) handler(self);
  _actionState->sender = nil;
}

- (void)sim_turn:(UIMenuElementState)state {
  _actionState->state = state;
}

- (BOOL)sim_has:(UIMenuElementAttributes)attributes {
  return (_actionState->attributes & attributes) == attributes;
}

@end
