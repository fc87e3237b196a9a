#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/ImageDecoder.hpp>
#import <CoreImage/CIImage+Sim.h>
#import <UIKit/UIImage.h>

namespace sim {

struct CIImageState {
  PixelSourcePtr pixels;
  bool inverted = false;
  BitmapPtr rendered;  ///< Kept once it has been asked for.
};

}  // namespace sim

@implementation CIImage

+ (CIImage *)imageWithCGImage:(CGImageRef)image {
  return [[[self alloc] initWithCGImage:image] autorelease];
}

+ (CIImage *)imageWithData:(NSData *)data {
  return [[[self alloc] initWithData:data] autorelease];
}

- (instancetype)sim_initWithPixels:(const sim::PixelSourcePtr &)pixels inverted:(BOOL)inverted {
  if (!(self = [super init])) return nil;
  if (!pixels) {
    [self release];
    return nil;
  }
  _state = std::make_unique<sim::CIImageState>();
  _state->pixels = pixels;
  _state->inverted = inverted;
  return self;
}

- (instancetype)initWithCGImage:(CGImageRef)image {
  return [self sim_initWithPixels:sim::sourceOf(image) inverted:NO];
}

- (instancetype)initWithData:(NSData *)data {
  const auto *bytes = static_cast<const std::uint8_t *>([data bytes]);
  const auto file = std::make_shared<const std::vector<std::uint8_t>>(bytes, bytes + [data length]);
  return [self sim_initWithPixels:sim::openImage(file).source inverted:NO];
}

- (instancetype)initWithImage:(UIImage *)image {
  CIImage *recipe = [image CIImage];
  if (!recipe) return [self initWithCGImage:[image CGImage]];
  return [self sim_initWithPixels:recipe->_state->pixels inverted:recipe->_state->inverted];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (CGRect)extent {
  return CGRectMake(0, 0, _state->pixels->width(), _state->pixels->height());
}

- (CIImage *)sim_colorInverted {
  return [[[CIImage alloc] sim_initWithPixels:_state->pixels inverted:!_state->inverted] autorelease];
}

- (sim::BitmapPtr *)sim_rendered {
  if (!_state->rendered) {
    const sim::BitmapPtr pixels = _state->pixels->bitmap();
    _state->rendered = pixels && _state->inverted ? sim::inverted(*pixels) : pixels;
  }
  return &_state->rendered;
}

@end

namespace sim {

BitmapPtr render(CIImage *image) { return image ? *[image sim_rendered] : nullptr; }

}  // namespace sim
