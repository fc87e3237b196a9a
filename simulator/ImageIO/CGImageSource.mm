#import <ImageIO/CGImageSource.h>

#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/ImageDecoder.hpp>
#import <objcxx/Retained.h>

#include <algorithm>
#include <climits>

const CFStringRef kCGImageSourceCreateThumbnailFromImageAlways =
    CFSTR("kCGImageSourceCreateThumbnailFromImageAlways");
const CFStringRef kCGImageSourceThumbnailMaxPixelSize = CFSTR("kCGImageSourceThumbnailMaxPixelSize");
const CFStringRef kCGImageSourceCreateThumbnailWithTransform = CFSTR("kCGImageSourceCreateThumbnailWithTransform");

@interface SIMImageSource : NSObject {
 @public
  objcxx::Retained<NSData> _data;
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
  NSNumber *most = number(options, kCGImageSourceThumbnailMaxPixelSize);
  return most ? int(std::clamp([most doubleValue], 0.0, double(INT_MAX))) : 0;
}

}  // namespace

CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef) {
  if (!data) return nullptr;
  SIMImageSource *source = [[SIMImageSource alloc] init];
  source->_data = objcxx::adopt((NSData *)[(NSData *)data copy]);
  return (CGImageSourceRef)source;
}

CGImageRef CGImageSourceCreateThumbnailAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef options) {
  if (!source || index != 0) return nullptr;
  if (![number(options, kCGImageSourceCreateThumbnailFromImageAlways) boolValue]) return nullptr;
  const auto data = std::make_shared<const objcxx::Retained<NSData>>(((SIMImageSource *)source)->_data);
  const auto *bytes = static_cast<const std::uint8_t *>([data->get() bytes]);
  const sim::DecodedImage image = sim::openImage({data, {bytes, [data->get() length]}});
  if (!image.source) return nullptr;
  const bool turns = [number(options, kCGImageSourceCreateThumbnailWithTransform) boolValue];
  const sim::BitmapPtr pixels = image.source->thumbnail(longestSide(options));
  return sim::createImage(sim::sourceOf(turns ? sim::upright(pixels, image.orientation) : pixels));
}
