#import <UIKit/UITableViewController.h>

#import <UIKit/UIScreen.h>
#include <objcxx/Retained.h>

namespace sim {
struct TableViewControllerState {
  UITableViewStyle style = UITableViewStylePlain;
  BOOL clearsSelection = YES;
  BOOL appearedBefore = NO;
};
}  // namespace sim

@implementation UITableViewController

- (instancetype)initWithStyle:(UITableViewStyle)style {
  if (!(self = [super initWithNibName:nil bundle:nil])) return nil;

  _tableViewControllerState = std::make_unique<sim::TableViewControllerState>();
  _tableViewControllerState->style = style;
  return self;
}

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  return [self initWithStyle:UITableViewStylePlain];
}

- (instancetype)init {
  return [self initWithStyle:UITableViewStylePlain];
}

- (void)dealloc {
  // The table view may live on; it does not own its data source and delegate.
  UIView *view = [self viewIfLoaded];
  if ([view isKindOfClass:[UITableView class]]) {
    UITableView *table = (UITableView *)view;
    if ((id)[table dataSource] == self) [table setDataSource:nil];
    if ((id)[table delegate] == self) [table setDelegate:nil];
  }
  [super dealloc];
}

- (void)loadView {
  const auto table = objcxx::adopt([[UITableView alloc] initWithFrame:[[UIScreen mainScreen] bounds]
                                                                style:_tableViewControllerState->style]);
  [table.get() setDataSource:self];
  [table.get() setDelegate:self];
  [self setView:table.get()];
}

- (UITableView *)tableView {
  UIView *view = [self view];
  return [view isKindOfClass:[UITableView class]] ? (UITableView *)view : nil;
}

- (void)setTableView:(UITableView *)tableView {
  [self setView:tableView];
}

- (BOOL)clearsSelectionOnViewWillAppear {
  return _tableViewControllerState->clearsSelection;
}

- (void)setClearsSelectionOnViewWillAppear:(BOOL)clears {
  _tableViewControllerState->clearsSelection = clears;
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  UITableView *table = [self tableView];
  if (!_tableViewControllerState->appearedBefore) {
    _tableViewControllerState->appearedBefore = YES;
    [table reloadData];
  } else if (_tableViewControllerState->clearsSelection) {
    for (NSIndexPath *path in [table indexPathsForSelectedRows]) [table deselectRowAtIndexPath:path animated:animated];
  }
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  [super setEditing:editing animated:animated];
  [[self tableView] setEditing:editing animated:animated];
}

#pragma mark - UITableViewDataSource

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return 0;
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  return nil;
}

@end
