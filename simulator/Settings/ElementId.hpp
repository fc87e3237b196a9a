// The names by which the automation interface calls what is on the screen. Plain C++.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// What an id can name. The text form is "<kind><owner>[.<row>][.<index>]", for instance "row3.17".
enum class ElementKind : std::uint8_t {
  kBack,         ///< "back3": the back button of page 3.
  kButton,       ///< "button3.8": a bar button of page 3.
  kRow,          ///< "row3.17": a row of page 3.
  kSwipe,        ///< "swipe3.17.1": a swipe action of a row of page 3.
  kAlertAction,  ///< "action5.0": an action of alert 5.
  kAlertField,   ///< "field5.0": a text field of alert 5.
  kSheetItem,    ///< "item6.0": an entry of sheet 6.
  kSheetColor,   ///< "color6": the colour of sheet 6.
  kView,         ///< "view7": the view 7, whose number is unique among the views of the process.
};

/// An element of one page, alert or sheet. `owner` is the number of that page, unique in the process, so that an id of
/// a page that is gone names nothing. So are the numbers of rows and of bar buttons; the others are places.
struct ElementId {
  ElementKind kind = ElementKind::kRow;
  std::uint32_t owner = 0;
  std::uint32_t row = 0;    ///< The number of the row: rows and swipe actions only.
  std::uint32_t index = 0;  ///< The number of a bar button; the place of what has no number of its own, from 0 on.

  std::string text() const;
  /// nullopt for anything that `text()` does not produce.
  static std::optional<ElementId> parse(std::string_view text);

  friend bool operator==(const ElementId&, const ElementId&) = default;
};

}  // namespace sim
