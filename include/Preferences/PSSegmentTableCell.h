#pragma once

#import <Preferences/PSControlTableCell.h>

/// One of the specifier's values as a segmented control; the title is not shown. An unknown value selects the first.
@interface PSSegmentTableCell : PSControlTableCell
@end
