// The text by which the theme file names a colour.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zuno {

/// A colour in the sRGB space. Every part goes from 0 to 1; `alpha` is 1 for a colour that is opaque.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;

  friend bool operator==(const Colour&, const Colour&) = default;
};

/// The colour that `text` names: six hexadecimal digits, RRGGBB, or eight, RRGGBBAA, in either case.
///
/// Nothing else is a colour: no '#' before the digits, no space around them, no short form of three digits. nullopt
/// then, and for an empty text, which leaves the colour to the system.
std::optional<Colour> parseColour(std::string_view text);

/// The text of `colour`, in capitals: RRGGBB when it is opaque to eight bits, else RRGGBBAA.
///
/// Each part is rounded to eight bits. What is out of range becomes the nearer end of it, a part that is no number 0.
std::string colourText(const Colour& colour);

}  // namespace zuno
