// Changes of a page's rows, and what its table makes of them.
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

/// Reading the row "first" asks for a reload of the row "second".
@interface FollowingPage : TestPage {
 @public
  int _reads;
}
@end
@implementation FollowingPage
- (id)readPreferenceValue:(PSSpecifier *)specifier {
  ++_reads;
  if ([[specifier identifier] isEqualToString:@"first"]) [self reloadSpecifierID:@"second"];
  if ([[specifier identifier] isEqualToString:@"second"]) return [_store objectForKey:@"first"];
  return [super readPreferenceValue:specifier];
}
@end

/// Raises while it is made, or when it is to show its row. Is not reloaded in place.
@interface FragileCell : PSTableCell
@end
@implementation FragileCell
static bool gRaisesInInit = false;
static bool gRaisesInRefresh = false;
static int gRefreshes = 0;
- (BOOL)canReload {
  return NO;
}
- (id)initWithStyle:(UITableViewCellStyle)style
    reuseIdentifier:(NSString *)identifier
          specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  if (gRaisesInInit) {
    [self release];
    [NSException raise:NSGenericException format:@"a fragile cell"];
  }
  return self;
}
- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  if (gRaisesInRefresh) [NSException raise:NSGenericException format:@"a fragile cell"];
  ++gRefreshes;
}
@end

/// Is reloaded in place, and counts how often.
@interface PatientCell : PSTableCell
@end
@implementation PatientCell
static int gReloads = 0;
- (BOOL)canReload {
  return YES;
}
- (void)reloadWithSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated {
  [super reloadWithSpecifier:specifier animated:animated];
  gReloads += animated ? 10 : 1;
}
@end

@interface OwnCell : PSTableCell
@end
@implementation OwnCell
@end

namespace {

PSSpecifier *rowNamed(NSString *name) {
  PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:name
                                                    target:nil
                                                       set:NULL
                                                       get:NULL
                                                    detail:Nil
                                                      cell:PSLinkCell
                                                      edit:Nil];
  [row setIdentifier:name];
  return row;
}

class PSListUpdatesTest : public PreferencesTest {
 protected:
  /// [One] A B [Two] C, on screen.
  TestPage *page() {
    return showPage(@[
      @{@"cell" : @"PSGroupCell", @"label" : @"One"}, @{@"cell" : @"PSLinkCell", @"label" : @"A"},
      @{@"cell" : @"PSLinkCell", @"label" : @"B"}, @{@"cell" : @"PSGroupCell", @"label" : @"Two"},
      @{@"cell" : @"PSLinkCell", @"label" : @"C"}
    ]);
  }
  /// What the table shows: the titles of its rows, sections parted by "|".
  static std::string shown(PSListController *page) {
    UITableView *table = [page table];
    [table sim_prepareForDescription];
    std::string result;
    for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
      if (section > 0) result += "|";
      __block std::string titles;
      [table sim_describeRows:NSMakeRange(0, NSIntegerMax)
                    inSection:section
                   usingBlock:^(NSIndexPath *, UITableViewCell *cell) {
                     titles += text([[cell textLabel] text]);
                   }];
      result += titles;
    }
    return result;
  }
};

TEST_F(PSListUpdatesTest, Lookup) {
  TestPage *list = page();
  EXPECT_EQ([list numberOfGroups], 2);
  EXPECT_EQ([list rowsForGroup:0], 2);
  EXPECT_EQ([list indexOfGroup:1], 3);
  EXPECT_EQ([list indexForRow:0 inGroup:1], 4);
  EXPECT_OBJC_EQ([list indexPathForIndex:4], [NSIndexPath indexPathForRow:0 inSection:1]);
  EXPECT_OBJC_EQ([list indexPathForIndex:3], nil);
  EXPECT_OBJC_EQ([[list specifierAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]] name], @"B");
  EXPECT_OBJC_EQ([[list specifiersInGroup:0] valueForKey:@"name"], (@[ @"One", @"A", @"B" ]));
  EXPECT_OBJC_EQ([list specifiersInGroup:7], @[]);
  NSInteger group = -1, row = -1;
  EXPECT_TRUE([list getGroup:&group row:&row ofSpecifierID:@"C"]);
  EXPECT_EQ(group, 1);
  EXPECT_EQ(row, 0);
  EXPECT_TRUE([list getGroup:&group row:&row ofSpecifierAtIndex:0]);
  EXPECT_EQ(row, NSNotFound);
  EXPECT_FALSE([list getGroup:&group row:&row ofSpecifierID:@"none"]);
  EXPECT_EQ([list indexOfSpecifier:nil], NSNotFound);
  EXPECT_OBJC_EQ([list specifierForID:nil], nil);
  EXPECT_OBJC_EQ([list specifierAtIndex:-1], nil);
  EXPECT_OBJC_EQ([list specifierAtIndex:5], nil);
}

TEST_F(PSListUpdatesTest, InsertsAndRemovesRows) {
  TestPage *list = page();
  EXPECT_EQ(shown(list), "AB|C");
  [list insertSpecifier:rowNamed(@"x") atIndex:1 animated:YES];
  [list insertSpecifier:rowNamed(@"y") afterSpecifierID:@"B" animated:YES];
  [list insertSpecifier:rowNamed(@"z") afterSpecifier:[list specifierForID:@"C"]];
  EXPECT_EQ(rows(list), "[One] x A B y [Two] C z");
  EXPECT_EQ(shown(list), "xABy|Cz");
  [list removeSpecifierID:@"A" animated:YES];
  [list removeSpecifier:[list specifierForID:@"z"]];
  [list removeSpecifierAtIndex:1];
  EXPECT_EQ(rows(list), "[One] B y [Two] C");
  EXPECT_EQ(shown(list), "By|C");
  EXPECT_EQ([list indexOfSpecifierID:@"C"], 4);
  EXPECT_OBJC_EQ([list specifierForID:@"A"], nil);
}

TEST_F(PSListUpdatesTest, AddsGroupsAndRowsAtTheEnd) {
  TestPage *list = page();
  [list addSpecifier:rowNamed(@"D")];
  [list addSpecifiersFromArray:@[ [PSSpecifier groupSpecifierWithName:@"Three"], rowNamed(@"E") ] animated:YES];
  EXPECT_EQ(shown(list), "AB|CD|E");
  [list insertSpecifier:rowNamed(@"b2") atEndOfGroup:0];
  EXPECT_EQ(shown(list), "ABb2|CD|E");
  [list removeLastSpecifier];
  EXPECT_EQ(shown(list), "ABb2|CD|");
  [list removeLastSpecifierAnimated:YES];
  EXPECT_EQ(shown(list), "ABb2|CD");
}

TEST_F(PSListUpdatesTest, RemovingAGroupJoinsItsRowsToTheOneBefore) {
  TestPage *list = page();
  [list removeSpecifierAtIndex:3];
  EXPECT_EQ(shown(list), "ABC");
  [list removeSpecifierAtIndex:0];
  EXPECT_EQ(rows(list), "[] A B C");
}

TEST_F(PSListUpdatesTest, ContiguousRowsOnly) {
  TestPage *list = page();
  PSSpecifier *a = [list specifierForID:@"A"];
  PSSpecifier *b = [list specifierForID:@"B"];
  PSSpecifier *c = [list specifierForID:@"C"];
  [list removeContiguousSpecifiers:@[ a, c ]];
  EXPECT_EQ(logged("not removed"), 1);
  [list removeContiguousSpecifiers:@[ b, a ]];
  EXPECT_EQ(rows(list), "[One] A B [Two] C");
  [list replaceContiguousSpecifiers:@[ a, b ] withSpecifiers:@[ rowNamed(@"X"), rowNamed(@"Y"), rowNamed(@"Z") ]];
  EXPECT_EQ(shown(list), "XYZ|C");
  [list insertContiguousSpecifiers:@[ rowNamed(@"1"), rowNamed(@"2") ] afterSpecifierID:@"X"];
  EXPECT_EQ(shown(list), "X12YZ|C");
  [list removeContiguousSpecifiers:@[ [list specifierForID:@"1"], [list specifierForID:@"2"] ] animated:YES];
  EXPECT_EQ(shown(list), "XYZ|C");
}

TEST_F(PSListUpdatesTest, ChangesInABatchReachTheTableAtItsEnd) {
  TestPage *list = page();
  [list beginUpdates];
  [list removeSpecifierID:@"A"];
  [list insertSpecifier:rowNamed(@"N") atIndex:1];
  [list addSpecifier:rowNamed(@"D")];
  EXPECT_EQ([[list table] numberOfRowsInSection:0], 2);
  [list endUpdates];
  EXPECT_EQ(shown(list), "NB|CD");
}

TEST_F(PSListUpdatesTest, WhatIsNotOnThePageIsIgnored) {
  TestPage *list = page();
  [list removeSpecifier:rowNamed(@"stranger")];
  [list removeSpecifierID:@"stranger"];
  [list reloadSpecifierID:@"stranger"];
  [list reloadSpecifier:rowNamed(@"stranger")];
  [list reloadSpecifier:nil];
  [list insertSpecifier:rowNamed(@"N") afterSpecifierID:@"stranger"];
  EXPECT_EQ(rows(list), "[One] A B [Two] C");
}

TEST_F(PSListUpdatesTest, ImpossibleChangesRaiseAndLeaveThePageWhole) {
  TestPage *list = page();
  EXPECT_EQ(raisedBy([&] { [list insertSpecifier:rowNamed(@"N") atIndex:9]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [list removeSpecifierAtIndex:5]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [list insertSpecifier:rowNamed(@"N") atEndOfGroup:2]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [list addSpecifier:(PSSpecifier *)@"text"]; }), "NSInvalidArgumentException");
  EXPECT_EQ(shown(list), "AB|C");
}

TEST_F(PSListUpdatesTest, ARemovedRowCanBePutBack) {
  TestPage *list = page();
  PSSpecifier *row = [[[list specifierForID:@"B"] retain] autorelease];
  EXPECT_TRUE(cell(list, @"B") != nil);
  [list removeSpecifier:row animated:YES];
  EXPECT_OBJC_EQ([row propertyForKey:PSTableCellKey], nil);
  [list insertSpecifier:row atIndex:1 animated:YES];
  EXPECT_EQ(shown(list), "BA|C");
}

TEST_F(PSListUpdatesTest, ReloadingARowAsksItsGetterAgain) {
  TestPage *list = showPage(@[
    @{@"cell" : @"PSTitleValueCell", @"id" : @"row", @"label" : @"Row", @"key" : @"k"},
    @{@"cell" : @"PSTitleValueCell", @"id" : @"own", @"label" : @"Own", @"key" : @"k", @"cellClass" : @"OwnCell"}
  ]);
  PSTableCell *live = cell(list, @"row");
  [list->_store setObject:@"new" forKey:@"k"];
  EXPECT_OBJC_EQ([[live detailTextLabel] text], nil);
  [list reloadSpecifierID:@"row"];
  EXPECT_OBJC_EQ([[live detailTextLabel] text], @"new");
  EXPECT_EQ(cell(list, @"row"), live);
  [list reloadSpecifierID:@"own" animated:YES];
  EXPECT_OBJC_EQ([[cell(list, @"own") detailTextLabel] text], @"new");
}

TEST_F(PSListUpdatesTest, ACellThatCanReloadIsToldOfIt) {
  TestPage *list = showPage(@[
    @{@"cell" : @"PSTitleValueCell", @"id" : @"row", @"label" : @"Row", @"key" : @"k", @"cellClass" : @"PatientCell"}
  ]);
  PSTableCell *live = cell(list, @"row");
  [list->_store setObject:@"new" forKey:@"k"];
  gReloads = 0;
  [list reloadSpecifierID:@"row" animated:YES];
  EXPECT_EQ(gReloads, 10);
  EXPECT_EQ(cell(list, @"row"), live);
  EXPECT_OBJC_EQ([[live detailTextLabel] text], @"new");
}

TEST_F(PSListUpdatesTest, ReloadingAGroupShowsItsNewFooter) {
  TestPage *list = page();
  PSSpecifier *group = [list specifierAtIndex:0];
  [group setProperty:@"A footer" forKey:PSFooterTextGroupKey];
  [list reloadSpecifier:group animated:YES];
  [[list table] sim_prepareForDescription];
  EXPECT_OBJC_EQ([[list table] sim_titleForFooterInSection:0], @"A footer");
}

TEST_F(PSListUpdatesTest, AGetterMayAskForReloadsOfOtherRows) {
  for (NSString *cellClass in @[ @"PSTableCell", @"OwnCell" ]) {
    writeList(@[
      @{@"cell" : @"PSEditTextCell", @"id" : @"first", @"label" : @"First", @"key" : @"first", @"default" : @"old"},
      @{@"cell" : @"PSTitleValueCell", @"id" : @"second", @"label" : @"Second", @"cellClass" : cellClass}
    ]);
    FollowingPage *list = [[[FollowingPage alloc] init] autorelease];
    list->_testBundle = [bundle() retain];
    show(list);
    EXPECT_TRUE(cell(list, @"first") != nil);
    [list->_store setObject:@"new" forKey:@"first"];
    list->_reads = 0;
    [list reloadSpecifierID:@"first"];
    SIMDrainMainQueue();
    EXPECT_OBJC_EQ([[cell(list, @"second") detailTextLabel] text], @"new") << [cellClass UTF8String];
    EXPECT_LT(list->_reads, 10) << [cellClass UTF8String];
  }
}

TEST_F(PSListUpdatesTest, TheLiveCellIsKnownWhileTheRowShows) {
  NSMutableArray *items = [NSMutableArray array];
  for (int number = 0; number < 60; ++number) {
    [items addObject:@{@"cell" : @"PSTitleValueCell", @"label" : [NSString stringWithFormat:@"Row %d", number]}];
  }
  TestPage *list = showPage(items);
  [[list table] sim_prepareForDescription];
  PSTableCell *first = [list cachedCellForSpecifierID:@"Row 0"];
  EXPECT_TRUE(first != nil);
  EXPECT_EQ([[list specifierForID:@"Row 0"] propertyForKey:PSTableCellKey], first);
  EXPECT_EQ([list cachedCellForSpecifierID:@"Row 59"], nil);
  EXPECT_OBJC_EQ([[cell(list, @"Row 59") textLabel] text], @"Row 59");
  EXPECT_EQ([list cachedCellForSpecifierID:@"Row 0"], nil);
  EXPECT_OBJC_EQ([[list specifierForID:@"Row 0"] propertyForKey:PSTableCellKey], nil);
}

TEST_F(PSListUpdatesTest, DescribingALongPageManyTimesMakesNoMoreCells) {
  NSMutableArray *items = [NSMutableArray array];
  for (int number = 0; number < 60; ++number) {
    [items addObject:@{
      @"cell" : @"PSSwitchCell",
      @"label" : [NSString stringWithFormat:@"Row %d", number],
      @"key" : @"k",
      @"cellClass" : number % 2 ? @"PSSwitchTableCell" : @"OwnCell"
    }];
  }
  TestPage *list = showPage(items);
  shown(list);
  NSMutableSet *cells = [NSMutableSet set];
  const auto collect = [&] {
    [[list table] sim_describeRows:NSMakeRange(0, NSIntegerMax)
                         inSection:0
                        usingBlock:^(NSIndexPath *, UITableViewCell *cell) {
                          [cells addObject:[NSValue valueWithPointer:cell]];
                        }];
  };
  collect();
  const NSUInteger first = [cells count];
  for (int round = 0; round < 5; ++round) collect();
  EXPECT_EQ([cells count], first);
}

TEST_F(PSListUpdatesTest, APageWhoseCellRaisesReloadsItsRowsAtOnceAfterwards) {
  for (bool *raises : {&gRaisesInInit, &gRaisesInRefresh}) {
    *raises = true;
    writeList(@[
      @{@"cell" : @"PSGroupCell", @"id" : @"group"},
      @{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"id" : @"row", @"cellClass" : @"FragileCell"}
    ]);
    TestPage *page = makePage();
    EXPECT_EQ(raisedBy([&] {
                show(page);
                cell(page, @"row");
              }),
              "NSGenericException");
    EXPECT_OBJC_EQ([page cachedCellForSpecifierID:@"row"], nil) << "it never came into the table";
    *raises = false;
    ASSERT_NE(cell(page, @"row"), nil);
    for (NSString *identifier in @[ @"row", @"group" ]) {
      const int before = gRefreshes;
      [page reloadSpecifierID:identifier];
      cell(page, @"row");
      EXPECT_GT(gRefreshes, before) << [identifier UTF8String];
    }
  }
}

}  // namespace
