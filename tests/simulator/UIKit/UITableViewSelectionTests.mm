#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::tableShowing;
using testing_support::takeEvents;

/// Notes every question and message about selection.
@interface SelectionSource : TableSource {
 @public
  BOOL refusesHighlight;
  BOOL refusesSelection;
  BOOL refusesDeselection;
  BOOL reloads;
  objcxx::Retained<NSIndexPath> insteadOf;
}
@end

@implementation SelectionSource
- (BOOL)tableView:(UITableView *)tableView shouldHighlightRowAtIndexPath:(NSIndexPath *)path {
  [self note:"shouldHighlight" at:path];
  return !refusesHighlight;
}
- (void)tableView:(UITableView *)tableView didHighlightRowAtIndexPath:(NSIndexPath *)path {
  [self note:[[tableView cellForRowAtIndexPath:path] isHighlighted] ? "highlighted" : "not highlighted" at:path];
}
- (void)tableView:(UITableView *)tableView didUnhighlightRowAtIndexPath:(NSIndexPath *)path {
  [self note:[[tableView cellForRowAtIndexPath:path] isHighlighted] ? "still highlighted" : "unhighlighted" at:path];
}
- (NSIndexPath *)tableView:(UITableView *)tableView willSelectRowAtIndexPath:(NSIndexPath *)path {
  [self note:"willSelect" at:path];
  if (refusesSelection) return nil;
  return insteadOf ? insteadOf.get() : path;
}
- (NSIndexPath *)tableView:(UITableView *)tableView willDeselectRowAtIndexPath:(NSIndexPath *)path {
  [self note:"willDeselect" at:path];
  return refusesDeselection ? nil : path;
}
- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)path {
  [self note:"didSelect" at:path];
  if (!reloads) return;
  [[self section:[path section]] removeAllObjects];
  [tableView reloadData];
}
- (void)tableView:(UITableView *)tableView didDeselectRowAtIndexPath:(NSIndexPath *)path {
  [self note:"didDeselect" at:path];
}
- (void)tableView:(UITableView *)tableView accessoryButtonTappedForRowWithIndexPath:(NSIndexPath *)path {
  [self note:"accessory" at:path];
}
@end

namespace {

class UITableViewSelectionTest : public ObjCTest {
 protected:
  std::string tap(NSInteger row) {
    accepted_ = [table() sim_tapRowAtIndexPath:at(0, row)];
    const std::string all = takeEvents(rows_.get());
    const std::string touch = "shouldHighlight 0." + std::to_string(row) + ", highlighted 0." + std::to_string(row) +
                              ", unhighlighted 0." + std::to_string(row);
    return all.starts_with(touch + ", ") ? all.substr(touch.size() + 2) : all;
  }
  UITableView *table() { return table_.get(); }

  BOOL accepted_ = NO;
  objcxx::Retained<SelectionSource> rows_ = adopt((SelectionSource *)[[SelectionSource alloc] initWithCounts:{20}]);
  objcxx::Retained<UITableView> table_ = tableShowing(rows_.get(), 220);
};

}  // namespace

TEST_F(UITableViewSelectionTest, ATapSelects) {
  EXPECT_EQ(tap(1), "willSelect 0.1, didSelect 0.1");
  EXPECT_TRUE(accepted_);
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], at(0, 1));
  EXPECT_TRUE([[table() cellForRowAtIndexPath:at(0, 1)] isSelected]);
}

TEST_F(UITableViewSelectionTest, AnotherTapDeselectsTheFormerRow) {
  tap(1);
  EXPECT_EQ(tap(2), "willSelect 0.2, willDeselect 0.1, didDeselect 0.1, didSelect 0.2");
  EXPECT_OBJC_EQ([table() indexPathsForSelectedRows], @[ at(0, 2) ]);
  EXPECT_FALSE([[table() cellForRowAtIndexPath:at(0, 1)] isSelected]);
  EXPECT_EQ(tap(2), "willSelect 0.2, didSelect 0.2");
}

TEST_F(UITableViewSelectionTest, ATapReachesRowsOutsideTheBounds) {
  EXPECT_EQ(tap(15), "willSelect 0.15, didSelect 0.15");
  EXPECT_NE([table() cellForRowAtIndexPath:at(0, 15)], nil);
}

TEST_F(UITableViewSelectionTest, TheDelegateMayRefuse) {
  rows_.get()->refusesSelection = YES;
  EXPECT_EQ(tap(1), "willSelect 0.1");
  EXPECT_FALSE(accepted_);
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
  rows_.get()->refusesHighlight = YES;
  EXPECT_EQ(tap(1), "shouldHighlight 0.1");
  EXPECT_FALSE(accepted_);
}

TEST_F(UITableViewSelectionTest, ATapShowsUnlessNothingComesOfIt) {
  const auto shows = [](UITableView *table) {
    return bool([table sim_tapShowsAtIndexPath:at(0, 0) cell:[table cellForRowAtIndexPath:at(0, 0)]]);
  };
  EXPECT_TRUE(shows(table_.get()));
  [[table_.get() cellForRowAtIndexPath:at(0, 0)] setSelectionStyle:UITableViewCellSelectionStyleNone];
  EXPECT_TRUE(shows(table_.get())) << "the delegate still acts on it";
  rows_.get()->refusesHighlight = YES;
  EXPECT_FALSE(shows(table_.get()));
  rows_.get()->refusesHighlight = NO;
  [table_.get() setAllowsSelection:NO];
  EXPECT_FALSE(shows(table_.get()));

  const auto silent = adopt([[TableSource alloc] initWithCounts:{1}]);
  const auto table = tableShowing(silent.get());
  EXPECT_TRUE(shows(table.get())) << "the row lights up";
  [[table.get() cellForRowAtIndexPath:at(0, 0)] setSelectionStyle:UITableViewCellSelectionStyleNone];
  EXPECT_FALSE(shows(table.get()));
}

TEST_F(UITableViewSelectionTest, TheDelegateMaySelectAnotherRow) {
  rows_.get()->insteadOf = objcxx::share(at(0, 3));
  EXPECT_EQ(tap(1), "willSelect 0.1, didSelect 0.3");
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], at(0, 3));
}

TEST_F(UITableViewSelectionTest, TheDelegateMayReload) {
  rows_.get()->reloads = YES;
  EXPECT_EQ(tap(1), "willSelect 0.1, didSelect 0.1");
  EXPECT_EQ([table() numberOfRowsInSection:0], 0);
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
}

TEST_F(UITableViewSelectionTest, SeveralRowsToggle) {
  [table() setAllowsMultipleSelection:YES];
  tap(1);
  EXPECT_EQ(tap(2), "willSelect 0.2, didSelect 0.2");
  EXPECT_OBJC_EQ([table() indexPathsForSelectedRows], (@[ at(0, 1), at(0, 2) ]));
  EXPECT_EQ(tap(1), "willDeselect 0.1, didDeselect 0.1");
  EXPECT_TRUE(accepted_);
  rows_.get()->refusesDeselection = YES;
  EXPECT_EQ(tap(2), "willDeselect 0.2");
  EXPECT_FALSE(accepted_);
  EXPECT_OBJC_EQ([table() indexPathsForSelectedRows], @[ at(0, 2) ]);
}

TEST_F(UITableViewSelectionTest, WithoutSelectionTapsDoNothing) {
  EXPECT_TRUE([table() allowsSelection]);
  [table() setAllowsSelection:NO];
  EXPECT_EQ(tap(1), "");
  EXPECT_FALSE(accepted_);
}

TEST_F(UITableViewSelectionTest, EditingRefusesTapsUnlessTheyAreAllowed) {
  [table() setEditing:YES animated:NO];
  EXPECT_FALSE([table() sim_allowsSelectionNow]);
  EXPECT_EQ(tap(1), "");
  [table() setAllowsSelectionDuringEditing:YES];
  EXPECT_EQ(tap(1), "willSelect 0.1, didSelect 0.1");
  [table() setAllowsSelection:NO];
  EXPECT_EQ(tap(1), "willSelect 0.1, didSelect 0.1");
  [table() setAllowsSelectionDuringEditing:NO];
  [table() setAllowsMultipleSelectionDuringEditing:YES];
  EXPECT_EQ(tap(2), "willSelect 0.2, didSelect 0.2");
  EXPECT_EQ([[table() indexPathsForSelectedRows] count], 2u);
}

TEST_F(UITableViewSelectionTest, CellsThatTakeNoTouchesRefuse) {
  [[table() cellForRowAtIndexPath:at(0, 1)] setUserInteractionEnabled:NO];
  EXPECT_EQ(tap(1), "");
  EXPECT_FALSE(accepted_);
  [table() setHidden:YES];
  EXPECT_EQ(tap(2), "");
}

TEST_F(UITableViewSelectionTest, CodeSelectsWithoutTellingTheDelegate) {
  [table() selectRowAtIndexPath:at(0, 1) animated:NO scrollPosition:UITableViewScrollPositionNone];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], at(0, 1));
  EXPECT_TRUE([[table() cellForRowAtIndexPath:at(0, 1)] isSelected]);
  [table() selectRowAtIndexPath:at(0, 12) animated:NO scrollPosition:UITableViewScrollPositionTop];
  EXPECT_OBJC_EQ([table() indexPathsForSelectedRows], @[ at(0, 12) ]);
  EXPECT_EQ([table() contentOffset].y, 12 * 44);
  [table() deselectRowAtIndexPath:at(0, 12) animated:YES];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
  [table() selectRowAtIndexPath:at(0, 99) animated:NO scrollPosition:UITableViewScrollPositionNone];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
  [table() selectRowAtIndexPath:at(0, 2) animated:NO scrollPosition:UITableViewScrollPositionNone];
  [table() selectRowAtIndexPath:nil animated:NO scrollPosition:UITableViewScrollPositionNone];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
  EXPECT_EQ(takeEvents(rows_.get()), "");
}

TEST_F(UITableViewSelectionTest, ASelectedRowIsStillSelectedAfterScrolling) {
  tap(1);
  [table() setContentOffset:CGPointMake(0, 440)];
  [table() layoutIfNeeded];
  for (UITableViewCell *cell in [table() visibleCells]) EXPECT_FALSE([cell isSelected]);
  [table() setContentOffset:CGPointZero];
  [table() layoutIfNeeded];
  EXPECT_TRUE([[table() cellForRowAtIndexPath:at(0, 1)] isSelected]);
}

TEST_F(UITableViewSelectionTest, ReloadDataForgetsTheSelection) {
  tap(1);
  [table() reloadData];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
  [table() layoutIfNeeded];
  for (UITableViewCell *cell in [table() visibleCells]) EXPECT_FALSE([cell isSelected]);
}

TEST_F(UITableViewSelectionTest, AccessoryButtonsTellTheDelegate) {
  UITableViewCell *cell = [table() cellForRowAtIndexPath:at(0, 1)];
  EXPECT_FALSE([table() sim_tapAccessoryAtIndexPath:at(0, 1)]);
  [cell setAccessoryType:UITableViewCellAccessoryDisclosureIndicator];
  EXPECT_FALSE([table() sim_tapAccessoryAtIndexPath:at(0, 1)]);
  [cell setAccessoryType:UITableViewCellAccessoryDetailButton];
  EXPECT_TRUE([table() sim_tapAccessoryAtIndexPath:at(0, 1)]);
  EXPECT_EQ(takeEvents(rows_.get()), "accessory 0.1");
  const auto view = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 20, 20)]);
  [cell setAccessoryView:view.get()];
  EXPECT_FALSE([table() sim_tapAccessoryAtIndexPath:at(0, 1)]);
}
