#import <UIKit/UIBarAppearance+Sim.h>

#import <UIKit/UIColor.h>
#import <UIKit/UIImage.h>
#include <objcxx/Retained.h>

namespace sim {
struct BarAppearanceState {
  UIUserInterfaceIdiom idiom = UIUserInterfaceIdiomUnspecified;
  objcxx::Retained<NSObject> effect;
  bool blurs = false;
  objcxx::Retained<UIColor> backgroundColor;
  objcxx::Retained<UIImage> backgroundImage;
  UIViewContentMode contentMode = UIViewContentModeScaleToFill;
  objcxx::Retained<UIColor> shadowColor;
  objcxx::Retained<UIImage> shadowImage;
  bool isOffered = false;
};
}  // namespace sim

namespace {

bool isEmpty(UIImage *image) { return [image size].width <= 0 || [image size].height <= 0; }

}  // namespace

@implementation UIBarAppearance

- (instancetype)init {
  return [self initWithIdiom:[[UIDevice currentDevice] userInterfaceIdiom]];
}

- (instancetype)initWithIdiom:(UIUserInterfaceIdiom)idiom {
  if (!(self = [super init])) return nil;

  _barAppearanceState = std::make_unique<sim::BarAppearanceState>();
  _barAppearanceState->idiom = idiom;
  [self configureWithDefaultBackground];
  return self;
}

- (instancetype)initWithBarAppearance:(UIBarAppearance *)barAppearance {
  if (!(self = [self initWithIdiom:[barAppearance idiom]])) return nil;

  if (barAppearance) *_barAppearanceState = *barAppearance->_barAppearanceState;
  return self;
}

- (id)copyWithZone:(NSZone *)zone {
  return [[[self class] allocWithZone:zone] initWithBarAppearance:self];
}

- (UIUserInterfaceIdiom)idiom {
  return _barAppearanceState->idiom;
}

- (void)sim_configureBlurring:(bool)blurs color:(UIColor *)color shadow:(UIColor *)shadow {
  auto &state = *_barAppearanceState;
  state.effect = nullptr;
  state.blurs = blurs;
  state.backgroundColor = objcxx::share(color);
  state.backgroundImage = nullptr;
  state.contentMode = UIViewContentModeScaleToFill;
  state.shadowColor = objcxx::share(shadow);
  state.shadowImage = nullptr;
  [self sim_didChange];
}

- (void)configureWithDefaultBackground {
  [self sim_configureBlurring:true color:nil shadow:[UIColor separatorColor]];
}

- (void)configureWithOpaqueBackground {
  [self sim_configureBlurring:false color:[UIColor systemBackgroundColor] shadow:[UIColor separatorColor]];
}

- (void)configureWithTransparentBackground {
  [self sim_configureBlurring:false color:nil shadow:nil];
}

- (UIBlurEffect *)backgroundEffect {
  return (UIBlurEffect *)_barAppearanceState->effect.get();
}

- (void)setBackgroundEffect:(UIBlurEffect *)effect {
  _barAppearanceState->effect = objcxx::adopt((NSObject *)[(id<NSCopying>)effect copyWithZone:nullptr]);
  _barAppearanceState->blurs = effect != nil;
  [self sim_didChange];
}

- (UIColor *)backgroundColor {
  return _barAppearanceState->backgroundColor.get();
}

- (void)setBackgroundColor:(UIColor *)color {
  _barAppearanceState->backgroundColor = objcxx::adopt((UIColor *)[color copy]);
  [self sim_didChange];
}

- (UIImage *)backgroundImage {
  return _barAppearanceState->backgroundImage.get();
}

- (void)setBackgroundImage:(UIImage *)image {
  _barAppearanceState->backgroundImage = objcxx::share(image);
  [self sim_didChange];
}

- (UIViewContentMode)backgroundImageContentMode {
  return _barAppearanceState->contentMode;
}

- (void)setBackgroundImageContentMode:(UIViewContentMode)mode {
  _barAppearanceState->contentMode = mode;
  [self sim_didChange];
}

- (UIColor *)shadowColor {
  return _barAppearanceState->shadowColor.get();
}

- (void)setShadowColor:(UIColor *)color {
  _barAppearanceState->shadowColor = objcxx::adopt((UIColor *)[color copy]);
  [self sim_didChange];
}

- (UIImage *)shadowImage {
  return _barAppearanceState->shadowImage.get();
}

- (void)setShadowImage:(UIImage *)image {
  _barAppearanceState->shadowImage = objcxx::share(image);
  [self sim_didChange];
}

@end

@implementation UIBarAppearance (Sim)

- (BOOL)sim_blurs {
  return _barAppearanceState->blurs;
}

- (BOOL)sim_isTransparent {
  const auto &state = *_barAppearanceState;
  return !state.blurs && !state.backgroundColor && isEmpty(state.backgroundImage.get());
}

- (BOOL)sim_hasShadow {
  const auto &state = *_barAppearanceState;
  return state.shadowImage ? !isEmpty(state.shadowImage.get()) : static_cast<bool>(state.shadowColor);
}

- (BOOL)sim_isOffered {
  return _barAppearanceState->isOffered;
}

- (void)setSim_isOffered:(BOOL)isOffered {
  _barAppearanceState->isOffered = isOffered;
}

- (void)sim_didChange {
  _barAppearanceState->isOffered = false;
}

@end
