// The simulator's own view of a row's cell, for the page and for the host. Bundles never include this.
#pragma once

#import <Preferences/PSTableCell.h>

#import <objcxx/Retained.h>

struct PSTableCellState {
  objcxx::Retained<PSSpecifier> specifier;
  PSCellType type = static_cast<PSCellType>(-1);
  id cellTarget = nil;  // Not owned.
  SEL cellAction = NULL;
  objcxx::Retained<NSObject> value;     // As shown.
  objcxx::Retained<NSObject> rawValue;  // As the getter gave it.
  objcxx::Retained<NSString> title;
  bool isEnabled = true;
  bool hidesTitle = false;
};

/// For the files that implement the class.
@interface PSTableCell (SimState)
- (PSTableCellState &)sim_cellState;
@end

@interface PSTableCell (Sim)
/// Takes the specifier and refreshes, as the page does for every display.
- (void)sim_showSpecifier:(PSSpecifier *)specifier;
/// The value as the getter gave it at the last refresh; nil for rows that show none.
- (id)sim_rawValue;
/// The text field or text view; nil when the row has none.
- (UIResponder *)sim_editor;
/// Sends the value to `cellTarget`; a row without a setter sends nothing, a target that does not answer is logged.
- (void)sim_sendValue:(id)value;
/// For subclasses: the value to hand to `setValue:`; asks the getter. Logged and nil when it is of a wrong type.
- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier;
/// For subclasses: whether a refresh asks the getter at all.
- (BOOL)sim_showsValue;
/// For subclasses: remembers what the getter gave.
- (void)sim_setRawValue:(id)value;
@end
