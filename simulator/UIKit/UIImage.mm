#import "UIImageState.h"

#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreImage/CIImage+Sim.h>
#import <UIKit/UIImageFile.h>
#import <UIKit/UIColor+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIScreen.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr sim::Orientation kOrientations[] = {sim::Orientation::up,           sim::Orientation::down,
                                              sim::Orientation::left,         sim::Orientation::right,
                                              sim::Orientation::upMirrored,   sim::Orientation::downMirrored,
                                              sim::Orientation::leftMirrored, sim::Orientation::rightMirrored};

UIImageOrientation imageOrientation(sim::Orientation orientation) {
  return UIImageOrientation(std::find(std::begin(kOrientations), std::end(kOrientations), orientation) - kOrientations);
}

CGFloat usableScale(CGFloat scale) { return scale > 0 && std::isfinite(scale) ? scale : 1; }

}  // namespace

namespace sim {

Orientation storedOrientation(UIImageOrientation orientation) {
  const auto place = std::size_t(orientation);
  return place < std::size(kOrientations) ? kOrientations[place] : Orientation::up;
}

}  // namespace sim

@implementation UIImage

// An image without pixels.
- (instancetype)init {
  if (!(self = [super init])) return nil;
  static NSUInteger lastNumber = 0;
  _state = std::make_unique<sim::UIImageState>();
  _state->number = ++lastNumber;
  return self;
}

- (instancetype)sim_initWithState:(const sim::UIImageState &)state {
  if (!(self = [self init])) return nil;
  if (!state.bitmap && !state.recipe) {
    [self release];
    return nil;
  }
  const NSUInteger number = _state->number;
  *_state = state;
  _state->number = number;
  _state->file = nullptr;
  return self;
}

- (instancetype)sim_initWithDecoded:(const sim::DecodedImage &)decoded scale:(CGFloat)scale {
  sim::UIImageState state;
  state.bitmap = objcxx::adopt((NSObject *)sim::createImage(decoded.source));
  state.scale = usableScale(scale);
  state.orientation = imageOrientation(decoded.orientation);
  return [self sim_initWithState:state];
}

- (instancetype)initWithContentsOfFile:(NSString *)path {
  const sim::ImageFile file = sim::imageFileAt(path, [[UIScreen mainScreen] scale]);
  return [self initWithData:file.path ? [NSData dataWithContentsOfFile:file.path] : nil scale:file.scale];
}

- (instancetype)initWithData:(NSData *)data {
  return [self initWithData:data scale:1];
}

- (instancetype)initWithData:(NSData *)data scale:(CGFloat)scale {
  const sim::SharedBytes file = sim::sharedBytes(data);
  if (!(self = [self sim_initWithDecoded:sim::openImage(file) scale:scale])) return nil;
  _state->file = file;
  return self;
}

- (instancetype)initWithCGImage:(CGImageRef)image {
  return [self initWithCGImage:image scale:1 orientation:UIImageOrientationUp];
}

- (instancetype)initWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
  sim::UIImageState state;
  state.bitmap = objcxx::share((NSObject *)image);
  state.scale = usableScale(scale);
  state.orientation = orientation;
  return [self sim_initWithState:state];
}

- (instancetype)initWithCIImage:(CIImage *)image {
  return [self initWithCIImage:image scale:1 orientation:UIImageOrientationUp];
}

- (instancetype)initWithCIImage:(CIImage *)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
  sim::UIImageState state;
  state.recipe = objcxx::share(image);
  state.scale = usableScale(scale);
  state.orientation = orientation;
  return [self sim_initWithState:state];
}

+ (UIImage *)imageNamed:(NSString *)name {
  return [self imageNamed:name inBundle:nil compatibleWithTraitCollection:nil];
}

+ (UIImage *)imageNamed:(NSString *)name
                         inBundle:(NSBundle *)bundle
    compatibleWithTraitCollection:(UITraitCollection *)traits {
  const CGFloat scale = [traits displayScale] > 0 ? [traits displayScale] : [[UIScreen mainScreen] scale];
  const sim::ImageFile file = sim::imageFileNamed(name, bundle ? bundle : [NSBundle mainBundle], scale);
  if (!file.path) return nil;
  return [[[self alloc] initWithData:[NSData dataWithContentsOfFile:file.path] scale:file.scale] autorelease];
}

+ (UIImage *)imageWithContentsOfFile:(NSString *)path {
  return [[[self alloc] initWithContentsOfFile:path] autorelease];
}

+ (UIImage *)imageWithData:(NSData *)data {
  return [[[self alloc] initWithData:data] autorelease];
}

+ (UIImage *)imageWithData:(NSData *)data scale:(CGFloat)scale {
  return [[[self alloc] initWithData:data scale:scale] autorelease];
}

+ (UIImage *)imageWithCGImage:(CGImageRef)image {
  return [[[self alloc] initWithCGImage:image] autorelease];
}

+ (UIImage *)imageWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
  return [[[self alloc] initWithCGImage:image scale:scale orientation:orientation] autorelease];
}

+ (UIImage *)imageWithCIImage:(CIImage *)image {
  return [[[self alloc] initWithCIImage:image] autorelease];
}

+ (UIImage *)imageWithCIImage:(CIImage *)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation {
  return [[[self alloc] initWithCIImage:image scale:scale orientation:orientation] autorelease];
}

- (CGSize)size {
  const CGSize pixels = [self sim_pixelSize];
  return CGSizeMake(pixels.width / _state->scale, pixels.height / _state->scale);
}

- (CGFloat)scale {
  return _state->scale;
}

- (UIImageOrientation)imageOrientation {
  return _state->orientation;
}

- (UIImageRenderingMode)renderingMode {
  return _state->renderingMode;
}

- (CGImageRef)CGImage {
  return _state->image();
}

- (CIImage *)CIImage {
  return _state->recipe.get();
}

- (UIImage *)imageWithRenderingMode:(UIImageRenderingMode)mode {
  sim::UIImageState state = *_state;
  state.renderingMode = mode;
  return [[[UIImage alloc] sim_initWithState:state] autorelease];
}

- (UIImage *)imageWithTintColor:(UIColor *)color {
  return [self imageWithTintColor:color renderingMode:_state->renderingMode];
}

- (UIImage *)imageWithTintColor:(UIColor *)color renderingMode:(UIImageRenderingMode)renderingMode {
  sim::UIImageState state = *_state;
  state.tint = objcxx::share(color);
  state.renderingMode = renderingMode;
  return [[[UIImage alloc] sim_initWithState:state] autorelease];
}

// Where the stored pixels come from; null when they cannot be had.
- (void)sim_getPixels:(sim::PixelSourcePtr *)pixels {
  *pixels = _state->recipe ? sim::sourceOf(sim::render(_state->recipe.get())) : sim::sourceOf(_state->image());
}

- (void)drawAtPoint:(CGPoint)point {
  [self drawInRect:{point, [self size]}];
}

- (void)drawAtPoint:(CGPoint)point blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha {
  [self drawInRect:{point, [self size]} blendMode:mode alpha:alpha];
}

- (void)drawInRect:(CGRect)rect {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  if (!context) return;
  sim::PixelSourcePtr pixels;
  [self sim_getPixels:&pixels];
  if (!pixels) return;
  const sim::RGBA tint = sim::components([_state->tint.get() CGColor]);
  sim::drawPixels(context, *pixels,
                  {.rect = rect,
                   .orientation = sim::storedOrientation(_state->orientation),
                   .template_ = _state->tint ? &tint : nullptr});
}

- (void)drawInRect:(CGRect)rect blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSaveGState(context);
  CGContextSetBlendMode(context, mode);
  CGContextSetAlpha(context, alpha);
  [self drawInRect:rect];
  CGContextRestoreGState(context);
}

@end
