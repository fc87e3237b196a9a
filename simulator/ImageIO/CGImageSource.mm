#import <ImageIO/CGImageSource.h>

#import <CoreGraphics/CGImage+Sim.h>

#include <algorithm>
#include <climits>

const CFStringRef kCGImageSourceCreateThumbnailFromImageAlways = CFSTR("kCGImageSourceCreateThumbnailFromImageAlways");
const CFStringRef kCGImageSourceThumbnailMaxPixelSize = CFSTR("kCGImageSourceThumbnailMaxPixelSize");
const CFStringRef kCGImageSourceCreateThumbnailWithTransform = CFSTR("kCGImageSourceCreateThumbnailWithTransform");

@interface SIMImageSource : NSObject {
 @public
  sim::SharedBytes _file;
}
@end

@implementation SIMImageSource
@end

namespace {

/// What `options` hold for `key` if that is a number, else nil.
NSNumber *number(CFDictionaryRef options, CFStringRef key) {
  id value = [(NSDictionary *)options objectForKey:(NSString *)key];
  return [value isKindOfClass:[NSNumber class]] ? value : nil;
}

/// 0: no limit.
int longestSide(CFDictionaryRef options) {
  const double most = [number(options, kCGImageSourceThumbnailMaxPixelSize) doubleValue];
  return most > 0 ? int(std::min(most, double(INT_MAX))) : 0;  // What is no number is not above 0.
}

}  // namespace

CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef) {
  if (!data) return nullptr;
  SIMImageSource *source = [[SIMImageSource alloc] init];
  source->_file = sim::sharedBytes((NSData *)data);
  return (CGImageSourceRef)source;
}

CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef options) {
  if (!source || index != 0) return nullptr;
  if (![number(options, kCGImageSourceCreateThumbnailFromImageAlways) boolValue]) return nullptr;
  const sim::DecodedImage image = sim::openImage(((SIMImageSource *)source)->_file);
  if (!image.source) return nullptr;
  const bool turns = [number(options, kCGImageSourceCreateThumbnailWithTransform) boolValue];
  const sim::BitmapPtr pixels = image.source->thumbnail(longestSide(options));
  return sim::createImage(sim::sourceOf(turns ? sim::upright(pixels, image.orientation) : pixels));
}
