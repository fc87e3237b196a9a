#import <UIKit/UINavigationBar.h>

#import <UIKit/UINavigationItem.h>
#include <objcxx/Retained.h>

namespace sim {
struct NavigationBarState {
  UIBarStyle barStyle = UIBarStyleDefault;
  BOOL translucent = YES;
  BOOL prefersLargeTitles = NO;
  objcxx::Retained<UIColor> barTintColor;
  objcxx::Retained<NSDictionary> titleTextAttributes;
  objcxx::Retained<NSDictionary> largeTitleTextAttributes;
  objcxx::Retained<NSArray> items;
};
}  // namespace sim

@implementation UINavigationBar

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;

  _navigationBarState = std::make_unique<sim::NavigationBarState>();
  return self;
}

- (UIBarStyle)barStyle {
  return _navigationBarState->barStyle;
}

- (void)setBarStyle:(UIBarStyle)barStyle {
  _navigationBarState->barStyle = barStyle;
}

- (BOOL)isTranslucent {
  return _navigationBarState->translucent;
}

- (void)setTranslucent:(BOOL)translucent {
  _navigationBarState->translucent = translucent;
}

- (BOOL)prefersLargeTitles {
  return _navigationBarState->prefersLargeTitles;
}

- (void)setPrefersLargeTitles:(BOOL)prefersLargeTitles {
  _navigationBarState->prefersLargeTitles = prefersLargeTitles;
}

- (UIColor *)barTintColor {
  return _navigationBarState->barTintColor.get();
}

- (void)setBarTintColor:(UIColor *)color {
  _navigationBarState->barTintColor = objcxx::share(color);
}

- (NSDictionary *)titleTextAttributes {
  return _navigationBarState->titleTextAttributes.get();
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarState->titleTextAttributes = objcxx::adopt((NSDictionary *)[attributes copy]);
}

- (NSDictionary *)largeTitleTextAttributes {
  return _navigationBarState->largeTitleTextAttributes.get();
}

- (void)setLargeTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarState->largeTitleTextAttributes = objcxx::adopt((NSDictionary *)[attributes copy]);
}

- (NSArray *)items {
  return _navigationBarState->items.get();
}

- (void)setItems:(NSArray *)items {
  _navigationBarState->items = objcxx::adopt((NSArray *)[items copy]);
}

- (UINavigationItem *)topItem {
  return [_navigationBarState->items.get() lastObject];
}

- (UINavigationItem *)backItem {
  NSArray *items = _navigationBarState->items.get();
  const NSUInteger count = [items count];
  return count < 2 ? nil : [items objectAtIndex:count - 2];
}

@end
