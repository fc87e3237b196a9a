// What rows are known again by: their specifiers, or what they show.
#include "Settings/RowTraits.h"

#import <Preferences/Preferences.h>
#import <UIKit/UIKit.h>
#include <gtest/gtest.h>
#include <objcxx/Retained.h>

namespace {
int freedSpecifiers = 0;
}

@interface CountedSpecifier : PSSpecifier
@end

@implementation CountedSpecifier

- (void)dealloc {
  ++freedSpecifiers;
  [super dealloc];
}

@end

/// A cell of an app's own.
@interface AppCell : UITableViewCell
@end

@implementation AppCell
@end

/// A table of one row, that shows `text` in a cell of the class `kind`.
@interface OneRow : NSObject <UITableViewDataSource> {
 @public
  Class kind;
  NSString *text;
}
@end

@implementation OneRow

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return 1;
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [[[kind alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil] autorelease];
  [[cell textLabel] setText:text];
  return cell;
}

@end

/// A page with one row, of a specifier that `identifier` names.
@interface OneSpecifierPage : PSListController {
 @public
  NSString *identifier;
}
@end

@implementation OneSpecifierPage

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  PSSpecifier *specifier = [CountedSpecifier preferenceSpecifierNamed:@"Row"
                                                               target:self
                                                                  set:NULL
                                                                  get:NULL
                                                               detail:Nil
                                                                 cell:PSStaticTextCell
                                                                 edit:Nil];
  [specifier setIdentifier:identifier];
  _specifiers = [@[ specifier ] copy];
  return _specifiers;
}

@end

namespace sim {
namespace {

NSIndexPath *first() { return [NSIndexPath indexPathForRow:0 inSection:0]; }

RowTraits traitsOfText(NSString *text, Class kind = [UITableViewCell class]) {
  const auto source = objcxx::adopt([[OneRow alloc] init]);
  source.get()->kind = kind;
  source.get()->text = text;
  const auto table = objcxx::adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 480)]);
  [table.get() setDataSource:source.get()];
  [table.get() reloadData];
  return traitsOfRow(table.get(), first());
}

RowTraits traitsOfSpecifier(NSString *identifier) {
  const auto page = objcxx::adopt([[OneSpecifierPage alloc] init]);
  page.get()->identifier = identifier;
  [page.get() loadViewIfNeeded];
  [[page.get() table] reloadData];
  return traitsOfRow([page.get() table], first());
}

TEST(RowTraitsTest, ARowIsKnownByTheClassOfItsCellAndItsTexts) {
  const RowTraits traits = traitsOfText(@"Name");
  EXPECT_EQ(traits.shown, traitsOfText(@"Name").shown);
  EXPECT_EQ(traits.label, traitsOfText(@"Name").label);
  EXPECT_EQ(traits.model, nullptr);
  EXPECT_NE(traits.shown, traitsOfText(@"Other").shown);
  EXPECT_NE(traits.label, traitsOfText(@"Other").label);
  EXPECT_NE(traits.shown, traitsOfText(@"Name", [AppCell class]).shown);
  EXPECT_NE(traits.label, traitsOfText(@"Name", [AppCell class]).label);
}

TEST(RowTraitsTest, ALabelWithoutTextTellsNothing) { EXPECT_EQ(traitsOfText(@"").label, ""); }

TEST(RowTraitsTest, ASpecifierIsNeverTakenForWhatARowShows) {
  const RowTraits shown = traitsOfText(@"Name");
  const RowTraits traits = traitsOfSpecifier([NSString stringWithUTF8String:shown.shown.c_str()]);
  EXPECT_NE(traits.shown, shown.shown);
  EXPECT_NE(traits.model, nullptr);
  EXPECT_EQ(traits.label, "");
}

TEST(RowTraitsTest, ASpecifierLivesAsLongAsItsRowIsKnownByIt) {
  @autoreleasepool {
    freedSpecifiers = 0;
    RowTraits traits;
    @autoreleasepool {
      traits = traitsOfSpecifier(@"row");
    }
    EXPECT_EQ(freedSpecifiers, 0);
    traits = {};
  }
  EXPECT_EQ(freedSpecifiers, 1);
}

}  // namespace
}  // namespace sim
