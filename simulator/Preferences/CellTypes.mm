#import <Preferences/CellTypes.hpp>

#import <Preferences/PSEditableTableCell.h>
#import <Preferences/PSSegmentTableCell.h>
#import <Preferences/PSSliderTableCell.h>
#import <Preferences/PSSpinnerTableCell.h>
#import <Preferences/PSSwitchTableCell.h>
#import <Preferences/PSTextViewTableCell.h>

#include <array>

namespace sim {
namespace {

struct TypeRow {
  NSString *name;
  Class cellClass;
};

/// In the order of PSCellType.
const std::array<TypeRow, 16> &cellTypes() {
  Class plain = [PSTableCell class];
  static const std::array<TypeRow, 16> types{{{@"PSGroupCell", plain},
                                              {@"PSLinkCell", plain},
                                              {@"PSLinkListCell", plain},
                                              {@"PSListItemCell", plain},
                                              {@"PSTitleValueCell", plain},
                                              {@"PSSliderCell", [PSSliderTableCell class]},
                                              {@"PSSwitchCell", [PSSwitchTableCell class]},
                                              {@"PSStaticTextCell", plain},
                                              {@"PSEditTextCell", [PSEditableTableCell class]},
                                              {@"PSSegmentCell", [PSSegmentTableCell class]},
                                              {@"PSGiantIconCell", plain},
                                              {@"PSGiantCell", plain},
                                              {@"PSSecureEditTextCell", [PSEditableTableCell class]},
                                              {@"PSButtonCell", plain},
                                              {@"PSEditTextViewCell", [PSTextViewTableCell class]},
                                              {@"PSSpinnerCell", [PSSpinnerTableCell class]}}};
  return types;
}

/// nullptr for what is no type.
const TypeRow *rowOf(PSCellType type) {
  const auto index = static_cast<std::size_t>(type);
  return type >= 0 && index < cellTypes().size() ? &cellTypes()[index] : nullptr;
}

}  // namespace

PSCellType cellTypeNamed(NSString *name) {
  for (std::size_t index = 0; name && index < cellTypes().size(); ++index) {
    if ([cellTypes()[index].name isEqualToString:name]) return static_cast<PSCellType>(index);
  }
  return kNoCellType;
}

NSString *nameOfCellType(PSCellType type) {
  const TypeRow *row = rowOf(type);
  return row ? row->name : nil;
}

Class classOfCellType(PSCellType type) {
  const TypeRow *row = rowOf(type);
  return row ? row->cellClass : [PSTableCell class];
}

}  // namespace sim
