// What a row of each type is called, shows and does.
#import <Preferences/CellTypes.h>
#import <UIKit/UIAlertController+Sim.h>
#import <UIKit/UITableView+Sim.h>

#include <string>

#include "simulator/Preferences/PreferencesTest.h"

namespace {

/// What a tap on a row of a type does.
enum class Does { kNothing, kNotEvenItsAction, kOpensAnyPage, kOpensItsPage, kPresses, kEdits, kChecks };

struct RowType {
  PSCellType type;
  NSString *name;
  NSString *cellClass;
  Does tap;
  const char *shows = "";  ///< Of a value with the title "Second" and the short title "2nd".
  CGFloat height = 44;
  bool needsPurpose = false;
  bool wraps = false;
  bool hidesText = false;
  bool storesWhenConfirmed = false;
};

class CellTypesTest : public PreferencesTest, public ::testing::WithParamInterface<RowType> {
 protected:
  /// A row of the type, "Row", with these properties, on a page in the window; its value is `value`.
  TestPage *showRow(NSDictionary *more, id value = nil) {
    NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:more];
    [item addEntriesFromDictionary:@{@"cell" : GetParam().name, @"label" : @"Row", @"key" : @"k"}];
    writeList(@[ item ]);
    TestPage *page = makePage();
    if (value) [page->_store setObject:value forKey:@"k"];
    show(page);
    return page;
  }
  PSTableCell *rowWith(NSDictionary *more, id value = nil) { return cell(showRow(more, value), @"Row"); }
  bool isTaken(NSDictionary *more) { return tap(showRow(more), @"Row"); }

  /// A row of the type that has neither getter nor setter, and no page to stand on.
  PSSpecifier *bareRow() {
    return [PSSpecifier preferenceSpecifierNamed:@"R"
                                          target:nil
                                             set:NULL
                                             get:NULL
                                          detail:Nil
                                            cell:GetParam().type
                                            edit:Nil];
  }
  bool isEnabled(PSSpecifier *row) {
    PSTableCell *cell = [[[PSTableCell alloc] initWithStyle:UITableViewCellStyleValue1
                                            reuseIdentifier:nil
                                                  specifier:row] autorelease];
    [cell refreshCellContentsWithSpecifier:row];
    return [cell cellEnabled];
  }
};

TEST_P(CellTypesTest, HasANameANumberAndAClass) {
  const RowType &row = GetParam();
  EXPECT_EQ([PSTableCell cellTypeFromString:row.name], row.type);
  EXPECT_NE([PSTableCell cellTypeFromString:[row.name stringByAppendingString:@"s"]], row.type) << "the whole name";
  EXPECT_OBJC_EQ([PSTableCell stringFromCellType:row.type], row.name);
  EXPECT_EQ([PSTableCell cellClassForSpecifier:bareRow()], NSClassFromString(row.cellClass));
  EXPECT_TRUE([NSClassFromString(row.cellClass) isSubclassOfClass:[PSTableCell class]]);
}

TEST_P(CellTypesTest, TakesTheTapsThatItIsMadeFor) {
  const Does tap = GetParam().tap;
  const bool needsAReason = tap == Does::kNothing || tap == Does::kNotEvenItsAction || tap == Does::kOpensItsPage;
  EXPECT_EQ(isTaken(@{}), !needsAReason);
  EXPECT_EQ(isTaken(@{@"action" : @"plainAction"}), tap != Does::kNotEvenItsAction);
  EXPECT_EQ(isTaken(@{@"detail" : @"PSListController"}), !needsAReason || tap == Does::kOpensItsPage);
  EXPECT_FALSE(isTaken(@{@"action" : @"plainAction", @"enabled" : @0})) << "a disabled row takes none";
}

TEST_P(CellTypesTest, OpensAPage) {
  const Does does = GetParam().tap;
  const bool opens = does == Does::kOpensAnyPage || does == Does::kOpensItsPage;
  TestPage *page = showRow(@{@"detail" : @"PSListItemsController"});
  tap(page, @"Row");
  EXPECT_EQ([top() isKindOfClass:[PSListItemsController class]], opens);
  page = showRow(@{});
  tap(page, @"Row");
  EXPECT_EQ(top() != page, does == Does::kOpensAnyPage) << "without a page of its own";
}

TEST_P(CellTypesTest, TellsThatItOpensAPage) {
  const Does does = GetParam().tap;
  const auto disclosed = [&](NSDictionary *more) {
    return [rowWith(more) accessoryType] == UITableViewCellAccessoryDisclosureIndicator;
  };
  EXPECT_EQ(disclosed(@{}), does == Does::kOpensAnyPage);
  EXPECT_EQ(disclosed(@{@"detail" : @"PSListController"}), does == Does::kOpensAnyPage || does == Does::kOpensItsPage);
  EXPECT_EQ(disclosed(
                @{@"detail" : @"PSListController",
                  @"hidesDisclosureIndicator" : @1}),
            does == Does::kOpensItsPage);
}

TEST_P(CellTypesTest, IsTintedWhenItIsPressed) {
  const bool presses = GetParam().tap == Does::kPresses;
  EXPECT_OBJC_EQ([[rowWith(@{}) textLabel] textColor], presses ? [UIColor systemBlueColor] : [UIColor labelColor]);
  EXPECT_OBJC_EQ([[rowWith(
                     @{@"isDestructive" : @1}) textLabel] textColor],
                 presses ? [UIColor systemRedColor] : [UIColor labelColor]);
}

TEST_P(CellTypesTest, AsksBeforeItActsWhenItIsPressed) {
  TestPage *page = showRow(@{@"action" : @"plainAction", @"confirmation" : @{@"prompt" : @"Really?"}});
  const bool taken = tap(page, @"Row");
  EXPECT_EQ(alert() != nil, GetParam().tap == Does::kPresses);
  EXPECT_EQ([page->_calls containsObject:@"plainAction"], taken && !alert());
}

TEST_P(CellTypesTest, BeginsToBeEdited) {
  TestPage *page = showRow(@{});
  tap(page, @"Row");
  PSTableCell *row = cell(page, @"Row");
  NSInteger editing = 0;
  for (UIView *view in [[row contentView] subviews]) editing += [view isFirstResponder] ? 1 : 0;
  EXPECT_EQ(editing, GetParam().tap == Does::kEdits ? 1 : 0);
}

TEST_P(CellTypesTest, IsCheckedInARadioGroup) {
  const bool checks = GetParam().tap == Does::kChecks;
  TestPage *page = showPage(@[
    @{
      @"cell" : @"PSGroupCell",
      @"isRadioGroup" : @1,
      @"key" : @"size",
      @"get" : @"readPreferenceValue:",
      @"set" : @"setPreferenceValue:specifier:"
    },
    @{@"cell" : GetParam().name,
      @"id" : @"a",
      @"value" : @1},
    @{@"cell" : GetParam().name,
      @"id" : @"b",
      @"value" : @2}
  ]);
  [page->_store setObject:@1 forKey:@"size"];
  [page reload];
  EXPECT_EQ([cell(page, @"a") isChecked], checks) << "the stored value's row";
  tap(page, @"b");
  EXPECT_EQ([page->_calls containsObject:@"set size=2"], checks);
  if (checks) [page reloadSpecifierID:@"b"];
  EXPECT_EQ([cell(page, @"b") isChecked], checks) << "a reload leaves the check mark";
}

TEST_P(CellTypesTest, ShowsItsValue) {
  NSDictionary *choices =
      @{@"validValues" : @[ @1, @2 ],
        @"validTitles" : @[ @"First", @"Second" ],
        @"shortTitles" : @[ @"1st", @"2nd" ]};
  const std::string shown = GetParam().shows;
  EXPECT_EQ(text([[rowWith(choices, @2) detailTextLabel] text] ?: @""), shown);
  const bool showsOthers = shown == "Second";
  EXPECT_EQ(text([[rowWith(choices, @9) detailTextLabel] text] ?: @""), showsOthers ? "9" : "")
      << "none to choose from";
}

TEST_P(CellTypesTest, IsAsHighAsItsContentAsksFor) {
  UITableView *table = [showRow(@{}) table];
  [table sim_prepareForDescription];
  EXPECT_EQ([table sim_heightOfRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]], GetParam().height);
}

TEST_P(CellTypesTest, IsDrawnDisabledWhenItNeedsAPurposeAndHasNone) {
  EXPECT_EQ(isEnabled(bareRow()), !GetParam().needsPurpose);
  PSSpecifier *row = bareRow();
  row->setter = @selector(setPreferenceValue:specifier:);
  EXPECT_TRUE(isEnabled(row)) << "it stores";
  row = bareRow();
  row->action = @selector(plainAction);
  EXPECT_TRUE(isEnabled(row)) << "it acts";
  row = bareRow();
  [row setButtonAction:@selector(plainAction)];
  EXPECT_TRUE(isEnabled(row)) << "it acts when it is pressed";
  row = bareRow();
  [row setControllerLoadAction:@selector(plainAction)];
  EXPECT_TRUE(isEnabled(row)) << "it acts before its page opens";
  row = bareRow();
  [row setDetailControllerClass:[TestPage class]];
  EXPECT_TRUE(isEnabled(row)) << "it opens a page";
  row = bareRow();
  [row setProperty:[[[UIImage alloc] init] autorelease] forKey:PSIconImageKey];
  EXPECT_TRUE(isEnabled(row)) << "it has an icon";
}

TEST_P(CellTypesTest, WrapsItsTitle) {
  PSTableCell *row = rowWith(@{});
  EXPECT_EQ([[row textLabel] numberOfLines], GetParam().wraps ? 0 : 1);
  const bool hasControl = [row class] != [PSTableCell class];
  EXPECT_EQ([row selectionStyle] == UITableViewCellSelectionStyleNone,
            hasControl || GetParam().tap == Does::kNotEvenItsAction);
}

TEST_P(CellTypesTest, HidesASecret) {
  PSTableCell *row = rowWith(@{}, @"secret");
  const bool hidesText =
      [row isKindOfClass:[PSEditableTableCell class]] && [[(PSEditableTableCell *)row textField] isSecureTextEntry];
  EXPECT_EQ(hidesText, GetParam().hidesText);
}

TEST_P(CellTypesTest, StoresOrActsWhenConfirmed) {
  TestPage *page = showRow(@{
    @"action" : @"plainAction",
    @"confirmation" : @{@"prompt" : @"Really?"},
    @"validValues" : @[ @1 ],
    @"validTitles" : @[ @"One" ]
  });
  [page showConfirmationViewForSpecifier:(PSConfirmationSpecifier *)[page specifierForID:@"Row"]];
  ASSERT_TRUE(alert() != nil);
  [alert() sim_tapAction:[[alert() actions] objectAtIndex:0]];
  EXPECT_OBJC_EQ(page->_calls, @[ GetParam().storesWhenConfirmed ? @"set k=0" : @"plainAction" ]);
}

INSTANTIATE_TEST_SUITE_P(EveryType, CellTypesTest,
                         ::testing::Values(RowType{.type = PSLinkCell,
                                                   .name = @"PSLinkCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kOpensAnyPage,
                                                   .needsPurpose = true},
                                           RowType{.type = PSLinkListCell,
                                                   .name = @"PSLinkListCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kOpensAnyPage,
                                                   .shows = "2nd",
                                                   .needsPurpose = true},
                                           RowType{.type = PSListItemCell,
                                                   .name = @"PSListItemCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kChecks},
                                           RowType{.type = PSTitleValueCell,
                                                   .name = @"PSTitleValueCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kNothing,
                                                   .shows = "Second"},
                                           RowType{.type = PSSliderCell,
                                                   .name = @"PSSliderCell",
                                                   .cellClass = @"PSSliderTableCell",
                                                   .tap = Does::kNothing,
                                                   .needsPurpose = true},
                                           RowType{.type = PSSwitchCell,
                                                   .name = @"PSSwitchCell",
                                                   .cellClass = @"PSSwitchTableCell",
                                                   .tap = Does::kNothing,
                                                   .needsPurpose = true,
                                                   .storesWhenConfirmed = true},
                                           RowType{.type = PSStaticTextCell,
                                                   .name = @"PSStaticTextCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kNotEvenItsAction,
                                                   .wraps = true},
                                           RowType{.type = PSEditTextCell,
                                                   .name = @"PSEditTextCell",
                                                   .cellClass = @"PSEditableTableCell",
                                                   .tap = Does::kEdits,
                                                   .needsPurpose = true},
                                           RowType{.type = PSSegmentCell,
                                                   .name = @"PSSegmentCell",
                                                   .cellClass = @"PSSegmentTableCell",
                                                   .tap = Does::kNothing,
                                                   .needsPurpose = true},
                                           RowType{.type = PSGiantIconCell,
                                                   .name = @"PSGiantIconCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kOpensItsPage,
                                                   .height = 66},
                                           RowType{.type = PSGiantCell,
                                                   .name = @"PSGiantCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kOpensItsPage,
                                                   .height = 66},
                                           RowType{.type = PSSecureEditTextCell,
                                                   .name = @"PSSecureEditTextCell",
                                                   .cellClass = @"PSEditableTableCell",
                                                   .tap = Does::kEdits,
                                                   .needsPurpose = true,
                                                   .hidesText = true},
                                           RowType{.type = PSButtonCell,
                                                   .name = @"PSButtonCell",
                                                   .cellClass = @"PSTableCell",
                                                   .tap = Does::kPresses,
                                                   .needsPurpose = true},
                                           RowType{.type = PSEditTextViewCell,
                                                   .name = @"PSEditTextViewCell",
                                                   .cellClass = @"PSTextViewTableCell",
                                                   .tap = Does::kEdits,
                                                   .height = 88,
                                                   .needsPurpose = true},
                                           RowType{.type = PSSpinnerCell,
                                                   .name = @"PSSpinnerCell",
                                                   .cellClass = @"PSSpinnerTableCell",
                                                   .tap = Does::kNothing}),
                         [](const auto &info) { return std::string([info.param.name UTF8String]); });

TEST(CellTypesTableTest, ATypeThatIsNoneIsAPlainRowWithoutAName) {
  for (long type : {-1L, 16L, 1000L}) {
    const sim::CellTraits &traits = sim::traitsOf(static_cast<PSCellType>(type));
    EXPECT_OBJC_EQ(traits.name, nil) << type;
    EXPECT_EQ(sim::classOfCellType(static_cast<PSCellType>(type)), [PSTableCell class]) << type;
    EXPECT_EQ(traits.tap, sim::Tap::kNothing) << type;
    EXPECT_FALSE(traits.needsPurpose) << type;
  }
  EXPECT_EQ(sim::cellTypeNamed(nil), sim::kNoCellType);
  EXPECT_EQ(sim::cellTypeNamed(@"pslinkcell"), sim::kNoCellType);
  EXPECT_EQ(sim::cellTypeNamed(@"PSGroupCell"), PSGroupCell);
}

}  // namespace
