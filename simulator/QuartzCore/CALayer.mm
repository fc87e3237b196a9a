// A layer and the properties of its look.
#import <Foundation/NotCarried.h>
#import <QuartzCore/CALayerState.h>

CALayerContentsGravity const kCAGravityCenter = @"center";
CALayerContentsGravity const kCAGravityTop = @"top";
CALayerContentsGravity const kCAGravityBottom = @"bottom";
CALayerContentsGravity const kCAGravityLeft = @"left";
CALayerContentsGravity const kCAGravityRight = @"right";
CALayerContentsGravity const kCAGravityTopLeft = @"topLeft";
CALayerContentsGravity const kCAGravityTopRight = @"topRight";
CALayerContentsGravity const kCAGravityBottomLeft = @"bottomLeft";
CALayerContentsGravity const kCAGravityBottomRight = @"bottomRight";
CALayerContentsGravity const kCAGravityResize = @"resize";
CALayerContentsGravity const kCAGravityResizeAspect = @"resizeAspect";
CALayerContentsGravity const kCAGravityResizeAspectFill = @"resizeAspectFill";
CALayerCornerCurve const kCACornerCurveCircular = @"circular";
CALayerCornerCurve const kCACornerCurveContinuous = @"continuous";

namespace {

objcxx::Retained<NSObject> shared(const void *object) { return objcxx::share((NSObject *)(void *)object); }

}  // namespace

@implementation CALayer

+ (instancetype)layer {
  return [[[self alloc] init] autorelease];
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _state = std::make_unique<sim::CALayerState>();
  const CGColorRef black = CGColorCreateGenericGray(0, 1);
  _state->borderColor = shared(black);
  _state->shadowColor = shared(black);
  CGColorRelease(black);
  _state->contentsGravity = objcxx::share((NSString *)kCAGravityResize);
  _state->cornerCurve = objcxx::share((NSString *)kCACornerCurveCircular);
  return self;
}

- (instancetype)initWithLayer:(id)layer {
  if (!(self = [self init])) return nil;
  if (![layer isKindOfClass:[CALayer class]]) return self;
  CALayer *other = layer;
  *_state = *other->_state;
  static_cast<sim::LayerGeometry &>(*_state) = [other sim_geometry];
  _state->backgroundColor = shared([other backgroundColor]);
  _state->opacity = [other opacity];
  _state->hidden = [other isHidden];
  _state->masksToBounds = [other masksToBounds];
  _state->owner = nil;
  _state->delegate = nil;  // It may be gone before the copy.
  _state->animations.clear();
  _state->superlayer = nil;
  _state->listsSublayers = false;
  _state->sublayers.clear();
  _state->mask = nullptr;
  return self;
}

- (void)dealloc {
  if (!_state) {  // An init that failed before ours ran.
    [super dealloc];
    return;
  }
  for (const auto &sublayer : _state->sublayers) {
    if (sublayer.get()->_state->superlayer == self) sublayer.get()->_state->superlayer = nil;
  }
  if (_state->mask) _state->mask.get()->_state->superlayer = nil;
  [super dealloc];
}

- (sim::CALayerState &)sim_state {
  return *_state;
}

- (sim::LayerGeometry &)sim_geometry {
  return _state->owner ? [_state->owner sim_layerGeometry] : *_state;
}

- (void)sim_setOwner:(id<SIMLayerOwner>)owner {
  _state->owner = owner;
}

- (id<SIMLayerOwner>)sim_owner {
  return _state->owner;
}

- (id<CALayerDelegate>)delegate {
  return _state->delegate;
}

- (void)setDelegate:(id<CALayerDelegate>)delegate {
  _state->delegate = delegate;
}

- (CGColorRef)backgroundColor {
  return _state->owner ? [_state->owner sim_layerColor] : (CGColorRef)_state->backgroundColor.get();
}

- (void)setBackgroundColor:(CGColorRef)color {
  if (_state->owner) return [_state->owner sim_setLayerColor:color];
  _state->backgroundColor = shared(color);
}

- (NSString *)name {
  return _state->name.get();
}

- (void)setName:(NSString *)name {
  _state->name = objcxx::adopt((NSString *)[name copy]);
}

- (CALayerContentsGravity)contentsGravity {
  return _state->contentsGravity.get();
}

- (void)setContentsGravity:(CALayerContentsGravity)contentsGravity {
  _state->contentsGravity = objcxx::adopt((NSString *)[contentsGravity copy]);
}

- (CALayerCornerCurve)cornerCurve {
  return _state->cornerCurve.get();
}

- (void)setCornerCurve:(CALayerCornerCurve)cornerCurve {
  if ([cornerCurve isEqualToString:kCACornerCurveContinuous]) {
    sim::notCarried(@"CALayer.cornerCurve", @"Corners are drawn as parts of circles.");
  }
  _state->cornerCurve = objcxx::adopt((NSString *)[cornerCurve copy]);
}

- (CGFloat)cornerRadius {
  return _state->cornerRadius;
}

- (void)setCornerRadius:(CGFloat)cornerRadius {
  _state->cornerRadius = cornerRadius;
}

- (CACornerMask)maskedCorners {
  return _state->maskedCorners;
}

- (void)setMaskedCorners:(CACornerMask)maskedCorners {
  _state->maskedCorners = maskedCorners;
}

- (CGFloat)borderWidth {
  return _state->borderWidth;
}

- (void)setBorderWidth:(CGFloat)borderWidth {
  _state->borderWidth = borderWidth;
}

- (float)shadowOpacity {
  return _state->shadowOpacity;
}

- (void)setShadowOpacity:(float)shadowOpacity {
  _state->shadowOpacity = shadowOpacity;
}

- (CGSize)shadowOffset {
  return _state->shadowOffset;
}

- (void)setShadowOffset:(CGSize)shadowOffset {
  _state->shadowOffset = shadowOffset;
}

- (CGFloat)shadowRadius {
  return _state->shadowRadius;
}

- (void)setShadowRadius:(CGFloat)shadowRadius {
  _state->shadowRadius = shadowRadius;
}

- (CGFloat)zPosition {
  return _state->zPosition;
}

- (void)setZPosition:(CGFloat)zPosition {
  _state->zPosition = zPosition;
}

- (CGFloat)contentsScale {
  return _state->contentsScale;
}

- (void)setContentsScale:(CGFloat)contentsScale {
  _state->contentsScale = contentsScale;
}

- (BOOL)needsDisplayOnBoundsChange {
  return _state->needsDisplayOnBoundsChange;
}

- (void)setNeedsDisplayOnBoundsChange:(BOOL)needsDisplayOnBoundsChange {
  _state->needsDisplayOnBoundsChange = needsDisplayOnBoundsChange;
}

- (BOOL)isOpaque {
  return _state->opaque;
}

- (void)setOpaque:(BOOL)opaque {
  _state->opaque = opaque;
}

- (BOOL)shouldRasterize {
  return _state->shouldRasterize;
}

- (void)setShouldRasterize:(BOOL)shouldRasterize {
  _state->shouldRasterize = shouldRasterize;
}

- (CGFloat)rasterizationScale {
  return _state->rasterizationScale;
}

- (void)setRasterizationScale:(CGFloat)rasterizationScale {
  _state->rasterizationScale = rasterizationScale;
}

- (BOOL)drawsAsynchronously {
  return _state->drawsAsynchronously;
}

- (void)setDrawsAsynchronously:(BOOL)drawsAsynchronously {
  _state->drawsAsynchronously = drawsAsynchronously;
}

- (BOOL)allowsEdgeAntialiasing {
  return _state->allowsEdgeAntialiasing;
}

- (void)setAllowsEdgeAntialiasing:(BOOL)allowsEdgeAntialiasing {
  _state->allowsEdgeAntialiasing = allowsEdgeAntialiasing;
}

- (CGColorRef)borderColor {
  return (CGColorRef)_state->borderColor.get();
}

- (void)setBorderColor:(CGColorRef)borderColor {
  _state->borderColor = shared(borderColor);
}

- (CGColorRef)shadowColor {
  return (CGColorRef)_state->shadowColor.get();
}

- (void)setShadowColor:(CGColorRef)shadowColor {
  _state->shadowColor = shared(shadowColor);
}

- (CGPathRef)shadowPath {
  return (CGPathRef)_state->shadowPath.get();
}

- (void)setShadowPath:(CGPathRef)shadowPath {
  _state->shadowPath = shared(shadowPath);
}

- (BOOL)masksToBounds {
  return _state->owner ? [_state->owner clipsToBounds] : _state->masksToBounds;
}

- (void)setMasksToBounds:(BOOL)masksToBounds {
  if (_state->owner) return [_state->owner setClipsToBounds:masksToBounds];
  _state->masksToBounds = masksToBounds;
}

- (float)opacity {
  return _state->owner ? float([_state->owner alpha]) : _state->opacity;
}

- (void)setOpacity:(float)opacity {
  if (_state->owner) return [_state->owner setAlpha:opacity];
  _state->opacity = opacity;
}

- (BOOL)isHidden {
  return _state->owner ? [_state->owner isHidden] : _state->hidden;
}

- (void)setHidden:(BOOL)hidden {
  if (_state->owner) return [_state->owner setHidden:hidden];
  _state->hidden = hidden;
}

#pragma mark - Values of the user's own

// A layer keeps whatever it is told under a name that it does not know.
- (id)valueForUndefinedKey:(NSString *)key {
  return [_state->values.get() objectForKey:key];
}

- (void)setValue:(id)value forUndefinedKey:(NSString *)key {
  if (!_state->values) _state->values = objcxx::adopt([[NSMutableDictionary alloc] init]);
  if (value) {
    [_state->values.get() setObject:value forKey:key];
  } else {
    [_state->values.get() removeObjectForKey:key];
  }
}

@end
