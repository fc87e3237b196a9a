#include "CoreGraphics/PngDecoder.hpp"

#include <png.h>

#include <csetjmp>
#include <cstring>
#include <vector>

#include "CoreGraphics/BoxReducer.hpp"

namespace sim {
namespace {

void take(png_structp png, png_bytep bytes, png_size_t count) {
  auto& rest = *static_cast<std::span<const std::uint8_t>*>(png_get_io_ptr(png));
  if (count > rest.size()) png_error(png, "The file ends early.");
  std::memcpy(bytes, rest.data(), count);
  rest = rest.subspan(count);
}

void silent(png_structp, png_const_charp) {}

[[noreturn]] void jump(png_structp png, png_const_charp) { png_longjmp(png, 1); }

// libpng reports errors by a jump to here, so none of these functions holds an object that needs destruction.
bool readHeader(png_structp png, png_infop info) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_read_info(png, info);
  png_set_expand(png);
  png_set_strip_16(png);
  png_set_gray_to_rgb(png);
  png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
  return true;
}

bool readRows(png_structp png, png_infop info, Bitmap& bitmap) {
  if (setjmp(png_jmpbuf(png))) return false;
  const int passes = png_set_interlace_handling(png);
  png_read_update_info(png, info);
  if (png_get_rowbytes(png, info) != bitmap.bytesPerRow()) return false;
  for (int pass = 0; pass < passes; ++pass) {
    for (int y = 0; y < bitmap.height(); ++y) png_read_row(png, bitmap.row(y), nullptr);
  }
  return true;
}

bool reduceRows(png_structp png, png_infop info, std::vector<std::uint8_t>& row, BoxReducer& reducer, int height) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_read_update_info(png, info);
  if (png_get_rowbytes(png, info) != row.size()) return false;
  for (int y = 0; y < height; ++y) {
    png_read_row(png, row.data(), nullptr);
    reducer.add(row.data());
  }
  return true;
}

BitmapPtr readReduced(png_structp png, png_infop info, PixelSize size, PixelSize smallest, Alpha alpha) {
  std::vector<std::uint8_t> row(std::size_t(size.width) * 4);
  BoxReducer reducer(size, smallest, alpha);
  return reduceRows(png, info, row, reducer, size.height) ? reducer.result() : nullptr;
}

BitmapPtr readWhole(png_structp png, png_infop info, PixelSize size, Alpha alpha) {
  const auto bitmap = Bitmap::make(size.width, size.height, alpha);
  return bitmap && readRows(png, info, *bitmap) ? bitmap : nullptr;
}

BitmapPtr readPixels(png_structp png, png_infop info, int longestSide) {
  const png_uint_32 width = png_get_image_width(png, info);
  const png_uint_32 height = png_get_image_height(png, info);
  if (!isDrawableSize(width, height)) return nullptr;
  const bool hasAlpha =
      (png_get_color_type(png, info) & PNG_COLOR_MASK_ALPHA) || png_get_valid(png, info, PNG_INFO_tRNS);
  const Alpha alpha = hasAlpha ? Alpha::straight : Alpha::ignored;
  const PixelSize size{int(width), int(height)};
  const PixelSize smallest = fitted(size, longestSide);
  const bool isReduced = BoxReducer::reduces(size, smallest) && png_get_interlace_type(png, info) == PNG_INTERLACE_NONE;
  return isReduced ? readReduced(png, info, size, smallest, alpha) : readWhole(png, info, size, alpha);
}

}  // namespace

BitmapPtr decodePng(std::span<const std::uint8_t> file, int longestSide) {
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, jump, silent);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  BitmapPtr bitmap;
  if (info) {
    png_set_read_fn(png, &file, take);
    if (readHeader(png, info)) bitmap = readPixels(png, info, longestSide);
  }
  png_destroy_read_struct(&png, &info, nullptr);
  return bitmap;
}

}  // namespace sim
