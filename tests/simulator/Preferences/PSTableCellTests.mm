// Rows without controls: titles, values, icons, state, reuse.
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface CountingCell : PSTableCell {
 @public
  int _refreshes;
}
@end
@implementation CountingCell
- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  ++_refreshes;
}
@end

/// Is the target of its own row.
@interface SelfTargetCell : PSTableCell
@end
@implementation SelfTargetCell
- (void)didMoveToSuperview {
  [super didMoveToSuperview];
  if (![self superview]) return;
  [[self specifier] setTarget:self];
  [[self specifier] setButtonAction:@selector(press)];
}
- (void)press {
  [self setTitle:@"pressed"];
}
@end

@interface RaisingPage : TestPage
@end
@implementation RaisingPage
- (id)readPreferenceValue:(PSSpecifier *)specifier {
  if ([[specifier identifier] isEqualToString:@"Bad"]) [NSException raise:NSGenericException format:@"no value today"];
  return [super readPreferenceValue:specifier];
}
@end

namespace {

class PSTableCellTest : public PreferencesTest {
 protected:
  PSTableCell *showRow(NSDictionary *item, id value = nil) {
    writeList(@[ item ]);
    page_ = makePage();
    if (value) [page_->_store setObject:value forKey:@"k"];
    show(page_);
    return cell(page_, [item objectForKey:@"label"]);
  }
  TestPage *page_ = nil;
};

TEST_F(PSTableCellTest, ATitleValueRowShowsTextAndNumbers) {
  NSDictionary *item = @{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"key" : @"k"};
  PSTableCell *row = showRow(item, @"text");
  EXPECT_OBJC_EQ([[row textLabel] text], @"Row");
  EXPECT_OBJC_EQ([[row detailTextLabel] text], @"text");
  EXPECT_OBJC_EQ([row value], @"text");
  EXPECT_EQ([row accessoryType], UITableViewCellAccessoryNone);
  EXPECT_OBJC_EQ([[showRow(item, @42) detailTextLabel] text], @"42");
  EXPECT_OBJC_EQ([row sim_rawValue], @"text");
  EXPECT_OBJC_EQ([[showRow(item) detailTextLabel] text], nil);
}

TEST_F(PSTableCellTest, TitlesStandForValues) {
  NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:@{
    @"cell" : @"PSTitleValueCell",
    @"label" : @"Row",
    @"key" : @"k",
    @"validValues" : @[ @1, @2 ],
    @"validTitles" : @[ @"One", @"Two" ],
    @"shortTitles" : @[ @"1", @"2" ]
  }];
  EXPECT_OBJC_EQ([[showRow(item, @2) detailTextLabel] text], @"Two");
  EXPECT_OBJC_EQ([[showRow(item, @9) detailTextLabel] text], @"9");
  [item setObject:@"PSLinkListCell" forKey:@"cell"];
  PSTableCell *row = showRow(item, @2);
  EXPECT_OBJC_EQ([[row detailTextLabel] text], @"2");
  EXPECT_EQ([row accessoryType], UITableViewCellAccessoryDisclosureIndicator);
  EXPECT_OBJC_EQ([[showRow(item, @9) detailTextLabel] text], nil);
  [item removeObjectForKey:@"shortTitles"];
  EXPECT_OBJC_EQ([[showRow(item, @2) detailTextLabel] text], @"Two");
}

TEST_F(PSTableCellTest, AValueThatIsNoTextIsLoggedOnceAndNotShown) {
  NSDictionary *item = @{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"key" : @"k"};
  for (id value in (@[ @[ @1 ], @{@"a" : @1}, [NSData data], [NSDate date] ])) {
    log.clear();
    PSTableCell *row = showRow(item, value);
    EXPECT_OBJC_EQ([[row detailTextLabel] text], nil);
    [page_ reloadSpecifierID:@"Row"];
    EXPECT_EQ(logged("is not what a PSTitleValueCell shows"), 1);
    EXPECT_OBJC_EQ([page_->_store objectForKey:@"k"], value);
    EXPECT_OBJC_EQ(page_->_calls, @[]);
  }
}

TEST_F(PSTableCellTest, AGetterThatRaisesIsLoggedAndTheRowShows) {
  writeList(@[
    @{@"cell" : @"PSTitleValueCell", @"label" : @"Bad", @"key" : @"k"},
    @{@"cell" : @"PSTitleValueCell", @"label" : @"Good", @"key" : @"k", @"default" : @"fine"}
  ]);
  RaisingPage *page = [[[RaisingPage alloc] init] autorelease];
  page->_testBundle = [bundle() retain];
  show(page);
  EXPECT_OBJC_EQ([[cell(page, @"Bad") textLabel] text], @"Bad");
  EXPECT_OBJC_EQ([[cell(page, @"Bad") detailTextLabel] text], nil);
  EXPECT_OBJC_EQ([[cell(page, @"Good") detailTextLabel] text], @"fine");
  EXPECT_GE(logged("Uncaught exception while asking the getter of "), 1);
}

TEST_F(PSTableCellTest, LinksAndButtonsAskForNoValue) {
  NSDictionary *link = @{@"cell" : @"PSLinkCell", @"label" : @"Row", @"key" : @"k", @"detail" : @"TestPage"};
  PSTableCell *row = showRow(link, @"text");
  EXPECT_OBJC_EQ([[row detailTextLabel] text], nil);
  EXPECT_EQ([row accessoryType], UITableViewCellAccessoryDisclosureIndicator);
  PSTableCell *button = showRow(@{@"cell" : @"PSButtonCell", @"label" : @"Row", @"key" : @"k"}, @"text");
  EXPECT_OBJC_EQ([[button detailTextLabel] text], nil);
  EXPECT_EQ([button accessoryType], UITableViewCellAccessoryNone);
}

TEST_F(PSTableCellTest, ButtonsAreTinted) {
  EXPECT_OBJC_EQ([[showRow(@{@"cell" : @"PSButtonCell", @"label" : @"B"}) textLabel] textColor],
                 [UIColor systemBlueColor]);
  EXPECT_OBJC_EQ([[showRow(
                     @{@"cell" : @"PSButtonCell",
                       @"label" : @"B",
                       @"isDestructive" : @1}) textLabel] textColor],
                 [UIColor systemRedColor]);
  EXPECT_OBJC_EQ([[showRow(
                     @{@"cell" : @"PSButtonCell",
                       @"label" : @"B",
                       @"enabled" : @0}) textLabel] textColor],
                 [UIColor tertiaryLabelColor]);
  EXPECT_OBJC_EQ([[showRow(@{@"cell" : @"PSLinkCell", @"label" : @"B", @"detail" : @"TestPage"}) textLabel] textColor],
                 [UIColor labelColor]);
}

TEST_F(PSTableCellTest, StaticTextWrapsAndAligns) {
  PSTableCell *row = showRow(@{@"cell" : @"PSStaticTextCell", @"label" : @"Text", @"alignment" : @"center"});
  EXPECT_EQ([[row textLabel] numberOfLines], 0);
  EXPECT_EQ([[row textLabel] textAlignment], NSTextAlignmentCenter);
  EXPECT_EQ([row selectionStyle], UITableViewCellSelectionStyleNone);
  EXPECT_EQ([[showRow(
                @{@"cell" : @"PSLinkCell",
                  @"label" : @"T",
                  @"alignment" : @2}) textLabel] textAlignment],
            NSTextAlignmentRight);
}

TEST_F(PSTableCellTest, ARowWithoutAnyPurposeIsDrawnDisabled) {
  const auto enabled = [&](PSCellType type, SEL setter, Class detail) {
    PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:@"R"
                                                      target:nil
                                                         set:setter
                                                         get:NULL
                                                      detail:detail
                                                        cell:type
                                                        edit:Nil];
    PSTableCell *cell = [[[PSTableCell alloc] initWithStyle:UITableViewCellStyleValue1
                                            reuseIdentifier:nil
                                                  specifier:row] autorelease];
    [cell refreshCellContentsWithSpecifier:row];
    return static_cast<bool>([cell cellEnabled]);
  };
  EXPECT_FALSE(enabled(PSLinkCell, NULL, Nil));
  EXPECT_TRUE(enabled(PSLinkCell, NULL, [TestPage class]));
  EXPECT_FALSE(enabled(PSSwitchCell, NULL, Nil));
  EXPECT_TRUE(enabled(PSSwitchCell, @selector(setPreferenceValue:specifier:), Nil));
  EXPECT_TRUE(enabled(PSTitleValueCell, NULL, Nil));
  EXPECT_TRUE(enabled(PSStaticTextCell, NULL, Nil));
}

TEST_F(PSTableCellTest, TheCellIsMadeThenGivenItsRowAndRefreshed) {
  NSDictionary *item =
      @{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"key" : @"k", @"cellClass" : @"CountingCell"};
  CountingCell *row = (CountingCell *)showRow(item, @"text");
  ASSERT_TRUE([row isKindOfClass:[CountingCell class]]);
  EXPECT_GE(row->_refreshes, 1);
  PSSpecifier *specifier = [page_ specifierForID:@"Row"];
  EXPECT_EQ([row specifier], specifier);
  EXPECT_EQ([specifier propertyForKey:PSTableCellKey], row);
  EXPECT_EQ([row cellTarget], page_);
  EXPECT_EQ([row target], page_);
  EXPECT_TRUE(sel_isEqual([row cellAction], @selector(setPreferenceValue:specifier:)));
  EXPECT_TRUE(sel_isEqual([row action], @selector(setPreferenceValue:specifier:)));
  const int before = row->_refreshes;
  [row setSpecifier:specifier];
  EXPECT_EQ(row->_refreshes, before);
  [row setSpecifier:[PSSpecifier groupSpecifierWithName:@"Other"]];
  EXPECT_EQ(row->_refreshes, before + 1);
  EXPECT_OBJC_EQ([[row textLabel] text], @"Other");
}

TEST_F(PSTableCellTest, ReuseForgetsTheFormerRow) {
  PSTableCell *row = showRow(@{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"key" : @"k"}, @"text");
  [row prepareForReuse];
  EXPECT_EQ([row cellTarget], nil);
  EXPECT_TRUE([row cellAction] == NULL);
  EXPECT_OBJC_EQ([row value], nil);
}

TEST_F(PSTableCellTest, MakersCellsStayWithTheirRow) {
  PSSpecifier *plain = [PSSpecifier groupSpecifierWithID:@"a"];
  [plain setCellType:PSSwitchCell];
  PSSpecifier *other = [PSSpecifier groupSpecifierWithID:@"b"];
  [other setCellType:PSSwitchCell];
  EXPECT_OBJC_EQ([PSTableCell reuseIdentifierForSpecifier:plain], [PSTableCell reuseIdentifierForSpecifier:other]);
  [plain setProperty:[CountingCell class] forKey:PSCellClassKey];
  [other setProperty:[CountingCell class] forKey:PSCellClassKey];
  EXPECT_OBJC_NE([PSTableCell reuseIdentifierForSpecifier:plain], [PSTableCell reuseIdentifierForSpecifier:other]);
}

TEST_F(PSTableCellTest, ACellMayBeTheTargetOfItsRow) {
  NSDictionary *item = @{@"cell" : @"PSLinkCell", @"label" : @"Row", @"cellClass" : @"SelfTargetCell"};
  PSTableCell *row = showRow(item);
  EXPECT_TRUE(tap(page_, @"Row"));
  EXPECT_OBJC_EQ([row title], @"pressed");
  PSSpecifier *specifier = [[page_ specifierForID:@"Row"] retain];
  EXPECT_EQ([specifier target], row);
  page_ = nil;
  show([[[UIViewController alloc] init] autorelease]);
  drainPool();
  EXPECT_EQ([specifier target], nil);
  [specifier release];
}

TEST_F(PSTableCellTest, CellsAreFreed) {
  int deaths = 0;
  @autoreleasepool {
    PSSpecifier *specifier = [PSSpecifier groupSpecifierWithName:@"Row"];
    [specifier setUserInfo:[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
    for (Class cellClass in (@[
           [PSTableCell class], [PSSwitchTableCell class], [PSSliderTableCell class], [PSSegmentTableCell class],
           [PSEditableTableCell class], [PSTextViewTableCell class], [PSSpinnerTableCell class]
         ])) {
      PSTableCell *cell = [[cellClass alloc] initWithStyle:UITableViewCellStyleValue1
                                           reuseIdentifier:@"x"
                                                 specifier:specifier];
      [cell refreshCellContentsWithSpecifier:specifier];
      [cell release];
    }
    [specifier removePropertyForKey:PSControlKey];
  }
  EXPECT_EQ(deaths, 1);
}

}  // namespace
