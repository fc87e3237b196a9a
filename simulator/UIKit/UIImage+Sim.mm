// Images as files: PNG and JPEG, small pictures for the browser, icons.
#import "UIImageState.h"

#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/IconMask.hpp>
#import <CoreGraphics/ImageEncoder.hpp>
#import <CoreGraphics/Thumbnail.hpp>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <deque>
#include <functional>
#include <span>
#include <string_view>

namespace {

/// What tells the bytes of one image file from those of another.
struct FileKey {
  std::size_t length;
  std::size_t hash;
  CGFloat scale;

  bool operator==(const FileKey &) const = default;
};

FileKey keyOf(std::span<const std::uint8_t> file, CGFloat scale) {
  const std::string_view bytes(reinterpret_cast<const char *>(file.data()), file.size());
  return {bytes.size(), std::hash<std::string_view>{}(bytes), scale};
}

struct NumberedFile {
  FileKey key;
  NSUInteger number;
};

/// How many files are remembered.
constexpr std::size_t kFilesKept = 64;

/// The number of the last image that was made from the same bytes and was asked for it; `number`, which is remembered
/// for them, when there was none.
NSUInteger numberOfFile(const FileKey &key, NSUInteger number) {
  static std::deque<NumberedFile> files;
  const auto found = std::find_if(files.begin(), files.end(), [&](const auto &each) { return each.key == key; });
  if (found != files.end()) return found->number;
  files.push_back({key, number});
  if (files.size() > kFilesKept) files.pop_front();
  return number;
}

NSData *dataOf(const std::vector<std::uint8_t> &bytes) {
  return bytes.empty() ? nil : [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

}  // namespace

@implementation UIImage (Sim)

// The pixels as `orientation` has them, tinted where a tint is set; the longer side `longestSide` at most (0: no
// limit).
- (void)sim_getBitmap:(sim::BitmapPtr *)bitmap
          orientation:(UIImageOrientation)orientation
          longestSide:(NSUInteger)longestSide {
  sim::PixelSourcePtr pixels;
  [self sim_getPixels:&pixels];
  if (!pixels) return;
  const int limit = int(std::min<NSUInteger>(longestSide, INT_MAX));
  *bitmap = sim::upright(pixels->thumbnail(limit), sim::storedOrientation(orientation));
  if (!_state->tint || !*bitmap) return;

  const CGSize size = CGSizeMake((*bitmap)->width(), (*bitmap)->height());
  const sim::RGBA tint = sim::components([_state->tint.get() CGColor]);
  const CGContextRef context = sim::createImageContext(size, 1, false);
  sim::drawPixels(context, *sim::sourceOf(*bitmap), {.rect = {CGPointZero, size}, .template_ = &tint});
  *bitmap = sim::snapshot(context);
  CGContextRelease(context);
}

+ (NSData *)sim_PNGThumbnailOfFile:(NSString *)path side:(NSUInteger)side {
  const auto limit = int(std::clamp<NSUInteger>(side, 1, INT_MAX));
  const auto file = sim::sharedBytes([NSData dataWithContentsOfFile:path]);
  return dataOf(sim::encodePng(sim::squareThumbnail(sim::openImage(file), limit)));
}

- (UIImage *)sim_iconOfWidth:(CGFloat)width {
  const CGSize size = [self sim_pixelSize];
  if (!(size.width > 0) || !(width > 0)) return nil;
  sim::PixelSourcePtr pixels;
  [self sim_getPixels:&pixels];
  const CGImageRef masked = sim::createImage(sim::maskedAsIcon(pixels));
  UIImage *icon = [UIImage imageWithCGImage:masked scale:size.width / width orientation:_state->orientation];
  CGImageRelease(masked);
  return icon;
}

- (NSUInteger)sim_number {
  if (_state->file) _state->number = numberOfFile(keyOf(*_state->file, _state->scale), _state->number);
  _state->file = nullptr;
  return _state->number;
}

- (CGSize)sim_pixelSize {
  const CGSize stored = _state->recipe
                            ? [_state->recipe.get() extent].size
                            : CGSizeMake(CGImageGetWidth(_state->image()), CGImageGetHeight(_state->image()));
  return sim::swapsSides(sim::storedOrientation(_state->orientation)) ? CGSizeMake(stored.height, stored.width)
                                                                      : stored;
}

- (NSData *)sim_PNGDataWithLongestSide:(NSUInteger)longestSide {
  const CGSize size = [self sim_pixelSize];
  const bool fits = longestSide == 0 || std::max(size.width, size.height) <= longestSide;
  if (_state->bitmap && fits && _state->orientation == UIImageOrientationUp && !_state->tint) {
    const auto file = sim::sourceOf(_state->image())->png();
    if (!file.empty()) return [NSData dataWithBytes:file.data() length:file.size()];
  }
  return [self sim_encodedPNGWithLongestSide:longestSide];
}

- (NSData *)sim_encodedPNGWithLongestSide:(NSUInteger)longestSide {
  sim::BitmapPtr bitmap;
  [self sim_getBitmap:&bitmap orientation:_state->orientation longestSide:longestSide];
  return dataOf(sim::encodePng(bitmap));
}

@end

NSData *UIImagePNGRepresentation(UIImage *image) {
  sim::BitmapPtr bitmap;
  [image sim_getBitmap:&bitmap orientation:UIImageOrientationUp longestSide:0];
  return dataOf(sim::encodePng(bitmap));
}

NSData *UIImageJPEGRepresentation(UIImage *image, CGFloat quality) {
  sim::BitmapPtr bitmap;
  [image sim_getBitmap:&bitmap orientation:[image imageOrientation] longestSide:0];
  return dataOf(sim::encodeJpeg(bitmap, quality));
}
