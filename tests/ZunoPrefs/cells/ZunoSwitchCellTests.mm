// A switch over values that are none.
#import "cells/ZunoSwitchCell.h"

#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>

#include <cmath>
#include <string>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

constexpr double kInfinity = HUGE_VAL;

class SwitchCellTest : public BundleTest {
 protected:
  ZunoSwitchCell *cell(NSDictionary *properties) {
    return [[(ZunoSwitchCell *)[classNamed("ZunoSwitchCell") alloc]
          initWithStyle:UITableViewCellStyleDefault
        reuseIdentifier:@"Switch"
              specifier:rowNamed(@"Enabled", PSSwitchCell, properties)] autorelease];
  }
  static std::string text(id value) { return [[value description] UTF8String]; }
  /// Whether the switch stands on for `value` where the default is `initial`.
  bool shows(id value, id initial) {
    ZunoSwitchCell *made = cell(initial ? @{@"default" : initial} : @{});
    [made setValue:value];
    return [(UISwitch *)[made control] isOn];
  }
};

TEST_F(SwitchCellTest, IsOnForEveryNumberButZero) {
  for (id value : @[ @1, @2, @-1, @0.25, [NSNumber numberWithBool:YES] ]) EXPECT_TRUE(shows(value, @0)) << text(value);
  for (id value : @[ @0, @0.0, @-0.0, [NSNumber numberWithBool:NO] ]) EXPECT_FALSE(shows(value, @1)) << text(value);
}

TEST_F(SwitchCellTest, WhatIsNoFiniteNumberShowsAsTheDefault) {
  for (id value : @[ @(NAN), @(kInfinity), @(-kInfinity), @"1", @"", @[ @1 ], @{}, [NSData data], [NSDate date] ]) {
    EXPECT_TRUE(shows(value, @1)) << text(value);
    EXPECT_FALSE(shows(value, @0)) << text(value);
    EXPECT_FALSE(shows(value, nil)) << text(value);
  }
  EXPECT_TRUE(shows(nil, @1));
  EXPECT_FALSE(shows(@(NAN), @(NAN))) << "nor is such a default one";
  EXPECT_FALSE(shows(@"1", @"1"));
}

TEST_F(SwitchCellTest, TheSwitchesOfTheThemePageStandAsTheirRowsAreTaken) {
  for (id value : @[ @(NAN), @"1", @[ @1 ], @0.25 ]) {
    writePreferences(kThemeFile, @{@"enabled" : value, @"useCustom" : value});
    PSListController *page =
        [[(PSListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
    (void)show(page);
    const bool isOn = [value isEqual:@0.25];
    for (NSString *key in @[ @"enabled", @"useCustom" ]) {
      PSControlTableCell *row = (PSControlTableCell *)[page cachedCellForSpecifierID:key];
      EXPECT_EQ(bool([(UISwitch *)[row control] isOn]), isOn) << [key UTF8String] << " " << text(value);
    }
    EXPECT_EQ(bool([[[page specifierForID:@"blurRadius"] propertyForKey:@"enabled"] ?: @1 boolValue]), isOn)
        << text(value);
  }
}

}  // namespace
