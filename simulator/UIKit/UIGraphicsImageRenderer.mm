#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIGraphicsImageRenderer.h>
#import <UIKit/UIScreen.h>

@implementation UIGraphicsImageRendererFormat

+ (instancetype)defaultFormat {
  return [[[self alloc] init] autorelease];
}

+ (instancetype)preferredFormat {
  return [self defaultFormat];
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _scale = [[UIScreen mainScreen] scale];
  return self;
}

@synthesize scale = _scale;
@synthesize opaque = _opaque;

- (id)copyWithZone:(NSZone *)zone {
  UIGraphicsImageRendererFormat *copy = [[UIGraphicsImageRendererFormat allocWithZone:zone] init];
  copy->_scale = _scale;
  copy->_opaque = _opaque;
  return copy;
}

@end

@implementation UIGraphicsImageRendererContext

- (instancetype)sim_initWithContext:(CGContextRef)context format:(UIGraphicsImageRendererFormat *)format {
  if (!(self = [super init])) return nil;
  _context = CGContextRetain(context);
  _format = [format retain];
  return self;
}

- (void)dealloc {
  CGContextRelease(_context);
  [_format release];
  [super dealloc];
}

- (CGContextRef)CGContext {
  return _context;
}

- (UIGraphicsImageRendererFormat *)format {
  return _format;
}

- (UIImage *)currentImage {
  const CGImageRef pixels = sim::createImage(sim::sourceOf(sim::snapshot(_context)));
  UIImage *image = [UIImage imageWithCGImage:pixels scale:[_format scale] orientation:UIImageOrientationUp];
  CGImageRelease(pixels);
  return image;
}

- (void)fillRect:(CGRect)rect {
  CGContextFillRect(_context, rect);
}

- (void)fillRect:(CGRect)rect blendMode:(CGBlendMode)mode {
  CGContextSaveGState(_context);
  CGContextSetBlendMode(_context, mode);
  CGContextFillRect(_context, rect);
  CGContextRestoreGState(_context);
}

- (void)strokeRect:(CGRect)rect {
  CGContextStrokeRect(_context, CGRectInset(rect, 0.5, 0.5));
}

- (void)clipToRect:(CGRect)rect {
  CGContextClipToRect(_context, rect);
}

@end

@implementation UIGraphicsImageRenderer

- (instancetype)initWithSize:(CGSize)size {
  return [self initWithSize:size format:[UIGraphicsImageRendererFormat preferredFormat]];
}

- (instancetype)initWithSize:(CGSize)size format:(UIGraphicsImageRendererFormat *)format {
  if (!(self = [super init])) return nil;
  _size = size;
  _format = [format copy];
  return self;
}

- (void)dealloc {
  [_format release];
  [super dealloc];
}

- (UIGraphicsImageRendererFormat *)format {
  return _format;
}

- (UIImage *)imageWithActions:(UIGraphicsImageDrawingActions)actions {
  const CGFloat scale = [_format scale] > 0 ? [_format scale] : [[UIScreen mainScreen] scale];
  const CGContextRef context = sim::createImageContext(_size, scale, [_format opaque]);
  UIGraphicsPushContext(context);
  UIGraphicsImageRendererContext *drawing =
      [[[UIGraphicsImageRendererContext alloc] sim_initWithContext:context format:_format] autorelease];
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
