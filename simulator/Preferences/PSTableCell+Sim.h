// The simulator's own view of a row's cell, for the page and for the host. Bundles never include this.
#pragma once

#import <Preferences/CellTypes.h>
#import <Preferences/PSTableCell.h>

#import <objcxx/Retained.h>

namespace sim {

struct PSTableCellState {
  objcxx::Retained<PSSpecifier> specifier;
  PSCellType type = kNoCellType;
  id cellTarget = nil;  // Not owned.
  SEL cellAction = NULL;
  objcxx::Retained<NSObject> value;     // As shown.
  objcxx::Retained<NSObject> rawValue;  // As the getter gave it.
  objcxx::Retained<NSString> title;
  bool isEnabled = true;
  bool hidesTitle = false;
};

}  // namespace sim

/// For the files that implement the class.
@interface PSTableCell (SimState)
- (sim::PSTableCellState &)sim_cellState;
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
/// For subclasses: what the getter gave when it is nil or of one of the two classes (the second may be nil); otherwise
/// nil, logged once.
- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier ofClass:(Class)first orClass:(Class)second;
/// For subclasses with an editor: makes what was typed the value, and sends it, unless it is what the row shows.
- (void)sim_takeText:(NSString *)text;
@end
