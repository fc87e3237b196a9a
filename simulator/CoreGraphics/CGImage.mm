#import <CoreGraphics/CGDataProvider+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <array>

namespace {

// Pixels that a provider holds in a layout of their own.
class ProviderSource final : public sim::PixelSource {
 public:
  ProviderSource(CGDataProviderRef provider, int width, int height, size_t bytesPerRow, sim::PixelLayout layout)
      : provider_(CGDataProviderRetain(provider)),
        width_(width),
        height_(height),
        bytesPerRow_(bytesPerRow),
        layout_(layout) {}
  ProviderSource(const ProviderSource &) = delete;
  ProviderSource &operator=(const ProviderSource &) = delete;
  ~ProviderSource() override { CGDataProviderRelease(provider_); }

  int width() const noexcept override { return width_; }
  int height() const noexcept override { return height_; }
  sim::Alpha alpha() const noexcept override { return layout_.alpha(); }

  sim::BitmapPtr bitmap() const override {
    if (bitmap_) return bitmap_;
    const auto bytes = sim::bytesOf(provider_);
    const size_t each = layout_.bytesPerPixel();
    if (bytes.size() < bytesPerRow_ * (height_ - 1) + size_t(width_) * each) return nullptr;
    const auto result = sim::Bitmap::make(width_, height_, alpha());
    for (int y = 0; y < height_; ++y) {
      const std::uint8_t *from = bytes.data() + bytesPerRow_ * y;
      std::uint8_t *to = result->row(y);
      for (int x = 0; x < width_; ++x, from += each, to += 4) layout_.read(from, to);
    }
    bitmap_ = result;
    return bitmap_;
  }

 private:
  CGDataProviderRef provider_;  // Owned.
  int width_;
  int height_;
  size_t bytesPerRow_;
  sim::PixelLayout layout_;
  mutable sim::BitmapPtr bitmap_;
};

/// What a mask of bytes lets through.
class MaskSource final : public sim::PixelSource {
 public:
  MaskSource(sim::PixelSourcePtr bytes, bool letsBrightThrough)
      : bytes_(std::move(bytes)), letsBrightThrough_(letsBrightThrough) {}

  int width() const noexcept override { return bytes_->width(); }
  int height() const noexcept override { return bytes_->height(); }
  sim::Alpha alpha() const noexcept override { return sim::Alpha::premultiplied; }

  sim::BitmapPtr bitmap() const override {
    const sim::BitmapPtr bytes = bytes_->bitmap();
    if (!bytes) return nullptr;
    const auto result = sim::Bitmap::make(width(), height(), alpha());
    const auto from = bytes->bytes();
    const auto to = result->bytes();
    for (size_t at = 0; at < from.size(); at += 4) {
      to[at] = to[at + 1] = to[at + 2] = 0;
      to[at + 3] = letsBrightThrough_ ? sim::brightness(&from[at]) : std::uint8_t(255 - sim::brightness(&from[at]));
    }
    return result;
  }

 private:
  sim::PixelSourcePtr bytes_;
  bool letsBrightThrough_;
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
  size_t _bitsPerPixel;
  CGBitmapInfo _info;
  BOOL _isMask;
}
@end

@implementation SIMImage

- (void)dealloc {
  CGDataProviderRelease(_provider);
  CGColorSpaceRelease(_space);
  [super dealloc];
}

@end

namespace {

/// Whether a provider may hold that many pixels in rows of that many bytes.
bool isDrawable(size_t width, size_t height, size_t bytesPerRow, size_t bytesPerPixel) {
  return width <= size_t(sim::kMaxPixels) && height <= size_t(sim::kMaxPixels) &&
         sim::isDrawableSize(std::int64_t(width), std::int64_t(height)) && bytesPerRow >= width * bytesPerPixel &&
         bytesPerRow <= SIZE_MAX / height;
}

/// At +1.
SIMImage *createOver(CGDataProviderRef provider, size_t width, size_t height, size_t bytesPerRow,
                     sim::PixelLayout layout) {
  SIMImage *image = [[SIMImage alloc] init];
  image->_source = std::make_shared<ProviderSource>(provider, int(width), int(height), bytesPerRow, layout);
  image->_provider = CGDataProviderRetain(provider);
  image->_bytesPerRow = bytesPerRow;
  image->_bitsPerPixel = layout.bytesPerPixel() * 8;
  return image;
}

}  // namespace

CGImageRef CGImageCreate(size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel, size_t bytesPerRow,
                         CGColorSpaceRef space, CGBitmapInfo bitmapInfo, CGDataProviderRef provider,
                         const CGFloat *decode, bool, CGColorRenderingIntent) {
  const auto layout = sim::layoutOf(space, bitmapInfo, bitsPerPixel);
  if (!provider || decode || !layout || bitsPerComponent != 8 ||
      !isDrawable(width, height, bytesPerRow, layout->bytesPerPixel())) {
    NSLog(@"CGImageCreate: %zu × %zu pixels of %zu bits in rows of %zu bytes, layout %u, are not carried.", width,
          height, bitsPerPixel, bytesPerRow, unsigned(bitmapInfo));
    return nullptr;
  }
  SIMImage *image = createOver(provider, width, height, bytesPerRow, *layout);
  image->_space = CGColorSpaceRetain(space);
  image->_info = bitmapInfo;
  return (CGImageRef)image;
}

CGImageRef CGImageMaskCreate(size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel,
                             size_t bytesPerRow, CGDataProviderRef provider, const CGFloat *decode, bool) {
  if (!provider || bitsPerComponent != 8 || bitsPerPixel != 8 || !isDrawable(width, height, bytesPerRow, 1)) {
    NSLog(@"CGImageMaskCreate: %zu × %zu pixels of %zu bits in rows of %zu bytes are not carried.", width, height,
          bitsPerPixel, bytesPerRow);
    return nullptr;
  }
  SIMImage *image = createOver(provider, width, height, bytesPerRow, sim::PixelLayout::grey());
  image->_source = std::make_shared<MaskSource>(image->_source, decode && decode[0] > decode[1]);
  image->_isMask = YES;
  return (CGImageRef)image;
}

CGImageRef CGImageCreateWithMask(CGImageRef image, CGImageRef mask) {
  const sim::BitmapPtr pixels = image ? sim::premultiplied(sim::sourceOf(image)->bitmap()) : nullptr;
  sim::BitmapPtr coverage = sim::coverageOf(mask);
  if (!pixels || !coverage) return nullptr;
  if (coverage->width() != pixels->width() || coverage->height() != pixels->height()) {
    coverage = sim::resized(*coverage, pixels->width(), pixels->height());
  }
  const auto result = sim::Bitmap::make(pixels->width(), pixels->height(), sim::Alpha::premultiplied);
  for (size_t at = 0; at < result->bytes().size(); ++at) {
    result->bytes()[at] = std::uint8_t((pixels->bytes()[at] * coverage->bytes()[at | 3] + 127) / 255);
  }
  return sim::createImage(sim::sourceOf(result));
}

bool CGImageIsMask(CGImageRef image) { return image && ((SIMImage *)image)->_isMask; }

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
size_t CGImageGetBitsPerPixel(CGImageRef image) { return image ? ((SIMImage *)image)->_bitsPerPixel : 0; }
size_t CGImageGetBytesPerRow(CGImageRef image) { return image ? ((SIMImage *)image)->_bytesPerRow : 0; }

CGImageAlphaInfo CGImageGetAlphaInfo(CGImageRef image) {
  return CGImageAlphaInfo(CGImageGetBitmapInfo(image) & kCGBitmapAlphaInfoMask);
}

CGBitmapInfo CGImageGetBitmapInfo(CGImageRef image) { return image ? ((SIMImage *)image)->_info : 0; }
CGColorSpaceRef CGImageGetColorSpace(CGImageRef image) { return image ? ((SIMImage *)image)->_space : nullptr; }
CGDataProviderRef CGImageGetDataProvider(CGImageRef image) { return image ? ((SIMImage *)image)->_provider : nullptr; }

namespace sim {

std::optional<PixelLayout> layoutOf(CGColorSpaceRef space, std::uint32_t info, std::size_t bitsPerPixel) {
  const auto kind = info & kCGBitmapAlphaInfoMask;
  const auto order = info & kCGBitmapByteOrderMask;
  if (bitsPerPixel == 8) {
    if (kind == kCGImageAlphaOnly) return PixelLayout::alphaOnly();
    if (kind != kCGImageAlphaNone || CGColorSpaceGetModel(space) != kCGColorSpaceModelMonochrome) return std::nullopt;
    return PixelLayout::grey();
  }
  const bool isKnown =
      bitsPerPixel == 32 && CGColorSpaceGetModel(space) == kCGColorSpaceModelRGB &&
      kind >= kCGImageAlphaPremultipliedLast && kind <= kCGImageAlphaNoneSkipFirst &&
      (order == kCGBitmapByteOrderDefault || order == kCGBitmapByteOrder32Big || order == kCGBitmapByteOrder32Little);
  if (!isKnown) return std::nullopt;
  const bool isReversed = order == kCGBitmapByteOrder32Little;
  switch (kind) {
    case kCGImageAlphaPremultipliedLast: return PixelLayout::rgb({Alpha::premultiplied, false}, isReversed);
    case kCGImageAlphaPremultipliedFirst: return PixelLayout::rgb({Alpha::premultiplied, true}, isReversed);
    case kCGImageAlphaLast: return PixelLayout::rgb({Alpha::straight, false}, isReversed);
    case kCGImageAlphaFirst: return PixelLayout::rgb({Alpha::straight, true}, isReversed);
    case kCGImageAlphaNoneSkipFirst: return PixelLayout::rgb({Alpha::ignored, true}, isReversed);
    default: return PixelLayout::rgb({Alpha::ignored, false}, isReversed);
  }
}

BitmapPtr coverageOf(CGImageRef mask) {
  if (!mask) return nullptr;
  if (CGImageIsMask(mask)) return sourceOf(mask)->bitmap();
  return MaskSource(sourceOf(mask), true).bitmap();
}

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
  image->_bitsPerPixel = 32;
  image->_info = infoOf(source->alpha());
  image->_source = std::move(source);
  return (CGImageRef)image;
}

PixelSourcePtr sourceOf(CGImageRef image) { return image ? ((SIMImage *)image)->_source : nullptr; }

bool isImage(id object) { return [object isKindOfClass:[SIMImage class]]; }

}  // namespace sim
