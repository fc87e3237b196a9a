#import "theme/BackgroundPicture.h"

#import <CoreImage/CoreImage.h>
#import <ImageIO/ImageIO.h>
#import <objcxx/Retained.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#import "theme/BackgroundImage.h"

namespace zuno {
namespace {

/// How many times longer than what it is to fill a decoded image may become: more is cut off of a panorama unseen.
constexpr CGFloat kLongestFill = 4;

/// What was made last.
struct Made {
  std::size_t text = 0;  ///< The stored text's fingerprint.
  CGSize size = CGSizeZero;
  CGFloat scale = 0;
  objcxx::Retained<UIImage> sharp;  ///< nil where the stored text is no image.
  CGFloat blur = 0;
  objcxx::Retained<UIImage> blurred;  ///< `sharp` under `blur`.
};

Made &lastMade() {
  static Made *const made = new Made;  // Never ends: it holds objects.
  return *made;
}

/// By what factor `size` has to be scaled to fill `target`.
CGFloat fillFactor(CGSize size, CGSize target) {
  return std::max(target.width / size.width, target.height / size.height);
}

/// The image in `file`, upright, made smaller in decoding, but large enough to fill `pixels`. nil when it is none.
UIImage *decodedToFill(NSData *file, CGSize pixels) {
  const CGSize whole = [[UIImage imageWithData:file] size];  // Read from the header.
  if (!(whole.width > 0 && whole.height > 0)) return nil;
  CGImageSourceRef source = CGImageSourceCreateWithData((CFDataRef)file, nullptr);
  if (!source) return nil;
  const CGFloat factor = std::min<CGFloat>(fillFactor(whole, pixels), 1);
  const CGFloat longest = std::min(std::ceil(std::max(whole.width, whole.height) * factor),
                                   kLongestFill * std::max(pixels.width, pixels.height));
  NSDictionary *options = @{
    (NSString *)kCGImageSourceCreateThumbnailFromImageAlways : [NSNumber numberWithBool:YES],
    (NSString *)kCGImageSourceCreateThumbnailWithTransform : [NSNumber numberWithBool:YES],
    (NSString *)kCGImageSourceThumbnailMaxPixelSize : [NSNumber numberWithDouble:std::max<CGFloat>(longest, 1)],
  };
  CGImageRef image = CGImageSourceCreateThumbnailAtIndex(source, 0, (CFDictionaryRef)options);
  CFRelease(source);
  if (!image) return nil;
  UIImage *decoded = [UIImage imageWithCGImage:image];
  CGImageRelease(image);
  return decoded;
}

/// `image` scaled to fill `size` points, and cut to it.
UIImage *filling(UIImage *image, CGSize size, CGFloat scale) {
  const CGFloat factor = fillFactor([image size], size);
  const CGSize whole = CGSizeMake([image size].width * factor, [image size].height * factor);
  UIGraphicsBeginImageContextWithOptions(size, NO, scale);
  [image drawInRect:CGRectMake((size.width - whole.width) / 2, (size.height - whole.height) / 2, whole.width,
                               whole.height)];
  UIImage *filled = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return filled;
}

/// Blurs the colours as they are stored, without taking them into a linear space.
CIContext *blurContext() {
  static CIContext *const context = [[CIContext contextWithOptions:@{
    kCIContextWorkingColorSpace : [NSNull null],
    kCIContextCacheIntermediates : [NSNumber numberWithBool:NO],
  }] retain];
  return context;
}

UIImage *blurred(UIImage *image, CGFloat blur) {
  if (!image || !(blur > 0)) return image;
  CIImage *sharp = [CIImage imageWithCGImage:[image CGImage]];
  CIFilter *filter = [CIFilter filterWithName:@"CIGaussianBlur"];
  [filter setDefaults];
  [filter setValue:[sharp imageByClampingToExtent] forKey:kCIInputImageKey];
  [filter setValue:[NSNumber numberWithDouble:blur * [image scale]] forKey:kCIInputRadiusKey];
  CGImageRef pixels = [blurContext() createCGImage:[filter outputImage] fromRect:[sharp extent]];
  if (!pixels) return image;
  UIImage *result = [UIImage imageWithCGImage:pixels scale:[image scale] orientation:UIImageOrientationUp];
  CGImageRelease(pixels);
  return result;
}

UIImage *storedFilling(CGSize size, CGFloat scale) {
  // The photo, and what it is decoded from, go with this pool.
  UIImage *result = nil;
  @autoreleasepool {
    UIImage *decoded = decodedToFill(storedImageFile(), CGSizeMake(size.width * scale, size.height * scale));
    if (decoded) result = [filling(decoded, size, scale) retain];
  }
  return [result autorelease];
}

}  // namespace

UIImage *backgroundPicture(std::size_t text, CGSize size, CGFloat blur) {
  if (!(size.width > 0 && size.height > 0)) return nil;
  const CGFloat scale = [[UIScreen mainScreen] scale];
  Made &made = lastMade();
  if (text != made.text || !CGSizeEqualToSize(size, made.size) || scale != made.scale) {
    UIImage *sharp = text ? storedFilling(size, scale) : nil;
    made = Made{text, size, scale, objcxx::share(sharp), 0, objcxx::share(sharp)};
  }
  if (blur != made.blur) {
    made.blurred = objcxx::share(blurred(made.sharp.get(), blur));
    made.blur = blur;
  }
  return [[made.blurred.get() retain] autorelease];
}

}  // namespace zuno
