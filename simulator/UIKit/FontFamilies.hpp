// The fonts of a device, and which of this computer's stand in for them. Plain C++.
#pragma once

#include <span>
#include <string_view>

namespace sim {

/// The system's font, and three that have the widths of common fonts or at least their kind.
enum class Typeface { system, sans, serif, mono };

struct FontFace {
  std::string_view name;  ///< PostScript's.
  int weight = 400;       ///< 100 to 900.
  bool italic = false;
};

struct FontFamily {
  std::string_view name;
  Typeface typeface;
  std::span<const FontFace> faces;  ///< The plain one first.
};

/// In alphabetical order.
std::span<const FontFamily> fontFamilies();
/// nullptr for none; capitals do not count.
const FontFamily* fontFamily(std::string_view name);

struct NamedFont {
  const FontFamily* family = nullptr;
  const FontFace* face = nullptr;
};
/// By the name of a face or of a family. Both nullptr for an unknown name.
NamedFont fontNamed(std::string_view name);
/// Of the same slant where there is one.
const FontFace& nearestFace(const FontFamily& family, int weight, bool italic);

/// Vertical metrics in parts of the size.
struct FontShares {
  double ascender = 0;
  double descender = 0;  ///< Negative.
  double leading = 0;
  double capHeight = 0;
  double xHeight = 0;
};
FontShares sharesOf(Typeface typeface);

/// The name of the family on this computer and in the page.
const char* fontFamilyOf(Typeface typeface);

}  // namespace sim
