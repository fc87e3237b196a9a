// How the pixels of images and bitmap contexts lie in memory. Plain C++.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Components of 8 bits: four in a pixel, or one that is grey or alpha.
class PixelLayout final {
 public:
  enum class Kind { rgb, grey, alpha };
  /// What the fourth byte of an RGB pixel is, and whether it comes first.
  struct FourthByte {
    Alpha alpha = Alpha::ignored;
    bool first = false;
  };

  static constexpr PixelLayout rgb(FourthByte fourth, bool reversed) noexcept {
    std::array<std::uint8_t, 4> order = {0, 1, 2, 3};
    if (fourth.first) order = {1, 2, 3, 0};
    if (reversed) {
      for (std::uint8_t& place : order) place = std::uint8_t(3 - place);
    }
    return PixelLayout(Kind::rgb, fourth.alpha, order);
  }
  /// Grey without alpha.
  static constexpr PixelLayout grey() noexcept { return PixelLayout(Kind::grey, Alpha::ignored, {}); }
  /// Alpha alone, of black.
  static constexpr PixelLayout alphaOnly() noexcept { return PixelLayout(Kind::alpha, Alpha::premultiplied, {}); }

  constexpr Kind kind() const noexcept { return kind_; }
  constexpr Alpha alpha() const noexcept { return alpha_; }
  constexpr std::size_t bytesPerPixel() const noexcept { return kind_ == Kind::rgb ? 4 : 1; }
  /// Whether cairo draws on such pixels itself, on this machine.
  bool isCairos() const noexcept;

  /// Red, green, blue and alpha (255 where it is ignored) of the pixel that begins at `from`, as they are stored.
  void read(const std::uint8_t* from, std::uint8_t* rgba) const noexcept;
  /// Stores premultiplied red, green, blue and alpha in the pixel that begins at `to`. A colour becomes as grey as it
  /// is bright.
  void write(const std::uint8_t* rgba, std::uint8_t* to) const noexcept;

 private:
  constexpr PixelLayout(Kind kind, Alpha alpha, std::array<std::uint8_t, 4> order) noexcept
      : kind_(kind), alpha_(alpha), order_(order) {}

  Kind kind_;
  Alpha alpha_;
  std::array<std::uint8_t, 4> order_;  // Where red, green, blue and alpha lie among the four bytes.
};

/// How bright a colour is, from 0 to 255.
std::uint8_t brightness(const std::uint8_t* rgb) noexcept;

}  // namespace sim
