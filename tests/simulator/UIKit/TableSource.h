// A data source and delegate over lists of strings, for the tests of table views.
#pragma once

#import <UIKit/UIKit.h>
#import <UIKit/UITableView+Sim.h>

#include <objcxx/Retained.h>

#include <string>
#include <vector>

/// Has the required methods and the number of sections only; each row is a reused default cell with its string.
@interface TableSource : NSObject <UITableViewDataSource, UITableViewDelegate> {
 @public
  /// Of NSMutableArray of NSString.
  objcxx::Retained<NSMutableArray> sections;
  std::vector<std::string> events;
  int cellsMade;
  int cellsGiven;
}
/// Sections of "a0", "a1" …, "b0" … with these numbers of rows.
- (instancetype)initWithCounts:(std::vector<int>)counts;
- (NSMutableArray *)section:(NSInteger)section;
- (void)note:(const char *)event at:(NSIndexPath *)path;
@end

namespace testing_support {

inline NSIndexPath *at(NSInteger section, NSInteger row) { return [NSIndexPath indexPathForRow:row inSection:section]; }

/// A table view of 320 × `height` points with rows of 44 points that shows `source`, laid out.
objcxx::Retained<UITableView> tableShowing(TableSource *source, CGFloat height = 440,
                                           UITableViewStyle style = UITableViewStylePlain);

/// The texts of all rows, as a description visits them: "a0 a1 | b0".
std::string describedRows(UITableView *table);
/// The texts of the rows that have live cells.
std::string liveRows(UITableView *table);
std::string takeEvents(TableSource *source);

}  // namespace testing_support
