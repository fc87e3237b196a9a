#import <CoreGraphics/CGImage+Sim.h>
#import <CoreImage/CIContext.h>
#import <CoreImage/CIImage+Sim.h>

CIContextOption const kCIContextWorkingColorSpace = @"working_color_space";
CIContextOption const kCIContextCacheIntermediates = @"kCIContextCacheIntermediates";

@implementation CIContext

+ (CIContext *)context {
  return [[[self alloc] init] autorelease];
}

+ (CIContext *)contextWithOptions:(NSDictionary *)options {
  (void)options;  // They choose colour spaces and processors, of which there is one.
  return [self context];
}

- (CGImageRef)createCGImage:(CIImage *)image fromRect:(CGRect)rect {
  return sim::createImage(sim::sourceOf(sim::render(image, sim::areaOf(rect))));
}

@end
