// Pictures that tests make for themselves. Plain C++.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

#include "CoreGraphics/Bitmap.hpp"

namespace test_images {

using File = std::vector<std::uint8_t>;

struct Pixel {
  int red = 0, green = 0, blue = 0, alpha = 255;

  friend bool operator==(const Pixel&, const Pixel&) = default;
  friend void PrintTo(const Pixel& pixel, std::ostream* out) {
    *out << pixel.red << ' ' << pixel.green << ' ' << pixel.blue << ' ' << pixel.alpha;
  }
};

/// A bitmap whose pixel at (x, y) is what `colour` gives.
sim::BitmapPtr bitmap(int width, int height, sim::Alpha alpha, const std::function<Pixel(int x, int y)>& colour);
/// The pixel at (x, y).
Pixel at(const sim::Bitmap& bitmap, int x, int y);

/// Red on the left half, blue on the right; the top row is green. So every orientation shows.
sim::BitmapPtr marked(int width, int height);

/// A file that gdk-pixbuf writes: "png", "jpeg", "webp", "tiff". GIF is not among them.
File encoded(const sim::Bitmap& bitmap, const char* format);
/// A 1 × 1 GIF, a 64 × 32 HEIF (red left half, blue right half).
File gif();
File heif();
/// The JPEG with an orientation tag from 0 to 65535, in the byte order given.
File withOrientation(const File& jpeg, int tag, bool bigEndian);
/// A PNG whose header says that size and that holds no pixels, closed properly.
File pngHeader(std::uint32_t width, std::uint32_t height);

}  // namespace test_images
