// A picker: its counts and sizes, what is selected, reloading, views that are used again, a finger.
#import <UIKit/UIKit.h>
#import <UIKit/UIPickerView+Sim.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>
#include <utility>
#include <vector>

// What a wheel holds; it has neither titles nor sizes of its own.
@interface BareWheels : NSObject <UIPickerViewDataSource, UIPickerViewDelegate> {
 @public
  std::vector<NSInteger> counts;
  std::string log;
}
@end

@implementation BareWheels

- (NSInteger)numberOfComponentsInPickerView:(UIPickerView *)picker {
  return static_cast<NSInteger>(counts.size());
}

- (NSInteger)pickerView:(UIPickerView *)picker numberOfRowsInComponent:(NSInteger)component {
  log += "count" + std::to_string(component) + " ";
  return counts[static_cast<std::size_t>(component)];
}

- (void)pickerView:(UIPickerView *)picker didSelectRow:(NSInteger)row inComponent:(NSInteger)component {
  log += "selected" + std::to_string(component) + "." + std::to_string(row) + " ";
}

@end

@interface TitledWheels : BareWheels
@end

@implementation TitledWheels

- (CGFloat)pickerView:(UIPickerView *)picker widthForComponent:(NSInteger)component {
  return component == 0 ? 120 : 0;
}

- (CGFloat)pickerView:(UIPickerView *)picker rowHeightForComponent:(NSInteger)component {
  return 40;
}

- (NSString *)pickerView:(UIPickerView *)picker titleForRow:(NSInteger)row forComponent:(NSInteger)component {
  return row == 0 ? nil : [NSString stringWithFormat:@"row %ld", (long)row];
}

- (NSAttributedString *)pickerView:(UIPickerView *)picker
             attributedTitleForRow:(NSInteger)row
                      forComponent:(NSInteger)component {
  if (row != 2) return nil;
  return
      [[[NSAttributedString alloc] initWithString:@"red"
                                       attributes:@{NSForegroundColorAttributeName : [UIColor redColor]}] autorelease];
}

@end

@interface ViewWheels : TitledWheels {
 @public
  int reused;
}
@end

@implementation ViewWheels

- (UIView *)pickerView:(UIPickerView *)picker
            viewForRow:(NSInteger)row
          forComponent:(NSInteger)component
           reusingView:(UIView *)view {
  if (view) ++reused;
  if (view) return view;
  return [[[UIView alloc] initWithFrame:row == 1 ? CGRectMake(0, 0, 20, 10) : CGRectZero] autorelease];
}

@end

/// Its wheels are as wide as there is room.
@interface WideWheels : ViewWheels
@end

@implementation WideWheels

- (CGFloat)pickerView:(UIPickerView *)picker widthForComponent:(NSInteger)component {
  return 0;
}

@end

namespace {

class UIPickerViewTests : public ObjCTest {
 protected:
  template <typename Source>
  UIPickerView *make(Source *source, std::vector<NSInteger> counts) {
    kept_ = objcxx::share<NSObject>(source);
    source->counts = std::move(counts);
    UIPickerView *picker = [[[UIPickerView alloc] initWithFrame:CGRectZero] autorelease];
    [picker setDataSource:source];
    [picker setDelegate:source];
    return picker;
  }

  objcxx::Retained<NSObject> kept_;
};

TEST_F(UIPickerViewTests, ItHasTheSystemsSizeUnlessItIsGivenOne) {
  UIPickerView *picker = [[[UIPickerView alloc] initWithFrame:CGRectZero] autorelease];
  EXPECT_EQ([picker frame].size.width, 320);
  EXPECT_EQ([picker frame].size.height, 216);
  EXPECT_EQ([picker intrinsicContentSize].height, 216);
  EXPECT_EQ([picker sizeThatFits:CGSizeZero].width, 320);
  UIPickerView *small = [[[UIPickerView alloc] initWithFrame:CGRectMake(1, 2, 100, 90)] autorelease];
  EXPECT_EQ([small frame].size.width, 100);
  EXPECT_EQ([picker numberOfComponents], 0);
  EXPECT_EQ([picker selectedRowInComponent:0], -1);
}

TEST_F(UIPickerViewTests, CountsAreAskedForOnceAndAfterAReload) {
  BareWheels *source = [[[BareWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {3, 2});
  EXPECT_EQ(source->log, "") << "nobody wanted to know";
  EXPECT_EQ([picker numberOfComponents], 2);
  EXPECT_EQ([picker numberOfRowsInComponent:0], 3);
  EXPECT_EQ([picker numberOfRowsInComponent:1], 2);
  EXPECT_EQ([picker numberOfRowsInComponent:2], 0);
  EXPECT_EQ([picker numberOfRowsInComponent:-1], 0);
  EXPECT_EQ(std::exchange(source->log, {}), "count0 count1 ");
  [picker reloadComponent:1];
  EXPECT_EQ(std::exchange(source->log, {}), "count1 ");
  [picker reloadAllComponents];
  EXPECT_EQ([picker numberOfComponents], 2);
  EXPECT_EQ(std::exchange(source->log, {}), "count0 count1 ");
}

TEST_F(UIPickerViewTests, CodeSelectsARowWithoutBeingTold) {
  BareWheels *source = [[[BareWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {3, 0});
  EXPECT_EQ([picker selectedRowInComponent:0], 0);
  EXPECT_EQ([picker selectedRowInComponent:1], -1);
  [picker selectRow:2 inComponent:0 animated:YES];
  EXPECT_EQ([picker selectedRowInComponent:0], 2);
  [picker selectRow:3 inComponent:0 animated:NO];
  [picker selectRow:-1 inComponent:0 animated:NO];
  [picker selectRow:0 inComponent:1 animated:NO];
  [picker selectRow:0 inComponent:7 animated:NO];
  EXPECT_EQ([picker selectedRowInComponent:0], 2) << "there are no such rows";
  EXPECT_EQ(source->log, "count0 count1 ");
}

TEST_F(UIPickerViewTests, WhatWasSelectedStaysAsFarAsItIsThere) {
  BareWheels *source = [[[BareWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {5, 5});
  [picker selectRow:4 inComponent:0 animated:NO];
  [picker selectRow:1 inComponent:1 animated:NO];
  source->counts = {3, 3};
  EXPECT_EQ([picker numberOfRowsInComponent:0], 5) << "not before it is loaded anew";
  [picker reloadAllComponents];
  EXPECT_EQ([picker selectedRowInComponent:0], 2);
  EXPECT_EQ([picker selectedRowInComponent:1], 1);
  source->counts = {0, -4};
  [picker reloadComponent:0];
  [picker reloadComponent:1];
  EXPECT_EQ([picker selectedRowInComponent:0], -1);
  EXPECT_EQ([picker numberOfRowsInComponent:1], 0);
  source->counts = {2, 2};
  [picker reloadComponent:0];
  EXPECT_EQ([picker selectedRowInComponent:0], 0);
}

TEST_F(UIPickerViewTests, RowsHaveSizes) {
  UIPickerView *bare = make([[[BareWheels alloc] init] autorelease], {1, 1});
  EXPECT_EQ([bare rowSizeForComponent:0].height, 32);
  EXPECT_EQ([bare rowSizeForComponent:0].width, (320 - 18 - 5) / 2.0);
  EXPECT_EQ([bare rowSizeForComponent:2].width, 0);
  TitledWheels *source = [[[TitledWheels alloc] init] autorelease];
  UIPickerView *sized = make(source, {1, 1});
  EXPECT_EQ([sized rowSizeForComponent:0].width, 120);
  EXPECT_EQ([sized rowSizeForComponent:1].width, (320 - 18 - 5) / 2.0);
  EXPECT_EQ([sized rowSizeForComponent:0].height, 40);
}

TEST_F(UIPickerViewTests, RowsHaveTitles) {
  UIColor *color = nil;
  UIPickerView *bare = make([[[BareWheels alloc] init] autorelease], {3});
  EXPECT_OBJC_EQ([bare sim_titleOfRow:0 inComponent:0 color:&color], @"?");
  UIPickerView *picker = make([[[TitledWheels alloc] init] autorelease], {3});
  EXPECT_OBJC_EQ([picker sim_titleOfRow:0 inComponent:0 color:&color], @"");
  EXPECT_OBJC_EQ([picker sim_titleOfRow:1 inComponent:0 color:&color], @"row 1");
  EXPECT_EQ(color, nil);
  EXPECT_OBJC_EQ([picker sim_titleOfRow:2 inComponent:0 color:&color], @"red");
  EXPECT_OBJC_EQ(color, [UIColor redColor]);
  EXPECT_EQ([picker sim_makeViewForRow:0 inComponent:0], nil);
  EXPECT_EQ([picker sim_shownRowsInComponent:0].length, 3u);
}

TEST_F(UIPickerViewTests, ViewsOfRowsAreMadeAndUsedAgain) {
  ViewWheels *source = [[[ViewWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {200});
  EXPECT_EQ([picker sim_shownRowsInComponent:0].length, 51u);
  UIView *first = [picker sim_makeViewForRow:0 inComponent:0];
  EXPECT_EQ([first frame].size.width, 120) << "one without a size is as large as the row";
  EXPECT_EQ([first frame].size.height, 40);
  EXPECT_EQ([picker viewForRow:0 forComponent:0], first);
  EXPECT_EQ([picker sim_makeViewForRow:0 inComponent:0], first);
  UIView *second = [picker sim_makeViewForRow:1 inComponent:0];
  EXPECT_EQ([second frame].origin.x, 50);
  EXPECT_EQ([second frame].origin.y, 15);
  EXPECT_EQ([picker viewForRow:7 forComponent:0], nil);
  EXPECT_EQ([picker sim_makeViewForRow:200 inComponent:0], nil);
  [picker selectRow:150 inComponent:0 animated:NO];
  UIView *later = [picker sim_makeViewForRow:150 inComponent:0];
  EXPECT_TRUE(later == first || later == second);
  EXPECT_EQ(source->reused, 1);
  EXPECT_EQ([picker viewForRow:0 forComponent:0], nil) << "it shows no more";
}

TEST_F(UIPickerViewTests, ViewsOfRowsStayInTheMiddleOfAWheelThatBecomesWider) {
  WideWheels *source = [[[WideWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {3});
  UIView *row = [picker sim_makeViewForRow:1 inComponent:0];
  EXPECT_EQ([row center].x, 151);
  [picker setFrame:CGRectMake(0, 0, 820, 216)];
  EXPECT_EQ([picker sim_makeViewForRow:1 inComponent:0], row);
  EXPECT_EQ([row center].x, 401);
  EXPECT_EQ([row frame].size.width, 20);
}

TEST_F(UIPickerViewTests, ViewsWithoutASizeFillTheirRowsAlsoWhenTheWheelTurnsWider) {
  WideWheels *source = [[[WideWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {200});
  UIView *row = [picker sim_makeViewForRow:0 inComponent:0];
  EXPECT_EQ([row bounds].size.width, 302);
  [picker setFrame:CGRectMake(0, 0, 820, 216)];
  EXPECT_EQ([picker sim_makeViewForRow:0 inComponent:0], row);
  EXPECT_EQ([row bounds].size.width, 802);
  EXPECT_EQ([row center].x, 401);
  [picker setFrame:CGRectMake(0, 0, 320, 216)];
  [picker selectRow:150 inComponent:0 animated:NO];
  EXPECT_EQ([picker sim_makeViewForRow:150 inComponent:0], row) << "it is used again";
  EXPECT_EQ([row bounds].size.width, 302);
  [row setBounds:CGRectMake(0, 0, 10, 10)];
  EXPECT_EQ([[picker sim_makeViewForRow:150 inComponent:0] bounds].size.width, 10) << "it has a size now";
  [picker setFrame:CGRectMake(0, 0, 820, 216)];
  EXPECT_EQ([[picker sim_makeViewForRow:150 inComponent:0] bounds].size.width, 10);
}

TEST_F(UIPickerViewTests, NothingIsSelectedInAWheelWithoutRows) {
  BareWheels *source = [[[BareWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {0});
  EXPECT_EQ([picker selectedRowInComponent:0], -1);
  source->counts = {2};
  [picker reloadAllComponents];
  EXPECT_EQ([picker selectedRowInComponent:0], 0);
}

TEST_F(UIPickerViewTests, AFingerIsToldOf) {
  BareWheels *source = [[[BareWheels alloc] init] autorelease];
  UIPickerView *picker = make(source, {3});
  (void)[picker numberOfComponents];
  source->log.clear();
  EXPECT_TRUE([picker sim_selectByUser:2 inComponent:0]);
  EXPECT_TRUE([picker sim_selectByUser:2 inComponent:0]);
  EXPECT_EQ(source->log, "selected0.2 ") << "once, as it did not move again";
  EXPECT_FALSE([picker sim_selectByUser:3 inComponent:0]);
  EXPECT_FALSE([picker sim_selectByUser:0 inComponent:1]);
  [picker setUserInteractionEnabled:NO];
  EXPECT_FALSE([picker sim_selectByUser:0 inComponent:0]);
  EXPECT_EQ([picker selectedRowInComponent:0], 2);
}

}  // namespace
