#import <Preferences/CellTypes.h>

#include <algorithm>
#include <array>

namespace sim {
namespace {

constexpr CGFloat kGiantRowHeight = 66;
constexpr CGFloat kTextViewRowHeight = 88;

/// What is not said is as `CellTraits` begins.
const auto &cellTypes() {
  static const auto types = std::to_array<CellTraits>({
      {.type = PSGroupCell, .name = @"PSGroupCell"},
      {.type = PSLinkCell, .name = @"PSLinkCell", .tap = Tap::kOpensPage, .needsPurpose = true},
      {.type = PSLinkListCell,
       .name = @"PSLinkListCell",
       .tap = Tap::kOpensPage,
       .shows = ShownValue::kShortTitle,
       .needsPurpose = true},
      {.type = PSListItemCell, .name = @"PSListItemCell", .tap = Tap::kChecks},
      {.type = PSTitleValueCell, .name = @"PSTitleValueCell", .shows = ShownValue::kTitle},
      {.type = PSSliderCell, .name = @"PSSliderCell", .cellClass = @"PSSliderTableCell", .needsPurpose = true},
      {.type = PSSwitchCell,
       .name = @"PSSwitchCell",
       .cellClass = @"PSSwitchTableCell",
       .needsPurpose = true,
       .storesWhenConfirmed = true},
      {.type = PSStaticTextCell, .name = @"PSStaticTextCell", .tap = Tap::kRefused, .wraps = true},
      {.type = PSEditTextCell,
       .name = @"PSEditTextCell",
       .cellClass = @"PSEditableTableCell",
       .tap = Tap::kEdits,
       .needsPurpose = true},
      {.type = PSSegmentCell, .name = @"PSSegmentCell", .cellClass = @"PSSegmentTableCell", .needsPurpose = true},
      {.type = PSGiantIconCell, .name = @"PSGiantIconCell", .tap = Tap::kOpensOwnPage, .height = kGiantRowHeight},
      {.type = PSGiantCell, .name = @"PSGiantCell", .tap = Tap::kOpensOwnPage, .height = kGiantRowHeight},
      {.type = PSSecureEditTextCell,
       .name = @"PSSecureEditTextCell",
       .cellClass = @"PSEditableTableCell",
       .tap = Tap::kEdits,
       .needsPurpose = true,
       .hidesText = true},
      {.type = PSButtonCell, .name = @"PSButtonCell", .tap = Tap::kPresses, .needsPurpose = true},
      {.type = PSEditTextViewCell,
       .name = @"PSEditTextViewCell",
       .cellClass = @"PSTextViewTableCell",
       .tap = Tap::kEdits,
       .height = kTextViewRowHeight,
       .needsPurpose = true},
      {.type = PSSpinnerCell, .name = @"PSSpinnerCell", .cellClass = @"PSSpinnerTableCell"},
  });
  return types;
}

}  // namespace

const CellTraits &traitsOf(PSCellType type) {
  static const CellTraits none;
  const auto found = std::ranges::find(cellTypes(), type, &CellTraits::type);
  return found == cellTypes().end() ? none : *found;
}

PSCellType cellTypeNamed(NSString *name) {
  const auto found = std::ranges::find_if(cellTypes(), [&](const auto &each) { return [each.name isEqual:name]; });
  return found == cellTypes().end() ? kNoCellType : found->type;
}

Class classOfCellType(PSCellType type) { return NSClassFromString(traitsOf(type).cellClass); }

}  // namespace sim
