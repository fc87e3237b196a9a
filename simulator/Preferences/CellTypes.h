// The cell types of specifiers: what a row of each type is called, shows and does. A new type is one line of the table.
#pragma once

#import <Preferences/PSSpecifier.h>
#import <UIKit/UIKit.h>

namespace sim {

/// Of a row whose type is missing or unknown.
constexpr PSCellType kNoCellType = static_cast<PSCellType>(-1);

/// What a tap on a row does, beside the action that any row may have.
enum class Tap {
  kNothing,       ///< Only rows with an action can be tapped.
  kRefused,       ///< Not even those.
  kOpensPage,     ///< Pushes the row's own page, else a list page of no rows.
  kOpensOwnPage,  ///< The same, but a row without a page of its own is tapped only for its action.
  kPresses,       ///< Sends the row's action, after asking when it is a confirmation.
  kEdits,         ///< Begins to edit the row's text.
  kChecks         ///< Moves the check mark of a radio group to the row and stores the row's value.
};

/// What a plain row shows of its value, as text at its right. Cells of other classes read theirs themselves.
enum class ShownValue {
  kNone,       ///< The getter is not asked.
  kTitle,      ///< The title of the value, else the value as text.
  kShortTitle  ///< The short title, else the title; nothing for a value that is none of those to choose from.
};

/// Everything that follows from a row's type alone.
struct CellTraits {
  PSCellType type = kNoCellType;
  NSString *name = nil;  ///< In property lists, under "cell".
  NSString *cellClass = @"PSTableCell";
  Tap tap = Tap::kNothing;
  ShownValue shows = ShownValue::kNone;
  CGFloat height = UITableViewAutomaticDimension;  ///< In points, where the specifier has none.
  bool needsPurpose = false;         ///< Drawn disabled when it stores nothing, does nothing and opens nothing.
  bool wraps = false;                ///< The title takes as many lines as it needs.
  bool hidesText = false;            ///< What is typed is a secret.
  bool storesWhenConfirmed = false;  ///< A confirmation stores the control's value; others send the row's action.
};

/// Of what is no type: those of a plain row, without a name. Lives as long as the process.
const CellTraits &traitsOf(PSCellType type);

/// The type of a name such as "PSSwitchCell"; `kNoCellType` for nil and for any other text.
PSCellType cellTypeNamed(NSString *name);

/// The framework's class for the type.
Class classOfCellType(PSCellType type);

}  // namespace sim
