// The visual format language: "H:|-[name(>=80@750)]-8-[value]|". Plain C++; names are resolved by whoever knows them.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sim {

/// "==", "<=" or ">=", with a number or a name on its right, and after "@" a priority that is one of them too.
struct VisualPredicate {
  int relation = 0;  ///< -1 at most, 0 equal, 1 at least.
  std::variant<double, std::string> value = 0.0;
  std::variant<double, std::string> priority = 1000.0;
};

struct VisualView {
  std::string name;  ///< Empty for the superview, "|".
  std::vector<VisualPredicate> sizes;
};

/// What stands between two views.
struct VisualGap {
  bool isStandard = false;                 ///< "-": the system's distance, else `distances`.
  std::vector<VisualPredicate> distances;  ///< Empty where the views touch.
};

struct VisualFormat {
  bool isVertical = false;
  std::vector<VisualView> views;
  std::vector<VisualGap> gaps;  ///< One fewer than views.
};

struct VisualFormatError {
  std::size_t position = 0;  ///< In bytes, at most the length of the text.
  std::string reason;
};

/// Parses a whole text. Blanks are allowed at its ends alone.
[[nodiscard]] std::variant<VisualFormat, VisualFormatError> parseVisualFormat(std::string_view text);

}  // namespace sim
