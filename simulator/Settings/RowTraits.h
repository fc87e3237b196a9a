// What rows are known again by when their table is loaded anew: their specifiers, or else what they show.
#pragma once

#import <UIKit/UIKit.h>
#import <UIKit/UITableView+Sim.h>

namespace sim {

/// What the row at `path` of `table`, which is there, is known by: of a page of specifiers without making its cell.
RowTraits traitsOfRow(UITableView *table, NSIndexPath *path);

/// Tells `table` what is known of the row at `path`, which `cell` shows.
void noteRow(UITableView *table, NSIndexPath *path, UITableViewCell *cell);

/// The same for a row without a cell. Only the rows of a page of specifiers are known without one; what is known of any
/// other stays.
void noteOutline(UITableView *table, NSIndexPath *path);

}  // namespace sim
