#import <CoreGraphics/CGDataProvider+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <array>

namespace {

// Pixels that a provider holds in a layout of their own.
class ProviderSource final : public sim::PixelSource {
 public:
  ProviderSource(CGDataProviderRef provider, int width, int height, size_t bytesPerRow, CGBitmapInfo info)
      : provider_(CGDataProviderRetain(provider)),
        width_(width),
        height_(height),
        bytesPerRow_(bytesPerRow),
        info_(info) {}
  ProviderSource(const ProviderSource &) = delete;
  ProviderSource &operator=(const ProviderSource &) = delete;
  ~ProviderSource() override { CGDataProviderRelease(provider_); }

  int width() const noexcept override { return width_; }
  int height() const noexcept override { return height_; }

  sim::Alpha alpha() const noexcept override {
    switch (info_ & kCGBitmapAlphaInfoMask) {
      case kCGImageAlphaLast:
      case kCGImageAlphaFirst: return sim::Alpha::straight;
      case kCGImageAlphaPremultipliedLast:
      case kCGImageAlphaPremultipliedFirst: return sim::Alpha::premultiplied;
      default: return sim::Alpha::ignored;
    }
  }

  sim::BitmapPtr bitmap() const override {
    if (bitmap_) return bitmap_;
    const auto bytes = sim::bytesOf(provider_);
    const size_t needed = bytesPerRow_ * (height_ - 1) + size_t(width_) * 4;
    if (bytes.size() < needed) return nullptr;
    const auto result = sim::Bitmap::make(width_, height_, alpha());
    const auto order = componentOrder();
    for (int y = 0; y < height_; ++y) {
      const std::uint8_t *from = bytes.data() + bytesPerRow_ * y;
      std::uint8_t *to = result->row(y);
      for (int x = 0; x < width_; ++x, from += 4, to += 4) {
        for (size_t component = 0; component < 3; ++component) to[component] = from[order[component]];
        to[3] = alpha() == sim::Alpha::ignored ? 255 : from[order[3]];
      }
    }
    bitmap_ = result;
    return bitmap_;
  }

 private:
  // Where red, green, blue and alpha lie among the four bytes.
  std::array<size_t, 4> componentOrder() const noexcept {
    const auto kind = info_ & kCGBitmapAlphaInfoMask;
    const bool first =
        kind == kCGImageAlphaFirst || kind == kCGImageAlphaPremultipliedFirst || kind == kCGImageAlphaNoneSkipFirst;
    std::array<size_t, 4> order = first ? std::array<size_t, 4>{1, 2, 3, 0} : std::array<size_t, 4>{0, 1, 2, 3};
    if ((info_ & kCGBitmapByteOrderMask) == kCGBitmapByteOrder32Little) {
      for (size_t &place : order) place = 3 - place;
    }
    return order;
  }

  CGDataProviderRef provider_;  // Owned.
  int width_;
  int height_;
  size_t bytesPerRow_;
  CGBitmapInfo info_;
  mutable sim::BitmapPtr bitmap_;
};

CGBitmapInfo infoOf(sim::Alpha alpha) {
  switch (alpha) {
    case sim::Alpha::ignored: return kCGImageAlphaNoneSkipLast;
    case sim::Alpha::straight: return kCGImageAlphaLast;
    case sim::Alpha::premultiplied: return kCGImageAlphaPremultipliedLast;
  }
}

}  // namespace

@interface SIMImage : NSObject {
 @public
  sim::PixelSourcePtr _source;
  CGDataProviderRef _provider;  // Owned.
  CGColorSpaceRef _space;       // Owned.
  size_t _bytesPerRow;
  CGBitmapInfo _info;
}
@end

@implementation SIMImage

- (void)dealloc {
  CGDataProviderRelease(_provider);
  CGColorSpaceRelease(_space);
  [super dealloc];
}

@end

CGImageRef CGImageCreate(size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel, size_t bytesPerRow,
                         CGColorSpaceRef space, CGBitmapInfo bitmapInfo, CGDataProviderRef provider,
                         const CGFloat *decode, bool, CGColorRenderingIntent) {
  const auto alpha = bitmapInfo & kCGBitmapAlphaInfoMask;
  const auto order = bitmapInfo & kCGBitmapByteOrderMask;
  const bool knownLayout =
      alpha >= kCGImageAlphaPremultipliedLast && alpha <= kCGImageAlphaNoneSkipFirst &&
      (order == kCGBitmapByteOrderDefault || order == kCGBitmapByteOrder32Big || order == kCGBitmapByteOrder32Little);
  if (!provider || decode || !knownLayout || bitsPerComponent != 8 || bitsPerPixel != 32 ||
      CGColorSpaceGetModel(space) != kCGColorSpaceModelRGB || width > size_t(sim::kMaxPixels) ||
      height > size_t(sim::kMaxPixels) || !sim::isDrawableSize(std::int64_t(width), std::int64_t(height)) ||
      bytesPerRow < width * 4 || bytesPerRow > SIZE_MAX / height) {
    NSLog(@"CGImageCreate: %zu × %zu pixels of %zu bits in rows of %zu bytes, layout %u, are not carried.", width,
          height, bitsPerPixel, bytesPerRow, unsigned(bitmapInfo));
    return nullptr;
  }
  SIMImage *image = [[SIMImage alloc] init];
  image->_source = std::make_shared<ProviderSource>(provider, int(width), int(height), bytesPerRow, bitmapInfo);
  image->_provider = CGDataProviderRetain(provider);
  image->_space = CGColorSpaceRetain(space);
  image->_bytesPerRow = bytesPerRow;
  image->_info = bitmapInfo;
  return (CGImageRef)image;
}

CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect) {
  const CGRect bounds = CGRectMake(0, 0, CGImageGetWidth(image), CGImageGetHeight(image));
  const CGRect part = CGRectIntersection(CGRectIntegral(rect), bounds);
  if (CGRectIsEmpty(part)) return nullptr;
  const sim::BitmapPtr bitmap = sim::sourceOf(image)->bitmap();
  if (!bitmap) return nullptr;
  return sim::createImage(sim::sourceOf(
      sim::cropped(*bitmap, int(part.origin.x), int(part.origin.y), int(part.size.width), int(part.size.height))));
}

CGImageRef CGImageCreateCopy(CGImageRef image) { return CGImageRetain(image); }
CGImageRef CGImageRetain(CGImageRef image) { return (CGImageRef)[(id)image retain]; }
void CGImageRelease(CGImageRef image) { [(id)image release]; }

size_t CGImageGetWidth(CGImageRef image) { return image ? size_t(((SIMImage *)image)->_source->width()) : 0; }
size_t CGImageGetHeight(CGImageRef image) { return image ? size_t(((SIMImage *)image)->_source->height()) : 0; }
size_t CGImageGetBitsPerComponent(CGImageRef image) { return image ? 8 : 0; }
size_t CGImageGetBitsPerPixel(CGImageRef image) { return image ? 32 : 0; }
size_t CGImageGetBytesPerRow(CGImageRef image) { return image ? ((SIMImage *)image)->_bytesPerRow : 0; }

CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image) {
  return CGImageAlphaInfo(CGImageGetBitmapInfo(image) & kCGBitmapAlphaInfoMask);
}

CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image) { return image ? ((SIMImage *)image)->_info : 0; }
CGColorSpaceRef CGImageGetColorSpace(CGImageRef image) { return image ? ((SIMImage *)image)->_space : nullptr; }
CGDataProviderRef CGImageGetDataProvider(CGImageRef image) { return image ? ((SIMImage *)image)->_provider : nullptr; }

namespace sim {

SharedBytes sharedBytes(NSData *data) {
  if ([data length] == 0) return nullptr;
  const auto owner = std::make_shared<const objcxx::Retained<NSData>>(objcxx::adopt((NSData *)[data copy]));
  return {owner, {static_cast<const std::uint8_t *>([owner->get() bytes]), [data length]}};
}

CGImageRef createImage(PixelSourcePtr source) {
  if (!source) return nullptr;
  SIMImage *image = [[SIMImage alloc] init];
  image->_provider = createProvider(source);
  image->_space = CGColorSpaceCreateDeviceRGB();
  image->_bytesPerRow = size_t(source->width()) * 4;
  image->_info = infoOf(source->alpha());
  image->_source = std::move(source);
  return (CGImageRef)image;
}

PixelSourcePtr sourceOf(CGImageRef image) { return image ? ((SIMImage *)image)->_source : nullptr; }

bool isImage(id object) { return [object isKindOfClass:[SIMImage class]]; }

}  // namespace sim
