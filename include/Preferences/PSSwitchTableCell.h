#pragma once

#import <Preferences/PSControlTableCell.h>

/// A BOOL as a switch at the right.
@interface PSSwitchTableCell : PSControlTableCell
@end
