// Rows with controls: what they show, and what they store when a person works them.
#import <Preferences/PSTableCell+Sim.h>
#import <UIKit/UISegmentedControl+Sim.h>
#import <UIKit/UISlider+Sim.h>
#import <UIKit/UISwitch+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

/// Asks for all rows again at every change, in the middle of the control's action.
@interface RebuildingPage : TestPage
@end
@implementation RebuildingPage
- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  [super setPreferenceValue:value specifier:specifier];
  [self reloadSpecifiers];
}
@end

/// A row with a control of its maker's, which shows the value.
@interface DialCell : PSControlTableCell
@end
@implementation DialCell
- (UIControl *)newControl {
  return [[UIStepper alloc] initWithFrame:CGRectZero];
}
- (void)setValue:(id)value {
  [super setValue:value];
  [(UIStepper *)[self control] setValue:[value doubleValue]];
}
@end

namespace {

class PSControlCellTest : public PreferencesTest {
 protected:
  template <typename Cell = PSControlTableCell>
  Cell *showRow(NSString *type, NSDictionary *keys, id value = nil, Class pageClass = [TestPage class]) {
    NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:keys];
    [item setObject:type forKey:@"cell"];
    [item setObject:@"Row" forKey:@"label"];
    [item setObject:@"k" forKey:@"key"];
    writeList(@[ item ]);
    page_ = [[[pageClass alloc] init] autorelease];
    page_->_testBundle = [bundle() retain];
    if (value) [page_->_store setObject:value forKey:@"k"];
    show(page_);
    return (Cell *)cell(page_, @"Row");
  }
  UISwitch *showSwitch(NSDictionary *keys, id value = nil) {
    return (UISwitch *)[showRow(@"PSSwitchCell", keys, value) control];
  }
  UISlider *showSlider(NSDictionary *keys, id value = nil) {
    return (UISlider *)[showRow(@"PSSliderCell", keys, value) control];
  }
  UISegmentedControl *showSegments(id value = nil) {
    return (UISegmentedControl *)[showRow(
        @"PSSegmentCell",
        @{@"validValues" : @[ @"a", @"b" ],
          @"validTitles" : @[ @"First", @"Second" ]},
        value) control];
  }
  UITextField *showField(NSDictionary *keys, id value = nil) {
    return [showRow<PSEditableTableCell>(@"PSEditTextCell", keys, value) textField];
  }
  id stored() { return [page_->_store objectForKey:@"k"]; }

  TestPage *page_ = nil;
};

TEST_F(PSControlCellTest, ASwitchShowsAndStoresABool) {
  EXPECT_FALSE([showSwitch(@{}) isOn]);
  EXPECT_TRUE([showSwitch(@{@"default" : @1}) isOn]);
  UISwitch *control = showSwitch(@{}, [NSNumber numberWithBool:YES]);
  EXPECT_TRUE([control isOn]);
  EXPECT_OBJC_EQ([[page_ specifierForID:@"Row"] propertyForKey:PSControlKey], control);
  EXPECT_EQ([cell(page_, @"Row") accessoryView], control);
  EXPECT_OBJC_EQ(page_->_calls, @[]);
  EXPECT_TRUE([control sim_setOnByUser:NO]);
  EXPECT_OBJC_EQ(stored(), [NSNumber numberWithBool:NO]);
  EXPECT_EQ([page_->_calls count], 1u);
}

TEST_F(PSControlCellTest, ASwitchWithAValueOfAnotherTypeIsOff) {
  for (id value in (@[ @[], @{} ])) {
    log.clear();
    EXPECT_FALSE([showSwitch(@{}, value) isOn]);
    EXPECT_EQ(logged("is not what a PSSwitchCell shows"), 1);
    EXPECT_OBJC_EQ(stored(), value);
    EXPECT_OBJC_EQ(page_->_calls, @[]);
  }
}

TEST_F(PSControlCellTest, ASwitchTakesATextForTheTruthThatItSays) {
  for (NSString *text in (@[ @"YES", @"true", @"1" ])) {
    EXPECT_TRUE([showSwitch(@{@"default" : text}) isOn]) << [text UTF8String];
    EXPECT_TRUE([showSwitch(@{}, text) isOn]) << [text UTF8String];
  }
  for (NSString *text in (@[ @"NO", @"false", @"0", @"" ])) EXPECT_FALSE([showSwitch(@{@"default" : text}) isOn]);
  EXPECT_EQ(logged("is not what a PSSwitchCell shows"), 0);
  UISwitch *control = showSwitch(@{}, @"YES");
  EXPECT_TRUE([control sim_setOnByUser:NO]);
  EXPECT_OBJC_EQ(stored(), [NSNumber numberWithBool:NO]);
}

TEST_F(PSControlCellTest, TheValueOfAMakersControlIsTheControlsToShow) {
  auto *row = showRow(@"PSDefaultCell", @{@"cellClass" : @"DialCell"}, @3);
  EXPECT_EQ([(UIStepper *)[row control] value], 3);
  EXPECT_OBJC_EQ([row value], @3);
  EXPECT_OBJC_EQ([[row detailTextLabel] text], nil);
  EXPECT_OBJC_EQ([[row textLabel] text], @"Row");
}

TEST_F(PSControlCellTest, ADisabledControlCannotBeWorked) {
  UISwitch *control = showSwitch(@{@"enabled" : @0});
  EXPECT_FALSE([control isEnabled]);
  EXPECT_FALSE([control sim_setOnByUser:YES]);
  EXPECT_OBJC_EQ(stored(), nil);
}

TEST_F(PSControlCellTest, TheRowsMayBeRebuiltByTheSetter) {
  PSControlTableCell *row = showRow(@"PSSwitchCell", @{}, nil, [RebuildingPage class]);
  EXPECT_TRUE([(UISwitch *)[row control] sim_setOnByUser:YES]);
  drainPool();
  SIMDrainMainQueue();
  EXPECT_TRUE([(UISwitch *)[(PSControlTableCell *)cell(page_, @"Row") control] isOn]);
}

TEST_F(PSControlCellTest, ASetterThatIsNotThereIsLogged) {
  UISwitch *control = showSwitch(@{@"set" : @"noSuchSetter:for:"});
  EXPECT_TRUE([control sim_setOnByUser:YES]);
  EXPECT_EQ(logged("does not answer the setter noSuchSetter:for:"), 1);
}

TEST_F(PSControlCellTest, ASliderTakesItsRange) {
  UISlider *slider = showSlider(@{@"min" : @10, @"max" : @20}, @15.5);
  EXPECT_EQ([slider minimumValue], 10);
  EXPECT_EQ([slider maximumValue], 20);
  EXPECT_EQ([slider value], 15.5f);
  EXPECT_OBJC_EQ([[cell(page_, @"Row") textLabel] text], nil);
  EXPECT_EQ([showSlider(@{}) maximumValue], 1);
  EXPECT_EQ([showSlider(@{@"min" : @10, @"max" : @20}, @99) value], 20);
  EXPECT_EQ([showSlider(@{@"min" : @10, @"max" : @20}) value], 10);
}

TEST_F(PSControlCellTest, TheHiddenTitleOfASliderNamesIt) {
  UISlider *slider = showSlider(@{});
  EXPECT_OBJC_EQ([slider accessibilityLabel], @"Row");
  EXPECT_OBJC_EQ([[cell(page_, @"Row") textLabel] text], nil);
}

TEST_F(PSControlCellTest, ASliderStoresOnceAtTheEndOfADrag) {
  UISlider *slider = showSlider(@{@"isContinuous" : @1, @"defaults" : @"com.example"});
  EXPECT_FALSE([slider isContinuous]);
  [slider sim_setValueByUser:0.25 finished:NO];
  EXPECT_OBJC_EQ(page_->_calls, @[]);
  [slider sim_setValueByUser:0.5 finished:YES];
  EXPECT_EQ([page_->_calls count], 1u);
  EXPECT_OBJC_EQ(stored(), [NSNumber numberWithFloat:0.5]);
  EXPECT_TRUE([showSlider(@{@"isContinuous" : @1, @"defaults" : @"com.apple.example"}) isContinuous]);
}

TEST_F(PSControlCellTest, ASliderMayShowItsNumber) {
  UISlider *slider = showSlider(@{@"showValue" : @1}, @0.5);
  EXPECT_OBJC_EQ([[cell(page_, @"Row") detailTextLabel] text], @"0.50");
  [slider sim_setValueByUser:0.75 finished:YES];
  EXPECT_OBJC_EQ([[cell(page_, @"Row") detailTextLabel] text], @"0.75");
  showSlider(@{}, @0.5);
  EXPECT_OBJC_EQ([[cell(page_, @"Row") detailTextLabel] text], nil);
}

TEST_F(PSControlCellTest, ASliderWithBadNumbersIsAtItsLowEnd) {
  UISlider *slider = showSlider(@{@"min" : @"low", @"max" : @[]}, @[ @1 ]);
  EXPECT_EQ([slider minimumValue], 0);
  EXPECT_EQ([slider maximumValue], 1);
  EXPECT_EQ([slider value], 0);
  EXPECT_EQ(logged("is no number"), 1);
  EXPECT_EQ(logged("is not what a PSSliderCell shows"), 1);
  EXPECT_OBJC_EQ(stored(), @[ @1 ]);
}

TEST_F(PSControlCellTest, SegmentsChooseAmongTheValues) {
  UISegmentedControl *segments = showSegments(@"b");
  EXPECT_EQ([segments numberOfSegments], 2u);
  EXPECT_OBJC_EQ([segments titleForSegmentAtIndex:0], @"First");
  EXPECT_EQ([segments selectedSegmentIndex], 1);
  EXPECT_TRUE([segments sim_selectByUser:0]);
  EXPECT_OBJC_EQ(stored(), @"a");
  EXPECT_EQ([showSegments() selectedSegmentIndex], 0);
  EXPECT_EQ(logged("[Preferences]"), 0);
}

TEST_F(PSControlCellTest, AnUnknownValueSelectsTheFirstSegment) {
  for (id value in (@[ @"z", @7, @[] ])) {
    log.clear();
    EXPECT_EQ([showSegments(value) selectedSegmentIndex], 0);
    EXPECT_EQ(logged("is not what a PSSegmentCell shows"), 1);
    EXPECT_OBJC_EQ(stored(), value);
  }
}

TEST_F(PSControlCellTest, SegmentsWithoutTitlesShowTheirValues) {
  UISegmentedControl *segments = (UISegmentedControl *)[showRow(
      @"PSSegmentCell",
      @{@"validValues" : @[ @1, @"b" ]}) control];
  EXPECT_OBJC_EQ([segments titleForSegmentAtIndex:0], @"1");
  EXPECT_EQ([(UISegmentedControl *)[showRow(@"PSSegmentCell", @{}) control] numberOfSegments], 0u);
}

TEST_F(PSControlCellTest, ATextRowStoresWhenEditingEnds) {
  UITextField *field = showField(@{@"placeholder" : @"Your name", @"keyboard" : @"numbers"}, @"Ann");
  EXPECT_OBJC_EQ([field text], @"Ann");
  EXPECT_OBJC_EQ([field placeholder], @"Your name");
  EXPECT_EQ([field keyboardType], UIKeyboardTypeNumberPad);
  EXPECT_FALSE([field isSecureTextEntry]);
  EXPECT_TRUE([field becomeFirstResponder]);
  [field setText:@"Bea"];
  EXPECT_OBJC_EQ(stored(), @"Ann");
  EXPECT_TRUE([field resignFirstResponder]);
  EXPECT_OBJC_EQ(stored(), @"Bea");
  EXPECT_TRUE([field sim_enterText:@""]);
  EXPECT_OBJC_EQ(stored(), @"");
}

TEST_F(PSControlCellTest, EditingWithoutAChangeStoresNothing) {
  UITextField *field = showField(@{}, @[ @"no text" ]);
  EXPECT_OBJC_EQ([field text], @"");
  EXPECT_EQ(logged("is not what a PSEditTextCell shows"), 1);
  [field becomeFirstResponder];
  [field resignFirstResponder];
  EXPECT_OBJC_EQ(page_->_calls, @[]);
  EXPECT_OBJC_EQ([showField(@{}, @12) text], @"12");
}

TEST_F(PSControlCellTest, ReturnKeepsEditingUnlessThePageIsToPop) {
  UITextField *field = showField(@{});
  [field sim_enterTextAndReturn:@"typed"];
  EXPECT_OBJC_EQ(stored(), @"typed");
  EXPECT_EQ(top(), page_);

  UIViewController *below = [[[UIViewController alloc] init] autorelease];
  UITextField *popping = showField(@{@"textFieldShouldPopOnReturn" : @1});
  [navigation() setViewControllers:@[ below, page_ ]];
  [popping sim_enterTextAndReturn:@"typed"];
  EXPECT_OBJC_EQ(stored(), @"typed");
  EXPECT_EQ(top(), below);
}

TEST_F(PSControlCellTest, LeavingThePageStoresWhatWasTyped) {
  UITextField *field = showField(@{});
  UIViewController *below = [[[UIViewController alloc] init] autorelease];
  [navigation() setViewControllers:@[ below, page_ ]];
  ASSERT_TRUE([field becomeFirstResponder]);
  [field setText:@"typed"];
  TestPage *page = [[page_ retain] autorelease];
  [navigation() popViewControllerAnimated:NO];
  EXPECT_OBJC_EQ([page->_store objectForKey:@"k"], @"typed");
}

TEST_F(PSControlCellTest, APasswordRowHidesItsText) {
  UITextField *field = [showRow<PSEditableTableCell>(@"PSSecureEditTextCell", @{}, @"secret") textField];
  EXPECT_TRUE([field isSecureTextEntry]);
  EXPECT_OBJC_EQ([field text], @"secret");
}

TEST_F(PSControlCellTest, ATextViewRowStoresWhenEditingEnds) {
  UITextView *view = [showRow<PSTextViewTableCell>(@"PSEditTextViewCell", @{}, @"one\ntwo") textView];
  EXPECT_OBJC_EQ([view text], @"one\ntwo");
  EXPECT_TRUE([view sim_enterText:@"three"]);
  EXPECT_OBJC_EQ(stored(), @"three");
}

TEST_F(PSControlCellTest, ASpinnerRowSpins) {
  PSSpinnerTableCell *row = showRow<PSSpinnerTableCell>(@"PSSpinnerCell", @{});
  EXPECT_TRUE([[row spinner] isAnimating]);
  EXPECT_EQ([row accessoryView], [row spinner]);
  EXPECT_OBJC_EQ([[row textLabel] text], @"Row");
}

}  // namespace
