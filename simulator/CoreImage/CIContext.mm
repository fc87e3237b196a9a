#import <CoreGraphics/CGImage+Sim.h>
#import <CoreImage/CIContext.h>
#import <CoreImage/CIImage+Sim.h>

#include <algorithm>
#include <cstring>

@implementation CIContext

+ (CIContext *)context {
  return [[[self alloc] init] autorelease];
}

+ (CIContext *)contextWithOptions:(NSDictionary *)options {
  (void)options;  // They choose colour spaces and processors, of which there is one.
  return [self context];
}

- (CGImageRef)createCGImage:(CIImage *)image fromRect:(CGRect)rect {
  const CGRect part = CGRectIntegral(rect);
  if (!image || CGRectIsEmpty(part) || part.size.width > double(sim::maxPixels) ||
      part.size.height > double(sim::maxPixels)) {
    return nullptr;
  }
  const sim::BitmapPtr pixels = sim::render(image);
  if (!pixels) return nullptr;
  const sim::Alpha alpha = CGRectContainsRect([image extent], part) ? pixels->alpha() : sim::Alpha::straight;
  const auto result = sim::Bitmap::make(std::int64_t(part.size.width), std::int64_t(part.size.height), alpha);
  if (!result) return nullptr;
  std::fill(result->bytes().begin(), result->bytes().end(), 0);

  const CGRect shared = CGRectIntersection(part, [image extent]);
  if (!CGRectIsEmpty(shared)) {
    // Core Image counts rows from below.
    const int fromTop = pixels->height() - int(CGRectGetMaxY(shared));
    const int toTop = int(CGRectGetMaxY(part) - CGRectGetMaxY(shared));
    const sim::BitmapPtr source = alpha == sim::Alpha::straight ? sim::straightened(pixels) : pixels;
    for (int line = 0; line < int(shared.size.height); ++line) {
      std::uint8_t *to = result->row(toTop + line) + std::size_t(shared.origin.x - part.origin.x) * 4;
      std::memcpy(to, source->row(fromTop + line) + std::size_t(shared.origin.x) * 4,
                  std::size_t(shared.size.width) * 4);
    }
  }
  return sim::createImage(sim::sourceOf(result));
}

@end
