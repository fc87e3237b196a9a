// What a tap on each kind of row does.
#import <UIKit/UIAlertController+Sim.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UISwitch+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

/// Implements nothing that Settings asks of a page.
@interface ForeignPage : UIViewController
@end
@implementation ForeignPage
@end

@interface RemovingPage : TestPage
@end
@implementation RemovingPage
- (void)forgetAction:(PSSpecifier *)specifier {
  specifier->action = NULL;
}
@end

namespace {

class PSListTapTest : public PreferencesTest {
 protected:
  TestPage *showRow(NSDictionary *item) { return showPage(@[ item ]); }
  TestPage *showConfirmation(NSDictionary *more) {
    NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:@{
      @"cell" : @"PSButtonCell",
      @"label" : @"Erase",
      @"action" : @"plainAction",
      @"confirmation" :
          @{@"title" : @"Erase All", @"prompt" : @"Really?", @"okTitle" : @"Do It", @"cancelTitle" : @"Keep"}
    }];
    [item addEntriesFromDictionary:more];
    return showRow(item);
  }
  UIAlertAction *actionAt(NSUInteger index) { return [[alert() actions] objectAtIndex:index]; }
};

TEST_F(PSListTapTest, AButtonRunsItsActionAndIsDeselected) {
  TestPage *page = showPage(@[
    @{@"cell" : @"PSButtonCell", @"label" : @"None", @"action" : @"plainAction"},
    @{@"cell" : @"PSButtonCell", @"label" : @"One", @"action" : @"actionWith:"}
  ]);
  EXPECT_TRUE(tap(page, @"None"));
  EXPECT_TRUE(tap(page, @"One"));
  EXPECT_OBJC_EQ(page->_calls, (@[ @"plainAction", @"actionWith One" ]));
  EXPECT_OBJC_EQ([[page table] indexPathForSelectedRow], nil);
}

TEST_F(PSListTapTest, AButtonActionComesBeforeTheAction) {
  TestPage *page = showRow(
      @{@"cell" : @"PSButtonCell", @"label" : @"B", @"action" : @"plainAction", @"buttonAction" : @"actionWith:"});
  tap(page, @"B");
  EXPECT_OBJC_EQ(page->_calls, @[ @"actionWith B" ]);
}

TEST_F(PSListTapTest, AMissingActionIsLogged) {
  TestPage *page = showPage(@[
    @{@"cell" : @"PSButtonCell", @"label" : @"B", @"action" : @"doesNotExist:"},
    @{@"cell" : @"PSLinkCell", @"label" : @"L", @"action" : @"doesNotExistEither"}
  ]);
  tap(page, @"B");
  EXPECT_EQ(logged("TestPage does not answer the action doesNotExist:"), 1);
  tap(page, @"L");
  EXPECT_EQ(logged("TestPage does not answer the action doesNotExistEither"), 1);
  EXPECT_EQ(top(), page);
  [page specifierForID:@"B"]->target = nil;
  tap(page, @"B");
  EXPECT_EQ(logged("no target does not answer"), 1);
}

TEST_F(PSListTapTest, AButtonWithoutAnyActionDoesNothing) {
  TestPage *page = showRow(@{@"cell" : @"PSButtonCell", @"label" : @"B"});
  EXPECT_TRUE(tap(page, @"B"));
  EXPECT_OBJC_EQ(page->_calls, @[]);
}

TEST_F(PSListTapTest, ALinkPushesItsDetail) {
  TestPage *page = showRow(@{@"cell" : @"PSLinkCell", @"label" : @"L", @"detail" : @"PSListController"});
  EXPECT_TRUE(tap(page, @"L"));
  EXPECT_TRUE([top() isMemberOfClass:[PSListController class]]);
  EXPECT_OBJC_EQ([top() title], @"L");
}

TEST_F(PSListTapTest, ALinkWithoutDetailPushesAnEmptyPage) {
  TestPage *page = showRow(@{@"cell" : @"PSLinkCell", @"label" : @"L", @"detail" : @"NoSuchPage"});
  EXPECT_EQ(logged("NoSuchPage"), 1);
  EXPECT_TRUE(tap(page, @"L"));
  EXPECT_TRUE([top() isMemberOfClass:[PSListController class]]);
}

TEST_F(PSListTapTest, ALinkWithAnActionDoesNotPush) {
  TestPage *page = showPage(@[
    @{@"cell" : @"PSLinkCell", @"label" : @"A", @"action" : @"plainAction", @"detail" : @"PSListController"},
    @{@"cell" : @"PSLinkCell", @"label" : @"B", @"buttonAction" : @"actionWith:", @"detail" : @"PSListController"},
  ]);
  tap(page, @"A");
  tap(page, @"B");
  EXPECT_EQ(top(), page);
  EXPECT_OBJC_EQ(page->_calls, (@[ @"plainAction", @"actionWith B" ]));
  EXPECT_OBJC_EQ([[page table] indexPathForSelectedRow], nil);
}

TEST_F(PSListTapTest, AnActionThatTakesItselfAwayLetsThePagePush) {
  writeList(
      @[ @{@"cell" : @"PSLinkCell", @"label" : @"L", @"action" : @"forgetAction:", @"detail" : @"PSListController"} ]);
  RemovingPage *page = [[[RemovingPage alloc] init] autorelease];
  page->_testBundle = [bundle() retain];
  show(page);
  tap(page, @"L");
  EXPECT_NE(top(), page);
}

TEST_F(PSListTapTest, ALoadActionRunsBeforeThePagePushes) {
  TestPage *page = showRow(
      @{@"cell" : @"PSLinkCell", @"label" : @"L", @"loadAction" : @"actionWith:", @"detail" : @"PSListController"});
  tap(page, @"L");
  EXPECT_OBJC_EQ(page->_calls, @[ @"actionWith L" ]);
  EXPECT_NE(top(), page);
}

TEST_F(PSListTapTest, APageThatSettingsCannotOpenIsLogged) {
  TestPage *page = showRow(@{@"cell" : @"PSLinkCell", @"label" : @"L", @"detail" : @"ForeignPage"});
  tap(page, @"L");
  EXPECT_EQ(top(), page);
  EXPECT_EQ(logged("ForeignPage does not answer setRootController:"), 1);
}

TEST_F(PSListTapTest, RowsWithoutAnActionRefuseTaps) {
  TestPage *page = showPage(@[
    @{@"cell" : @"PSTitleValueCell", @"label" : @"Value"}, @{@"cell" : @"PSStaticTextCell", @"label" : @"Text"},
    @{@"cell" : @"PSSwitchCell", @"label" : @"Switch", @"key" : @"s"},
    @{@"cell" : @"PSTitleValueCell", @"label" : @"Acting", @"action" : @"plainAction"}
  ]);
  EXPECT_FALSE(tap(page, @"Value"));
  EXPECT_FALSE(tap(page, @"Text"));
  EXPECT_FALSE(tap(page, @"Switch"));
  EXPECT_TRUE(tap(page, @"Acting"));
  EXPECT_OBJC_EQ(page->_calls, @[ @"plainAction" ]);
}

TEST_F(PSListTapTest, ADisabledRowRefusesTaps) {
  TestPage *page = showPage(@[
    @{@"cell" : @"PSButtonCell",
      @"label" : @"Off",
      @"action" : @"plainAction",
      @"enabled" : @0},
    @{@"cell" : @"PSButtonCell",
      @"label" : @"Odd",
      @"action" : @"plainAction",
      @"enabled" : @[]}
  ]);
  EXPECT_FALSE(tap(page, @"Off"));
  EXPECT_OBJC_EQ(page->_calls, @[]);
  EXPECT_FALSE([cell(page, @"Off") cellEnabled]);
  EXPECT_TRUE(tap(page, @"Odd"));
  EXPECT_EQ(logged("\"enabled\" is no BOOL"), 1);
}

TEST_F(PSListTapTest, ATextRowStartsEditing) {
  TestPage *page = showRow(@{@"cell" : @"PSEditTextCell", @"label" : @"Name", @"key" : @"name"});
  EXPECT_TRUE(tap(page, @"Name"));
  EXPECT_TRUE([[(PSEditableTableCell *)cell(page, @"Name") textField] isEditing]);
}

TEST_F(PSListTapTest, ARadioGroupMovesItsCheckMarkAndStores) {
  TestPage *page = showPage(@[
    @{
      @"cell" : @"PSGroupCell",
      @"isRadioGroup" : @1,
      @"key" : @"size",
      @"get" : @"readPreferenceValue:",
      @"set" : @"setPreferenceValue:specifier:"
    },
    @{@"cell" : @"PSListItemCell",
      @"label" : @"S",
      @"value" : @1},
    @{@"cell" : @"PSListItemCell",
      @"label" : @"M",
      @"value" : @2}
  ]);
  [page->_store setObject:@1 forKey:@"size"];
  [page reload];
  EXPECT_TRUE([cell(page, @"S") isChecked]);
  EXPECT_TRUE(tap(page, @"M"));
  EXPECT_FALSE([cell(page, @"S") isChecked]);
  EXPECT_TRUE([cell(page, @"M") isChecked]);
  EXPECT_OBJC_EQ(page->_calls, @[ @"set size=2" ]);
  EXPECT_OBJC_EQ([[page table] indexPathForSelectedRow], nil);
}

TEST_F(PSListTapTest, AConfirmationOnAPhoneIsASheet) {
  TestPage *page = showConfirmation(@{@"isDestructive" : @1});
  tap(page, @"Erase");
  ASSERT_TRUE(alert() != nil);
  EXPECT_EQ([alert() preferredStyle], UIAlertControllerStyleActionSheet);
  EXPECT_OBJC_EQ([alert() title], @"Really?");
  EXPECT_OBJC_EQ([actionAt(0) title], @"Erase All");
  EXPECT_EQ([actionAt(0) style], UIAlertActionStyleDestructive);
  EXPECT_OBJC_EQ([actionAt(1) title], @"Keep");
  EXPECT_OBJC_EQ(page->_calls, @[]);
  EXPECT_TRUE([alert() sim_tapAction:actionAt(0)]);
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ(page->_calls, @[ @"plainAction" ]);
}

TEST_F(PSListTapTest, AConfirmationOnATabletIsAnAlert) {
  const CGSize phone = [[UIScreen mainScreen] bounds].size;
  const CGFloat scale = [[UIScreen mainScreen] scale];
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  TestPage *page = showConfirmation(@{});
  tap(page, @"Erase");
  EXPECT_EQ([alert() preferredStyle], UIAlertControllerStyleAlert);
  EXPECT_OBJC_EQ([alert() title], @"Erase All");
  EXPECT_OBJC_EQ([alert() message], @"Really?");
  EXPECT_OBJC_EQ([actionAt(0) title], @"Do It");
  SIMSetMainScreen(phone, scale);
}

TEST_F(PSListTapTest, AConfirmationRunsItsOwnActionsFirst) {
  TestPage *page = showConfirmation(@{@"confirmationAction" : @"actionWith:", @"cancel" : @"plainAction"});
  tap(page, @"Erase");
  [alert() sim_tapAction:actionAt(0)];
  EXPECT_OBJC_EQ(page->_calls, @[ @"actionWith Erase" ]);
  tap(page, @"Erase");
  [alert() sim_tapAction:actionAt(1)];
  EXPECT_OBJC_EQ(page->_calls, (@[ @"actionWith Erase", @"plainAction" ]));
}

TEST_F(PSListTapTest, ASwitchThatAsksStoresOnlyWhenConfirmed) {
  TestPage *page = showRow(
      @{@"cell" : @"PSSwitchCell",
        @"label" : @"Erase",
        @"key" : @"k",
        @"confirmation" : @{@"prompt" : @"Really?"}});
  UISwitch *control = (UISwitch *)[(PSSwitchTableCell *)cell(page, @"Erase") control];
  [control sim_setOnByUser:YES];
  EXPECT_OBJC_EQ(page->_calls, @[]);
  [alert() sim_tapAction:actionAt(1)];
  EXPECT_FALSE([control isOn]);
  EXPECT_OBJC_EQ(page->_calls, @[]);
  [control sim_setOnByUser:YES];
  [alert() sim_tapAction:actionAt(0)];
  EXPECT_OBJC_EQ(page->_calls, @[ @"set k=1" ]);
  EXPECT_TRUE([control isOn]);
}

}  // namespace
