#include "noisy_photo.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace bench {
namespace {

std::uint32_t hashed(std::uint32_t number) {
  number = (number ^ number >> 16) * 0x7FEB352D;
  number = (number ^ number >> 15) * 0x846CA68B;
  return number ^ number >> 16;
}

/// From 0 to 1, the same for the same place.
float randomAt(int x, int y, unsigned layer) {
  return static_cast<float>(hashed(static_cast<std::uint32_t>(x) * 0x9E3779B1u ^
                                   hashed(static_cast<std::uint32_t>(y) + layer * 131u)) >>
                            8) /
         static_cast<float>(1 << 24);
}

/// A smooth surface over a grid of `cell` pixels, from 0 to 1.
float surfaceAt(int x, int y, int cell, unsigned layer) {
  const int column = x / cell, row = y / cell;
  const float right = static_cast<float>(x % cell) / static_cast<float>(cell);
  const float down = static_cast<float>(y % cell) / static_cast<float>(cell);
  const float top = std::lerp(randomAt(column, row, layer), randomAt(column + 1, row, layer), right);
  const float bottom = std::lerp(randomAt(column, row + 1, layer), randomAt(column + 1, row + 1, layer), right);
  return std::lerp(top, bottom, down);
}

}  // namespace

sim::BitmapPtr noisyPhoto(int width, int height) {
  const auto photo = sim::Bitmap::make(width, height, sim::Alpha::ignored);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* to = photo->row(y);
    for (int x = 0; x < width; ++x, to += 4) {
      const float shape = 110 * surfaceAt(x, y, 512, 1) + 60 * surfaceAt(x, y, 96, 2) + 30 * surfaceAt(x, y, 16, 3);
      for (int component = 0; component < 3; ++component) {
        // The sum of three even distributions: about normal, with a standard deviation of 2.
        state = state * 1664525u + 1013904223u;
        const auto noise = static_cast<float>((state >> 8 & 255) + (state >> 16 & 255) + (state >> 24)) / 64.f - 6.f;
        const float tint = 20.f * static_cast<float>(component) * static_cast<float>(y) / static_cast<float>(height);
        to[component] = static_cast<std::uint8_t>(std::clamp(shape + tint + noise, 0.f, 255.f));
      }
      to[3] = 255;
    }
  }
  return photo;
}

}  // namespace bench
