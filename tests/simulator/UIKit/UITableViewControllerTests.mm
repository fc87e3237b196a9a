#import "RecordingController.h"
#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::liveRows;
using testing_support::windowShowing;

/// Shows its strings; its -viewDidLoad does not call super's.
@interface ListPage : UITableViewController {
 @public
  objcxx::Retained<NSMutableArray> rows;
  int *deaths;
}
@end

@implementation ListPage
- (void)dealloc {
  if (deaths) ++*deaths;
  [super dealloc];
}
- (void)viewDidLoad {
  [[self tableView] setEditing:YES animated:NO];
  [[self tableView] setAllowsSelectionDuringEditing:YES];
}
- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return [rows.get() count];
}
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [tableView dequeueReusableCellWithIdentifier:@"Cell"];
  if (!cell) {
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle reuseIdentifier:@"Cell"] autorelease];
  }
  [[cell textLabel] setText:[rows.get() objectAtIndex:[indexPath row]]];
  return cell;
}
@end

namespace {

class UITableViewControllerTest : public ObjCTest {
 protected:
  static objcxx::Retained<ListPage> page() {
    auto made = adopt([[ListPage alloc] init]);
    made.get()->rows = objcxx::share([NSMutableArray arrayWithObjects:@"one", @"two", nil]);
    return made;
  }
};

}  // namespace

TEST_F(UITableViewControllerTest, ItsViewIsATableViewOfItsStyle) {
  const auto plain = adopt([[UITableViewController alloc] init]);
  EXPECT_EQ([[plain.get() tableView] style], UITableViewStylePlain);
  EXPECT_EQ([plain.get() view], [plain.get() tableView]);
  const auto grouped = adopt([[UITableViewController alloc] initWithStyle:UITableViewStyleInsetGrouped]);
  UITableView *table = [grouped.get() tableView];
  EXPECT_EQ([table style], UITableViewStyleInsetGrouped);
  EXPECT_EQ((id)[table dataSource], grouped.get());
  EXPECT_EQ((id)[table delegate], grouped.get());
  [table sim_prepareForDescription];
  EXPECT_EQ([table numberOfSections], 1);
  EXPECT_EQ([table numberOfRowsInSection:0], 0);
}

TEST_F(UITableViewControllerTest, ShowsItsRowsWhenItAppears) {
  const auto list = page();
  const auto window = windowShowing(list.get());
  EXPECT_EQ(liveRows([list.get() tableView]), "one two");
  EXPECT_TRUE([[list.get() tableView] isEditing]);
  EXPECT_TRUE([[list.get() tableView] sim_allowsSelectionNow]);
}

TEST_F(UITableViewControllerTest, ReloadsWhenItFirstAppears) {
  const auto list = page();
  [[list.get() tableView] sim_prepareForDescription];
  [list.get()->rows.get() addObject:@"three"];
  const auto window = windowShowing(list.get());
  EXPECT_EQ(liveRows([list.get() tableView]), "one two three");
  [window.get() setHidden:YES];
  [list.get()->rows.get() addObject:@"four"];
  [window.get() setHidden:NO];
  EXPECT_EQ(liveRows([list.get() tableView]), "one two three");
}

TEST_F(UITableViewControllerTest, ClearsTheSelectionWhenItAppearsAgain) {
  const auto list = page();
  const auto window = windowShowing(list.get());
  const auto appearAgain = [&] {
    [[list.get() tableView] sim_tapRowAtIndexPath:at(0, 1)];
    [window.get() setHidden:YES];
    [window.get() setHidden:NO];
    return [[list.get() tableView] indexPathForSelectedRow];
  };
  EXPECT_TRUE([list.get() clearsSelectionOnViewWillAppear]);
  EXPECT_OBJC_EQ(appearAgain(), nil);
  [list.get() setClearsSelectionOnViewWillAppear:NO];
  EXPECT_OBJC_EQ(appearAgain(), at(0, 1));
}

TEST_F(UITableViewControllerTest, EditingIsThatOfTheTableView) {
  const auto list = page();
  [[list.get() tableView] setEditing:NO];
  [list.get() setEditing:YES animated:NO];
  EXPECT_TRUE([[list.get() tableView] isEditing]);
  [list.get() setEditing:NO];
  EXPECT_FALSE([[list.get() tableView] isEditing]);
}

TEST_F(UITableViewControllerTest, ATableViewThatOutlivesItsPageAsksNobody) {
  objcxx::Retained<UITableView> table;
  int deaths = 0;
  {
    const auto list = page();
    list.get()->deaths = &deaths;
    table = objcxx::share([list.get() tableView]);
    [table.get() sim_prepareForDescription];
    drainPool();
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
  EXPECT_OBJC_EQ([table.get() dataSource], nil);
  EXPECT_OBJC_EQ([table.get() delegate], nil);
  [table.get() sim_prepareForDescription];
  EXPECT_EQ([table.get() numberOfSections], 0);
}

TEST_F(UITableViewControllerTest, APoppedListIsDeallocated) {
  int deaths = 0;
  const auto root = adopt([[UIViewController alloc] init]);
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:root.get()]);
  const auto window = windowShowing(stack.get());
  {
    const auto list = page();
    list.get()->deaths = &deaths;
    [stack.get() pushViewController:list.get() animated:YES];
    EXPECT_EQ(liveRows([list.get() tableView]), "one two");
    [[list.get() tableView] sim_tapRowAtIndexPath:at(0, 0)];
    [stack.get() popViewControllerAnimated:YES];
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}
