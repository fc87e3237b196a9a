// The cell types of specifiers: their names in property lists and the classes of their cells.
#pragma once

#import <Preferences/PSSpecifier.h>

namespace sim {

/// Of a row whose type is missing or unknown.
constexpr PSCellType kNoCellType = static_cast<PSCellType>(-1);

/// The type of a name such as "PSSwitchCell"; `kNoCellType` for nil and for any other text.
PSCellType cellTypeNamed(NSString* name);

/// nil for what is no type.
NSString* nameOfCellType(PSCellType type);

/// The framework's class for the type; that of a plain row for what is no type.
Class classOfCellType(PSCellType type);

}  // namespace sim
