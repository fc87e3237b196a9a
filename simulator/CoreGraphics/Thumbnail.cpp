#include "CoreGraphics/Thumbnail.hpp"

#include <algorithm>
#include <cmath>

namespace sim {

BitmapPtr squareThumbnail(const DecodedImage& image, int side) {
  if (!image.source) return nullptr;
  const auto [shorter, longer] = std::minmax({image.source->width(), image.source->height()});
  // The shorter side becomes `side`; what the longer one has beyond that is cut off.
  const double factor = std::min(1.0, double(side) / shorter);
  const BitmapPtr pixels = image.source->thumbnail(int(std::ceil(longer * factor)));
  if (!pixels) return nullptr;
  const int edge = std::min({pixels->width(), pixels->height(), side});
  const int left = (pixels->width() - edge) / 2;
  const int top = (pixels->height() - edge) / 2;
  return upright(cropped(*pixels, left, top, edge, edge), image.orientation);
}

}  // namespace sim
