// A page that is a table view.
#pragma once

#import <UIKit/UITableView.h>
#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(TableViewControllerState);

/// Data source and delegate of its table view, which it reloads when it first appears. Main thread.
@interface UITableViewController : UIViewController <UITableViewDataSource, UITableViewDelegate> {
 @private
  SIM_STATE(TableViewControllerState, _tableViewControllerState);
}
/// Designated. -init gives the plain style.
- (instancetype)initWithStyle:(UITableViewStyle)style;
/// The view. Setting it sets the view.
@property(nonatomic, retain) UITableView *tableView;
/// YES at first: rows are deselected when the page appears.
@property(nonatomic) BOOL clearsSelectionOnViewWillAppear;
@end
