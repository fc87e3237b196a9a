#include "CoreGraphics/PixelLayout.hpp"

#include <bit>

namespace sim {

bool PixelLayout::isCairos() const noexcept {
  constexpr std::array<std::uint8_t, 4> kLittle = {2, 1, 0, 3};
  constexpr std::array<std::uint8_t, 4> kBig = {1, 2, 3, 0};
  return kind_ == Kind::rgb && alpha_ == Alpha::premultiplied &&
         order_ == (std::endian::native == std::endian::little ? kLittle : kBig);
}

std::uint8_t brightness(const std::uint8_t* rgb) noexcept {
  // The shares of Rec. 709, in parts of 65536.
  return std::uint8_t((rgb[0] * 13933u + rgb[1] * 46871u + rgb[2] * 4732u + 32768u) >> 16);
}

void PixelLayout::read(const std::uint8_t* from, std::uint8_t* rgba) const noexcept {
  switch (kind_) {
    case Kind::rgb:
      for (std::size_t component = 0; component < 3; ++component) rgba[component] = from[order_[component]];
      rgba[3] = alpha_ == Alpha::ignored ? 255 : from[order_[3]];
      return;
    case Kind::grey:
      rgba[0] = rgba[1] = rgba[2] = *from;
      rgba[3] = 255;
      return;
    case Kind::alpha:
      rgba[0] = rgba[1] = rgba[2] = 0;
      rgba[3] = *from;
      return;
  }
}

void PixelLayout::write(const std::uint8_t* rgba, std::uint8_t* to) const noexcept {
  switch (kind_) {
    case Kind::rgb:
      for (std::size_t component = 0; component < 3; ++component) to[order_[component]] = rgba[component];
      to[order_[3]] = alpha_ == Alpha::ignored ? 255 : rgba[3];
      return;
    case Kind::grey: *to = brightness(rgba); return;
    case Kind::alpha: *to = rgba[3]; return;
  }
}

}  // namespace sim
