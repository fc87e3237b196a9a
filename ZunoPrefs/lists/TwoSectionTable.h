// What the table of a list editor shows: the sections' titles, the placeholder of an empty section, the cells.
#pragma once

#import <UIKit/UIKit.h>

namespace zuno {

/// Puts the table into editing mode, with rows that can be tapped all the same.
void prepareForEditing(UITableView *table);

NSString *sectionTitle(NSInteger section);

/// The list that `section` shows.
NSMutableArray *sectionList(NSInteger section, NSMutableArray *enabled, NSMutableArray *disabled);

/// Whether the rows of `section` can be edited: all can but the placeholder of an empty enabled or disabled section.
bool canEditRows(NSInteger section, NSArray *enabled, NSArray *disabled);

/// Rows of a section that shows `list`: one, the placeholder, when it is empty.
NSInteger rowCount(NSArray *list);

/// A cell for any row: dequeued, or made with the subtitle style.
UITableViewCell *listCell(UITableView *table);

/// Makes `cell` the placeholder row of an empty section.
void showPlaceholder(UITableViewCell *cell, NSString *text);

/// Gives the cell's image the soft grey shadow of an app icon.
void styleIcon(UITableViewCell *cell);

}  // namespace zuno
