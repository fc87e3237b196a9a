#pragma once

#import <Preferences/PSControlTableCell.h>

/// A float as a slider over the whole row; the title is not shown. Range from "min" and "max".
@interface PSSliderTableCell : PSControlTableCell
@end
