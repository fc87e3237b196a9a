#import <UIKit/UIAction.h>
#import <UIKit/UIMenu.h>
#import <UIKit/UIMenuElement+Sim.h>

#import <UIKit/UIImage.h>

#include <objcxx/Retained.h>

namespace sim {

struct MenuState {
  objcxx::Retained<NSString> identifier;
  objcxx::Retained<NSArray> children;
  UIMenuOptions options = 0;
};

}  // namespace sim

namespace {

void addSelected(UIMenu *menu, NSMutableArray *found) {
  for (UIMenuElement *child in [menu children]) {
    if ([child isKindOfClass:[UIMenu class]]) addSelected((UIMenu *)child, found);
    const bool isOn = [child isKindOfClass:[UIAction class]] && [(UIAction *)child state] == UIMenuElementStateOn;
    if (isOn) [found addObject:child];
  }
}

}  // namespace

@implementation UIMenu

- (instancetype)sim_initWithTitle:(NSString *)title image:(UIImage *)image {
  if (!(self = [super sim_initWithTitle:title image:image])) return nil;
  _menuState = std::make_unique<sim::MenuState>();
  _menuState->children = objcxx::share(@[]);
  return self;
}

+ (UIMenu *)menuWithChildren:(NSArray *)children {
  return [self menuWithTitle:@"" children:children];
}

+ (UIMenu *)menuWithTitle:(NSString *)title children:(NSArray *)children {
  return [self menuWithTitle:title image:nil identifier:nil options:0 children:children];
}

+ (UIMenu *)menuWithTitle:(NSString *)title
                    image:(UIImage *)image
               identifier:(UIMenuIdentifier)identifier
                  options:(UIMenuOptions)options
                 children:(NSArray *)children {
  UIMenu *menu = objcxx::adopt([[self alloc] sim_initWithTitle:title image:image]).autoreleased();
  NSString *known = identifier ?: [@"com.apple.menu.dynamic." stringByAppendingString:[[NSUUID UUID] UUIDString]];
  menu->_menuState->identifier = objcxx::adopt((NSString *)[known copy]);
  menu->_menuState->options = options;
  menu->_menuState->children = objcxx::adopt((NSArray *)[children ?: @[] copy]);
  return menu;
}

- (UIMenuIdentifier)identifier {
  return _menuState->identifier.get();
}

- (UIMenuOptions)options {
  return _menuState->options;
}

- (NSArray *)children {
  return _menuState->children.get();
}

- (NSArray *)selectedElements {
  NSMutableArray *found = [NSMutableArray array];
  addSelected(self, found);
  return found;
}

/// The same menu with other children, which are not copied.
- (UIMenu *)sim_copyWith:(NSArray *)children zone:(NSZone *)zone {
  UIMenu *copy = [super copyWithZone:zone];
  copy->_menuState->identifier = _menuState->identifier;
  copy->_menuState->options = _menuState->options;
  copy->_menuState->children = objcxx::adopt((NSArray *)[children copy]);
  return copy;
}

- (id)copyWithZone:(NSZone *)zone {
  NSMutableArray *children = [NSMutableArray array];
  for (UIMenuElement *child in [self children]) [children addObject:[[child copy] autorelease]];
  return [self sim_copyWith:children zone:zone];
}

- (UIMenu *)menuByReplacingChildren:(NSArray *)newChildren {
  return [[self sim_copyWith:newChildren ?: @[] zone:NULL] autorelease];
}

- (instancetype)sim_frozen {
  UIMenu *frozen = [super sim_frozen];
  if (frozen == self) return self;
  NSMutableArray *children = [NSMutableArray array];
  for (UIMenuElement *child in [self children]) [children addObject:[child sim_frozen]];
  frozen->_menuState->children = objcxx::share((NSArray *)children);
  return frozen;
}

@end
