#import <UIKit/UIGraphicsRenderer+Sim.h>

@implementation UIGraphicsRendererFormat

+ (instancetype)defaultFormat {
  return [[[self alloc] init] autorelease];
}

+ (instancetype)preferredFormat {
  return [self defaultFormat];
}

- (id)copyWithZone:(NSZone *)zone {
  return [[[self class] allocWithZone:zone] init];
}

@end

@implementation UIGraphicsRendererContext

- (instancetype)sim_initWithContext:(CGContextRef)context format:(UIGraphicsRendererFormat *)format {
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

- (UIGraphicsRendererFormat *)format {
  return _format;
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

@implementation UIGraphicsRenderer

- (instancetype)sim_initWithFormat:(UIGraphicsRendererFormat *)format {
  if (!(self = [super init])) return nil;
  _format = [format copy];
  return self;
}

- (void)dealloc {
  [_format release];
  [super dealloc];
}

- (UIGraphicsRendererFormat *)format {
  return _format;
}

@end
