#import "lists/IconTone.h"

#import <CoreFoundation/CoreFoundation.h>
#import <CoreGraphics/CoreGraphics.h>
#import <CoreImage/CoreImage.h>

#include <cstddef>
#include <cstdint>
#include <limits>

#include "lists/ToneKernel.hpp"

namespace zuno {
namespace {

/// Dark groups of four bytes in the image's bitmap.
std::int32_t countDarkPixels(CGImageRef bitmap) {
  if (!bitmap) return 0;
  CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(bitmap));
  if (!data) return 0;
  // The length counts as a 32-bit number; one that does not fit reads as an empty buffer.
  const auto length = static_cast<std::int32_t>(CFDataGetLength(data));
  std::int32_t dark = 0;
  if (length > 0) dark = countDarkGroups({CFDataGetBytePtr(data), static_cast<std::size_t>(length)});
  CFRelease(data);
  return dark;
}

/// Truncated toward zero and kept within the bounds of the type; 0 for no number.
std::int32_t saturated(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value != value) return 0;
  if (value >= Limits::max()) return Limits::max();
  if (value <= Limits::min()) return Limits::min();
  return static_cast<std::int32_t>(value);
}

}  // namespace

bool isImageDark(UIImage *image) {
  const std::int32_t dark = countDarkPixels([image CGImage]);
  const CGSize size = image ? [image size] : CGSizeZero;
  return dark >= saturated(static_cast<double>(size.width) * static_cast<double>(size.height) * 0.45);
}

UIImage *invertedImage(UIImage *image) {
  CIFilter *filter = [CIFilter filterWithName:@"CIColorInvert"];
  [filter setDefaults];
  [filter setValue:[image CIImage] forKey:@"inputImage"];
  CIImage *inverted = [filter outputImage];
  return inverted ? [[[UIImage alloc] initWithCIImage:inverted] autorelease] : nil;
}

}  // namespace zuno
