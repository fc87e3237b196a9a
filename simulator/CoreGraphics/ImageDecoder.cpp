#include "CoreGraphics/ImageDecoder.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <cstring>

#include "CoreGraphics/ImageHeader.hpp"
#include "CoreGraphics/PngDecoder.hpp"

namespace sim {
namespace {

struct ObjectEnd {
  void operator()(gpointer object) const noexcept { g_object_unref(object); }
};
using LoaderPtr = std::unique_ptr<GdkPixbufLoader, ObjectEnd>;
using PixbufPtr = std::unique_ptr<GdkPixbuf, ObjectEnd>;

// Decodes, made smaller to a longest side of `longestSide` unless that is 0. The loader's own idea of the size is
// checked again before it allocates, as it need not be the header's.
PixbufPtr decode(std::span<const std::uint8_t> bytes, int longestSide) {
  const LoaderPtr loader(gdk_pixbuf_loader_new());
  const auto limit = +[](GdkPixbufLoader* self, int width, int height, gpointer longest) {
    if (!isDrawableSize(width, height)) return gdk_pixbuf_loader_set_size(self, 0, 0);
    const PixelSize size = fitted({width, height}, GPOINTER_TO_INT(longest));
    if (size.width != width || size.height != height) gdk_pixbuf_loader_set_size(self, size.width, size.height);
  };
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(limit), GINT_TO_POINTER(longestSide));
  const bool written = gdk_pixbuf_loader_write(loader.get(), bytes.data(), bytes.size(), nullptr);
  const bool closed = gdk_pixbuf_loader_close(loader.get(), nullptr);
  GdkPixbuf* pixbuf = written && closed ? gdk_pixbuf_loader_get_pixbuf(loader.get()) : nullptr;
  if (!pixbuf || gdk_pixbuf_get_bits_per_sample(pixbuf) != 8) return nullptr;
  return PixbufPtr(GDK_PIXBUF(g_object_ref(pixbuf)));
}

BitmapPtr bitmapOf(GdkPixbuf* pixbuf, Alpha alpha) {
  const auto result = Bitmap::make(gdk_pixbuf_get_width(pixbuf), gdk_pixbuf_get_height(pixbuf), alpha);
  if (!result) return nullptr;
  const guchar* pixels = gdk_pixbuf_read_pixels(pixbuf);
  const std::size_t stride = gdk_pixbuf_get_rowstride(pixbuf);
  for (int y = 0; y < result->height(); ++y) {
    const guchar* from = pixels + stride * y;
    std::uint8_t* to = result->row(y);
    if (gdk_pixbuf_get_has_alpha(pixbuf)) {
      std::memcpy(to, from, result->bytesPerRow());
    } else {
      for (int x = 0; x < result->width(); ++x, from += 3, to += 4) {
        to[0] = from[0];
        to[1] = from[1];
        to[2] = from[2];
        to[3] = 255;
      }
    }
  }
  return result;
}

class EncodedSource final : public PixelSource {
 public:
  EncodedSource(SharedBytes file, const ImageHeader& header) : file_(std::move(file)), header_(header) {}

  int width() const noexcept override { return int(header_.width); }
  int height() const noexcept override { return int(header_.height); }
  Alpha alpha() const noexcept override { return header_.alpha; }

  BitmapPtr bitmap() const override {
    if (!tried_) {
      tried_ = true;
      bitmap_ = whole();
    }
    return bitmap_;
  }

  BitmapPtr thumbnail(int longestSide) const override {
    if (tried_) return PixelSource::thumbnail(longestSide);
    // What is decoded for this is not kept.
    const bool shrinks = longestSide > 0 && (width() > longestSide || height() > longestSide);
    if (!shrinks) return whole();
    const BitmapPtr pixels = decoded(longestSide);
    return pixels ? sourceOf(pixels)->thumbnail(longestSide) : nullptr;
  }

  std::span<const std::uint8_t> png() const noexcept override {
    if (header_.format != ImageFormat::png) return {};
    return *file_;
  }

 private:
  BitmapPtr whole() const {
    const BitmapPtr pixels = decoded(0);
    // Whoever laid out by the header must not meet pixels of another size.
    return pixels && pixels->width() == width() && pixels->height() == height() ? pixels : nullptr;
  }

  // Made smaller, as far as the decoder can do that, to a longest side of `longestSide` at least (0: whole).
  BitmapPtr decoded(int longestSide) const {
    if (header_.format == ImageFormat::png) return decodePng(*file_, longestSide);
    const PixbufPtr pixbuf = decode(*file_, longestSide);
    return pixbuf ? bitmapOf(pixbuf.get(), header_.alpha) : nullptr;
  }

  SharedBytes file_;
  ImageHeader header_;
  mutable bool tried_ = false;
  mutable BitmapPtr bitmap_;
};

// libtiff turns the first four orientations by itself and mistakes the others for them; the loader reports what is
// left.
Orientation leftOrientation(GdkPixbuf* pixbuf) {
  const char* option = gdk_pixbuf_get_option(pixbuf, "orientation");
  const int tag = option ? std::atoi(option) : 1;
  return tag >= 1 && tag <= 8 ? Orientation(tag) : Orientation::up;
}

}  // namespace

DecodedImage openImage(SharedBytes file) {
  if (!file) return {};
  const auto header = readImageHeader(*file);
  if (!header || !isDrawableSize(header->width, header->height)) return {};
  switch (header->format) {
    case ImageFormat::png:
    case ImageFormat::jpeg:
    case ImageFormat::webp: return {std::make_shared<EncodedSource>(std::move(file), *header), header->orientation};
    case ImageFormat::gif:
    case ImageFormat::tiff:
    case ImageFormat::heif: {
      const PixbufPtr pixbuf = decode(*file, 0);
      if (!pixbuf) return {};
      const Alpha alpha = gdk_pixbuf_get_has_alpha(pixbuf.get()) ? Alpha::straight : Alpha::ignored;
      const bool isTiff = header->format == ImageFormat::tiff;
      return {sourceOf(bitmapOf(pixbuf.get(), alpha)), isTiff ? leftOrientation(pixbuf.get()) : Orientation::up};
    }
  }
  return {};
}

}  // namespace sim
