#import <QuartzCore/CALayer+Sim.h>

#include <objcxx/Retained.h>

namespace sim {

struct CALayerState {
  id<CALayerDelegate> delegate = nil;  // Not owned; cleared by the view.
  id<SIMLayerOwner> owner = nil;       // Likewise.
  CGFloat cornerRadius = 0;
  CACornerMask maskedCorners =
      kCALayerMinXMinYCorner | kCALayerMaxXMinYCorner | kCALayerMinXMaxYCorner | kCALayerMaxXMaxYCorner;
  CGFloat borderWidth = 0;
  objcxx::Retained<NSObject> borderColor;
  objcxx::Retained<NSObject> shadowColor;
  float shadowOpacity = 0;
  CGSize shadowOffset = {0, -3};
  CGFloat shadowRadius = 3;
};

}  // namespace sim

namespace {

objcxx::Retained<NSObject> shared(CGColorRef color) { return objcxx::share((NSObject *)color); }

}  // namespace

@implementation CALayer

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _state = std::make_unique<sim::CALayerState>();
  const CGColorRef black = CGColorCreateGenericGray(0, 1);
  _state->borderColor = shared(black);
  _state->shadowColor = shared(black);
  CGColorRelease(black);
  return self;
}

- (id<CALayerDelegate>)delegate {
  return _state->delegate;
}

- (void)setDelegate:(id<CALayerDelegate>)delegate {
  _state->delegate = delegate;
}

- (CGFloat)cornerRadius {
  return _state->cornerRadius;
}

- (void)setCornerRadius:(CGFloat)radius {
  _state->cornerRadius = radius;
}

- (CACornerMask)maskedCorners {
  return _state->maskedCorners;
}

- (void)setMaskedCorners:(CACornerMask)corners {
  _state->maskedCorners = corners;
}

- (BOOL)masksToBounds {
  return [_state->owner clipsToBounds];
}

- (void)setMasksToBounds:(BOOL)masks {
  [_state->owner setClipsToBounds:masks];
}

- (CGFloat)borderWidth {
  return _state->borderWidth;
}

- (void)setBorderWidth:(CGFloat)width {
  _state->borderWidth = width;
}

- (CGColorRef)borderColor {
  return (CGColorRef)_state->borderColor.get();
}

- (void)setBorderColor:(CGColorRef)color {
  _state->borderColor = shared(color);
}

- (CGColorRef)shadowColor {
  return (CGColorRef)_state->shadowColor.get();
}

- (void)setShadowColor:(CGColorRef)color {
  _state->shadowColor = shared(color);
}

- (float)shadowOpacity {
  return _state->shadowOpacity;
}

- (void)setShadowOpacity:(float)opacity {
  _state->shadowOpacity = opacity;
}

- (CGSize)shadowOffset {
  return _state->shadowOffset;
}

- (void)setShadowOffset:(CGSize)offset {
  _state->shadowOffset = offset;
}

- (CGFloat)shadowRadius {
  return _state->shadowRadius;
}

- (void)setShadowRadius:(CGFloat)radius {
  _state->shadowRadius = radius;
}

- (CGColorRef)backgroundColor {
  return [_state->owner sim_layerColor];
}

- (void)setBackgroundColor:(CGColorRef)color {
  [_state->owner sim_setLayerColor:color];
}

- (float)opacity {
  return float([_state->owner alpha]);
}

- (void)setOpacity:(float)opacity {
  [_state->owner setAlpha:opacity];
}

- (BOOL)isHidden {
  return [_state->owner isHidden];
}

- (void)setHidden:(BOOL)hidden {
  [_state->owner setHidden:hidden];
}

#pragma mark - Sim

- (void)sim_setOwner:(id<SIMLayerOwner>)owner {
  _state->owner = owner;
}

@end
