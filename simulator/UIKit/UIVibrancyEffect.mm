#import <UIKit/UIBlurEffect+Sim.h>
#import <UIKit/UITraitCollection.h>
#import <UIKit/UIVibrancyEffect+Sim.h>

namespace {

/// How opaque each style is: those of labels, fills and separators.
constexpr CGFloat kAlphas[] = {1, 0.6, 0.3, 0.18, 0.2, 0.16, 0.12, 0.29};

constexpr CGFloat kMiddleGrey = 0.5;

}  // namespace

@implementation UIVibrancyEffect

+ (UIVibrancyEffect *)effectForBlurEffect:(UIBlurEffect *)blurEffect {
  return [self effectForBlurEffect:blurEffect style:UIVibrancyEffectStyleLabel];
}

+ (UIVibrancyEffect *)effectForBlurEffect:(UIBlurEffect *)blurEffect style:(UIVibrancyEffectStyle)style {
  UIVibrancyEffect *effect = [[[self alloc] init] autorelease];
  effect->_blurEffect = [blurEffect retain];
  const bool isKnown = style >= UIVibrancyEffectStyleLabel && style <= UIVibrancyEffectStyleSeparator;
  effect->_style = isKnown ? style : UIVibrancyEffectStyleLabel;
  return effect;
}

- (void)dealloc {
  [_blurEffect release];
  [super dealloc];
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[UIVibrancyEffect class]]) return NO;
  const UIVibrancyEffect *other = object;
  return _style == other->_style && (_blurEffect == other->_blurEffect || [_blurEffect isEqual:other->_blurEffect]);
}

- (NSUInteger)hash {
  return NSUInteger(_style) + [_blurEffect hash];
}

@end

@implementation UIVibrancyEffect (Sim)

- (UIVibrancyEffectStyle)sim_style {
  return _style;
}

/// White on a dark blur, black on a light one.
- (UIColor *)sim_color {
  if (_style == UIVibrancyEffectStyleLabel) return nil;
  const CGFloat alpha = kAlphas[_style];
  UIColor *tint = [_blurEffect sim_tint] ?: [UIColor systemBackgroundColor];
  return [UIColor colorWithDynamicProvider:^(UITraitCollection *traits) {
    CGFloat white = 0;
    [[tint resolvedColorWithTraitCollection:traits] getWhite:&white alpha:nullptr];
    return [UIColor colorWithWhite:white < kMiddleGrey ? 1 : 0 alpha:alpha];
  }];
}

@end
