#include "CoreGraphics/ImageEncoder.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <png.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <memory>
#include <string>

namespace sim {
namespace {

void append(png_structp png, png_bytep bytes, png_size_t count) {
  auto& file = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
  file.insert(file.end(), bytes, bytes + count);
}

// libpng reports errors by a jump to here, so this function holds no object that needs destruction.
bool writePng(png_structp png, png_infop info, const Bitmap& bitmap, std::vector<std::uint8_t>& file) {
  if (setjmp(png_jmpbuf(png))) return false;
  const bool opaque = bitmap.alpha() == Alpha::ignored;
  png_set_write_fn(png, &file, append, nullptr);
  png_set_IHDR(png, info, bitmap.width(), bitmap.height(), 8, opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_compression_level(png, 1);
  png_set_compression_strategy(png, Z_RLE);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
  png_write_info(png, info);
  if (opaque) png_set_filler(png, 0, PNG_FILLER_AFTER);
  for (int y = 0; y < bitmap.height(); ++y) png_write_row(png, bitmap.row(y));
  png_write_end(png, info);
  return true;
}

}  // namespace

std::vector<std::uint8_t> encodePng(const BitmapPtr& bitmap) {
  const BitmapPtr pixels = straightened(bitmap);
  std::vector<std::uint8_t> file;
  if (!pixels) return file;
  file.reserve(pixels->bytes().size() / 2);
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  if (!info || !writePng(png, info, *pixels, file)) file.clear();
  png_destroy_write_struct(&png, &info);
  return file;
}

std::vector<std::uint8_t> encodeJpeg(const BitmapPtr& bitmap, double quality) {
  const BitmapPtr pixels = premultiplied(bitmap);
  if (!pixels) return {};
  const auto bytes = pixels->bytes();
  std::vector<std::uint8_t> rgb(bytes.size() / 4 * 3);
  std::uint8_t* to = rgb.data();
  for (const std::uint8_t* from = bytes.data(); from != bytes.data() + bytes.size(); from += 4, to += 3) {
    const unsigned white = pixels->alpha() == Alpha::ignored ? 0 : 255 - from[3];
    for (int component = 0; component < 3; ++component) {
      to[component] = std::uint8_t(std::min(255u, from[component] + white));
    }
  }
  GdkPixbuf* pixbuf = gdk_pixbuf_new_from_data(rgb.data(), GDK_COLORSPACE_RGB, FALSE, 8, pixels->width(),
                                               pixels->height(), pixels->width() * 3, nullptr, nullptr);
  const double share = std::isnan(quality) ? 0 : std::clamp(quality, 0.0, 1.0);
  const std::string percent = std::to_string(std::lround(share * 100));
  gchar* file = nullptr;
  gsize length = 0;
  std::vector<std::uint8_t> result;
  if (gdk_pixbuf_save_to_buffer(pixbuf, &file, &length, "jpeg", nullptr, "quality", percent.c_str(), nullptr)) {
    result.assign(file, file + length);
    g_free(file);
  }
  g_object_unref(pixbuf);
  return result;
}

}  // namespace sim
