// Contexts over memory, and their pixels.
#import <CoreGraphics/CGBitmapContext.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGContextState.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CairoSurface.hpp>

#include <cstring>

namespace {

/// UIKit's image contexts are as a device's: blue first, premultiplied.
constexpr CGBitmapInfo kCairosInfo = CGBitmapInfo(kCGImageAlphaPremultipliedFirst) | kCGBitmapByteOrder32Little;

SIMContext *object(CGContextRef context) { return sim::contextObject(context); }

cairo_surface_t *surfaceOf(CGContextRef context) { return cairo_get_target(object(context)->_cairo); }

/// Nothing for one that contexts cannot have.
std::optional<sim::PixelLayout> drawableLayout(CGColorSpaceRef space, std::uint32_t info) {
  const bool isRGB = CGColorSpaceGetModel(space) == kCGColorSpaceModelRGB;
  const auto layout = sim::layoutOf(space, info, isRGB ? 32 : 8);
  return layout && layout->alpha() == sim::Alpha::straight ? std::nullopt : layout;
}

/// The surface that is drawn on: over the memory itself where cairo can.
sim::SurfacePtr makeSurfaceOver(const sim::ContextMemory &memory, int width, int height) {
  const bool fits = memory.bytesPerRow() % 4 == 0 && reinterpret_cast<std::uintptr_t>(memory.data()) % 4 == 0;
  if (!memory.layout().isCairos() || !fits) return sim::makeSurface(width, height);
  sim::SurfacePtr surface(cairo_image_surface_create_for_data(
      static_cast<std::uint8_t *>(memory.data()), CAIRO_FORMAT_ARGB32, width, height, int(memory.bytesPerRow())));
  return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? std::move(surface) : nullptr;
}

}  // namespace

namespace sim {

ContextMemory::~ContextMemory() {
  CGColorSpaceRelease(space_);
  if (release) release(releaseInfo, data_);
}

bool ContextMemory::isDrawnIn(cairo_surface_t *surface) const { return cairo_image_surface_get_data(surface) == data_; }

void ContextMemory::load(cairo_surface_t *surface) const {
  if (!isDrawnIn(surface)) {
    cairo_surface_flush(surface);
    readPixels(layout_, data_, bytesPerRow_, surface);
  }
  cairo_surface_mark_dirty(surface);
}

void ContextMemory::store(cairo_surface_t *surface) const {
  cairo_surface_flush(surface);
  if (!isDrawnIn(surface)) writePixels(surface, layout_, data_, bytesPerRow_);
}

}  // namespace sim

CGContextRef CGBitmapContextCreateWithData(void *data, size_t width, size_t height, size_t bitsPerComponent,
                                           size_t bytesPerRow, CGColorSpaceRef space, uint32_t bitmapInfo,
                                           CGBitmapContextReleaseDataCallback releaseCallback, void *releaseInfo) {
  const auto layout = drawableLayout(space, bitmapInfo);
  const bool isDrawable = width <= size_t(sim::kMaxPixels) && height <= size_t(sim::kMaxPixels) &&
                          sim::isDrawableSize(std::int64_t(width), std::int64_t(height));
  const size_t shortest = layout && isDrawable ? width * layout->bytesPerPixel() : 0;
  if (!data && bytesPerRow == 0) bytesPerRow = (shortest + 3) / 4 * 4;
  if (shortest == 0 || bitsPerComponent != 8 || bytesPerRow < shortest || bytesPerRow > size_t(INT32_MAX) / height) {
    NSLog(@"CGBitmapContextCreate: %zu × %zu pixels of %zu bits a component in rows of %zu bytes, layout %u, are not "
          @"carried.",
          width, height, bitsPerComponent, bytesPerRow, unsigned(bitmapInfo));
    return nullptr;
  }
  auto own = data ? nullptr : std::make_unique<std::uint8_t[]>(bytesPerRow * height);
  auto memory = std::make_unique<sim::ContextMemory>(data ? data : own.get(), bytesPerRow, *layout, space, bitmapInfo);
  memory->own = std::move(own);
  const sim::SurfacePtr surface = makeSurfaceOver(*memory, int(width), int(height));
  if (!surface) return nullptr;
  memory->release = releaseCallback;
  memory->releaseInfo = releaseInfo;
  const bool isOpaque = layout->alpha() == sim::Alpha::ignored;
  const CGContextRef context = sim::createContext(surface, {1, 0, 0, -1, 0, double(height)}, isOpaque);
  object(context)->_memory = std::move(memory);
  return context;
}

CGContextRef CGBitmapContextCreate(void *data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, uint32_t bitmapInfo) {
  return CGBitmapContextCreateWithData(data, width, height, bitsPerComponent, bytesPerRow, space, bitmapInfo, nullptr,
                                       nullptr);
}

CGImageRef CGBitmapContextCreateImage(CGContextRef context) {
  if (!context) return nullptr;
  const sim::ContextMemory *memory = object(context)->_memory.get();
  if (!memory) return sim::createImage(sim::sourceOf(sim::snapshot(context)));
  const size_t width = CGBitmapContextGetWidth(context);
  const size_t height = CGBitmapContextGetHeight(context);
  NSData *bytes =
      [NSData dataWithBytes:CGBitmapContextGetData(context)
                     length:memory->bytesPerRow() * (height - 1) + width * memory->layout().bytesPerPixel()];
  const CGDataProviderRef provider = CGDataProviderCreateWithCFData((CFDataRef)bytes);
  const CGImageRef image =
      CGImageCreate(width, height, 8, CGBitmapContextGetBitsPerPixel(context), memory->bytesPerRow(), memory->space(),
                    memory->info(), provider, nullptr, true, kCGRenderingIntentDefault);
  CGDataProviderRelease(provider);
  return image;
}

void *CGBitmapContextGetData(CGContextRef context) {
  if (!context) return nullptr;
  if (object(context)->_memory) return object(context)->_memory->data();
  cairo_surface_flush(surfaceOf(context));
  return cairo_image_surface_get_data(surfaceOf(context));
}

size_t CGBitmapContextGetWidth(CGContextRef context) {
  return context ? size_t(cairo_image_surface_get_width(surfaceOf(context))) : 0;
}

size_t CGBitmapContextGetHeight(CGContextRef context) {
  return context ? size_t(cairo_image_surface_get_height(surfaceOf(context))) : 0;
}

size_t CGBitmapContextGetBitsPerComponent(CGContextRef context) { return context ? 8 : 0; }

size_t CGBitmapContextGetBitsPerPixel(CGContextRef context) {
  if (!context) return 0;
  return object(context)->_memory ? object(context)->_memory->layout().bytesPerPixel() * 8 : 32;
}

size_t CGBitmapContextGetBytesPerRow(CGContextRef context) {
  if (!context) return 0;
  return object(context)->_memory ? object(context)->_memory->bytesPerRow()
                                  : size_t(cairo_image_surface_get_stride(surfaceOf(context)));
}

CGColorSpaceRef CGBitmapContextGetColorSpace(CGContextRef context) {
  static const CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
  if (!context) return nullptr;
  return object(context)->_memory ? object(context)->_memory->space() : rgb;
}

CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context) {
  return CGImageAlphaInfo(CGBitmapContextGetBitmapInfo(context) & kCGBitmapAlphaInfoMask);
}

CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef context) {
  if (!context) return CGBitmapInfo(0);
  return object(context)->_memory ? object(context)->_memory->info() : kCairosInfo;
}
