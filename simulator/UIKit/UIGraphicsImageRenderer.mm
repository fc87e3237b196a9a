#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIGraphicsImageRenderer.h>
#import <UIKit/UIGraphicsRenderer+Sim.h>
#import <UIKit/UIScreen.h>

@implementation UIGraphicsImageRendererFormat

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _scale = [[UIScreen mainScreen] scale];
  return self;
}

@synthesize scale = _scale;
@synthesize opaque = _opaque;

- (id)copyWithZone:(NSZone *)zone {
  UIGraphicsImageRendererFormat *copy = [super copyWithZone:zone];
  copy->_scale = _scale;
  copy->_opaque = _opaque;
  return copy;
}

@end

@implementation UIGraphicsImageRendererContext

- (UIImage *)currentImage {
  const CGImageRef pixels = sim::createImage(sim::sourceOf(sim::snapshot([self CGContext])));
  UIGraphicsImageRendererFormat *format = [self format];
  UIImage *image = [UIImage imageWithCGImage:pixels scale:[format scale] orientation:UIImageOrientationUp];
  CGImageRelease(pixels);
  return image;
}

@end

@implementation UIGraphicsImageRenderer

- (instancetype)initWithSize:(CGSize)size {
  return [self initWithSize:size format:[UIGraphicsImageRendererFormat preferredFormat]];
}

- (instancetype)initWithSize:(CGSize)size format:(UIGraphicsImageRendererFormat *)format {
  if (!(self = [super sim_initWithFormat:format])) return nil;
  _size = size;
  return self;
}

- (UIImage *)imageWithActions:(UIGraphicsImageDrawingActions)actions {
  UIGraphicsImageRendererFormat *format = [self format];
  const CGFloat scale = [format scale] > 0 ? [format scale] : [[UIScreen mainScreen] scale];
  const CGContextRef context = sim::createImageContext(_size, scale, [format opaque]);
  UIGraphicsPushContext(context);
  UIGraphicsImageRendererContext *drawing =
      [[[UIGraphicsImageRendererContext alloc] sim_initWithContext:context format:format] autorelease];
  CGContextRelease(context);
  @try {
    if (actions) actions(drawing);
  } @finally {
    UIGraphicsPopContext();
  }
  return [drawing currentImage];
}

- (NSData *)PNGDataWithActions:(UIGraphicsImageDrawingActions)actions {
  return UIImagePNGRepresentation([self imageWithActions:actions]);
}

- (NSData *)JPEGDataWithCompressionQuality:(CGFloat)quality actions:(UIGraphicsImageDrawingActions)actions {
  return UIImageJPEGRepresentation([self imageWithActions:actions], quality);
}

@end
