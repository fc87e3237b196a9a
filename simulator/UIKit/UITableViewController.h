// A page that is a table view.
#pragma once

#import <UIKit/UITableView.h>
#import <UIKit/UIViewController.h>

namespace sim {
struct TableViewControllerState;
}

/// Data source and delegate of its table view, which it reloads when it first appears. Main thread.
@interface UITableViewController : UIViewController <UITableViewDataSource, UITableViewDelegate> {
 @private
  std::unique_ptr<sim::TableViewControllerState> _tableViewControllerState;
}
/// Designated. -init gives the plain style.
- (instancetype)initWithStyle:(UITableViewStyle)style;
/// The view. Setting it sets the view.
@property(nonatomic, retain) UITableView *tableView;
/// YES at first: rows are deselected when the page appears.
@property(nonatomic) BOOL clearsSelectionOnViewWillAppear;
@end
