#import <UIKit/UIBarItem.h>

#import <UIKit/UIImage.h>
#include <objcxx/Retained.h>

#include <map>

namespace sim {
struct BarItemState {
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIImage> image;
  objcxx::Retained<NSString> accessibilityLabel;
  objcxx::Retained<NSString> accessibilityIdentifier;
  BOOL enabled = YES;
  NSInteger tag = 0;
  std::map<UIControlState, objcxx::Retained<NSDictionary>> titleAttributes;
};
}  // namespace sim

@implementation UIBarItem

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _barItemState = std::make_unique<sim::BarItemState>();
  return self;
}

- (NSString *)title {
  return _barItemState->title.get();
}

- (void)setTitle:(NSString *)title {
  _barItemState->title = objcxx::adopt((NSString *)[title copy]);
}

- (UIImage *)image {
  return _barItemState->image.get();
}

- (void)setImage:(UIImage *)image {
  _barItemState->image = objcxx::share(image);
}

- (BOOL)isEnabled {
  return _barItemState->enabled;
}

- (void)setEnabled:(BOOL)enabled {
  _barItemState->enabled = enabled;
}

- (NSInteger)tag {
  return _barItemState->tag;
}

- (void)setTag:(NSInteger)tag {
  _barItemState->tag = tag;
}

- (NSString *)accessibilityLabel {
  return _barItemState->accessibilityLabel.get();
}

- (void)setAccessibilityLabel:(NSString *)label {
  _barItemState->accessibilityLabel = objcxx::adopt((NSString *)[label copy]);
}

- (NSString *)accessibilityIdentifier {
  return _barItemState->accessibilityIdentifier.get();
}

- (void)setAccessibilityIdentifier:(NSString *)identifier {
  _barItemState->accessibilityIdentifier = objcxx::adopt((NSString *)[identifier copy]);
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes forState:(UIControlState)state {
  if (attributes) {
    _barItemState->titleAttributes[state] = objcxx::adopt((NSDictionary *)[attributes copy]);
  } else {
    _barItemState->titleAttributes.erase(state);
  }
}

- (NSDictionary *)titleTextAttributesForState:(UIControlState)state {
  const auto found = _barItemState->titleAttributes.find(state);
  return found == _barItemState->titleAttributes.end() ? nil : found->second.get();
}

@end
