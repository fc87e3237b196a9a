#import <UIKit/UIMenuElement+Sim.h>

#import <UIKit/UIImage.h>

#include <objcxx/Retained.h>

namespace sim {

struct MenuElementState {
  objcxx::Retained<NSString> title;
  objcxx::Retained<NSString> subtitle;
  objcxx::Retained<UIImage> image;
  bool isFrozen = false;
};

}  // namespace sim

@implementation UIMenuElement

- (instancetype)init {
  return [self sim_initWithTitle:nil image:nil];
}

- (NSString *)title {
  return _menuElementState->title.get();
}

- (UIImage *)image {
  return _menuElementState->image.get();
}

- (NSString *)subtitle {
  return _menuElementState->subtitle.get();
}

- (void)setSubtitle:(NSString *)subtitle {
  [self sim_requireMutable];
  _menuElementState->subtitle = objcxx::adopt((NSString *)[subtitle copy]);
}

- (id)copyWithZone:(NSZone *)zone {
  UIMenuElement *copy = [[[self class] allocWithZone:zone] sim_initWithTitle:[self title] image:[self image]];
  copy->_menuElementState->subtitle = _menuElementState->subtitle;
  return copy;
}

@end

@implementation UIMenuElement (Sim)

- (instancetype)sim_initWithTitle:(NSString *)title image:(UIImage *)image {
  if (!(self = [super init])) return nil;
  _menuElementState = std::make_unique<sim::MenuElementState>();
  [self sim_setTitle:title];
  [self sim_setImage:image];
  return self;
}

- (void)sim_setTitle:(NSString *)title {
  _menuElementState->title = objcxx::adopt((NSString *)[title ?: @"" copy]);
}

- (void)sim_setImage:(UIImage *)image {
  _menuElementState->image = objcxx::share(image);
}

- (void)sim_requireMutable {
  if (!_menuElementState->isFrozen) return;
  [NSException raise:NSInternalInconsistencyException
              format:@"%@ is immutable because it is a child of a menu.", NSStringFromClass([self class])];
}

- (instancetype)sim_frozen {
  if (_menuElementState->isFrozen) return self;
  UIMenuElement *copy = [[self copy] autorelease];
  copy->_menuElementState->isFrozen = true;
  return copy;
}

@end
