// What makers' pages use beyond the plain list: editing, aligned footers and footers with a link, sliders with steps.
#import <Preferences/Preferences.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface EditablePage : PSEditableListController {
 @public
  NSMutableArray *deleted;
}
@end

@implementation EditablePage
- (NSMutableArray *)specifiers {
  if (_specifiers) return _specifiers;
  deleted = deleted ?: [[NSMutableArray alloc] init];
  _specifiers = [[NSMutableArray alloc] init];
  for (NSString *name in @[ @"A", @"B", @"C" ]) {
    PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:name
                                                      target:self
                                                         set:nullptr
                                                         get:nullptr
                                                      detail:Nil
                                                        cell:PSTitleValueCell
                                                        edit:Nil];
    [row setIdentifier:name];
    if (![name isEqualToString:@"C"]) [row setProperty:@"deleteRow:" forKey:PSDeletionActionKey];
    [_specifiers addObject:row];
  }
  return _specifiers;
}
- (void)deleteRow:(PSSpecifier *)row {
  [deleted addObject:[row name]];
}
- (void)dealloc {
  [deleted release];
  [super dealloc];
}
@end

@interface LinkTarget : NSObject {
 @public
  int calls;
}
@end

@implementation LinkTarget
- (void)follow {
  ++calls;
}
@end

namespace {

class MakersPagesTests : public PreferencesTest {
 protected:
  static NSDictionary *row(NSString *name) { return @{@"cell" : @"PSTitleValueCell", @"label" : name, @"id" : name}; }
  static NSDictionary *group() { return @{@"cell" : @"PSGroupCell"}; }
  static PSSpecifier *plain(NSString *name) {
    PSSpecifier *made = [PSSpecifier preferenceSpecifierNamed:name
                                                       target:nullptr
                                                          set:nullptr
                                                          get:nullptr
                                                       detail:Nil
                                                         cell:PSTitleValueCell
                                                         edit:Nil];
    [made setIdentifier:name];
    return made;
  }
  static UIView *footer(PSListController *page, NSInteger section = 0) {
    return [page tableView:[page table] viewForFooterInSection:section];
  }
};

TEST_F(MakersPagesTests, SpecifiersAreFoundByTheirIdentifiersTogether) {
  TestPage *page = showPage(@[ group(), row(@"a"), row(@"b"), row(@"c") ]);
  NSArray *found = [page specifiersForIDs:@[ @"c", @"none", @"a" ]];
  ASSERT_EQ([found count], 2u);
  EXPECT_EQ([found objectAtIndex:0], [page specifierForID:@"c"]);
  EXPECT_EQ([found objectAtIndex:1], [page specifierForID:@"a"]);
}

TEST_F(MakersPagesTests, SeveralAreInsertedAtTheEndOfAGroup) {
  TestPage *page = showPage(@[ group(), row(@"a"), group(), row(@"z") ]);
  [page insertContiguousSpecifiers:@[ plain(@"b"), plain(@"c") ] atEndOfGroup:0 animated:YES];
  EXPECT_EQ([page indexOfSpecifierID:@"b"], 2);
  EXPECT_EQ([page indexOfSpecifierID:@"c"], 3);
  EXPECT_EQ([[page table] numberOfRowsInSection:0], 3);
  [page insertContiguousSpecifiers:@[ plain(@"y") ] atEndOfGroup:1];
  EXPECT_EQ([page indexOfSpecifierID:@"y"], 6);
  EXPECT_EQ(raisedBy([&] { [page insertContiguousSpecifiers:@[] atEndOfGroup:9]; }), "NSRangeException");
}

TEST_F(MakersPagesTests, ClearingTheCachePartsRowsFromTheirCells) {
  TestPage *page = showPage(@[ group(), row(@"a") ]);
  ASSERT_NE(cell(page, @"a"), nil);
  [cell(page, @"a") setTag:7];
  [[page specifierForID:@"a"] setName:@"renamed"];
  [page clearCache];
  EXPECT_EQ(text([cell(page, @"a") title]), "renamed");
}

TEST_F(MakersPagesTests, TheTableIsReachedAsTheInstanceVariableOfADevice) {
  TestPage *page = showPage(@[ group() ]);
  EXPECT_EQ([page valueForKey:@"_table"], [page table]);
  EXPECT_NE([page table], nil);
}

TEST_F(MakersPagesTests, PropertiesCanBeSetTogether) {
  PSSpecifier *specifier = plain(@"a");
  NSMutableDictionary *properties = [NSMutableDictionary dictionaryWithObject:@"v" forKey:@"k"];
  [specifier setProperties:properties];
  [properties setObject:@"other" forKey:@"k"];
  EXPECT_OBJC_EQ([specifier propertyForKey:@"k"], @"v");
  [specifier setProperty:@1 forKey:@"n"];
  EXPECT_OBJC_EQ([specifier properties], (@{@"k" : @"v", @"n" : @1}));
}

TEST_F(MakersPagesTests, AnEditablePageDeletesTheRowsThatSayHow) {
  EditablePage *page = [[[EditablePage alloc] init] autorelease];
  show(page);
  UIBarButtonItem *edit = [[page navigationItem] rightBarButtonItem];
  ASSERT_NE(edit, nil);
  EXPECT_FALSE([page editable]);
  [page editDoneTapped];
  EXPECT_TRUE([page editable]);
  EXPECT_TRUE([[page table] isEditing]);
  EXPECT_NE([[page navigationItem] rightBarButtonItem], edit) << "It is Done now.";
  NSIndexPath *first = [page indexPathForSpecifier:[page specifierForID:@"A"]];
  NSIndexPath *last = [page indexPathForSpecifier:[page specifierForID:@"C"]];
  EXPECT_EQ([page tableView:[page table] editingStyleForRowAtIndexPath:first], UITableViewCellEditingStyleDelete);
  EXPECT_FALSE([page tableView:[page table] canEditRowAtIndexPath:last]);
  [page tableView:[page table] commitEditingStyle:UITableViewCellEditingStyleDelete forRowAtIndexPath:first];
  EXPECT_OBJC_EQ(page->deleted, @[ @"A" ]);
  EXPECT_EQ([page specifierForID:@"A"], nil);
  EXPECT_FALSE([page performDeletionActionForSpecifier:[page specifierForID:@"C"]]);
  [page setEditButtonEnabled:NO];
  EXPECT_FALSE([[[page navigationItem] rightBarButtonItem] isEnabled]);
  [page setEditingButtonHidden:YES animated:NO];
  EXPECT_EQ([[page navigationItem] rightBarButtonItem], nil);
  [page setEditable:NO];
  EXPECT_FALSE([[page table] isEditing]);
  EXPECT_EQ([[page navigationItem] rightBarButtonItem], nil) << "A hidden button stays hidden.";
}

TEST_F(MakersPagesTests, AFooterIsAligned) {
  for (id centre in (@[ @1, @"1", @"center" ])) {
    TestPage *page = showPage(
        @[ @{@"cell" : @"PSGroupCell", @"footerText" : @"A footer", @"footerAlignment" : centre}, row(@"a"), group() ]);
    UIView *view = footer(page);
    ASSERT_NE(view, nil);
    UILabel *label = (UILabel *)[[view subviews] objectAtIndex:0];
    EXPECT_OBJC_EQ([label text], @"A footer");
    EXPECT_EQ([label textAlignment], NSTextAlignmentCenter);
    EXPECT_GT([page tableView:[page table] heightForFooterInSection:0], 20);
    EXPECT_EQ(footer(page, 1), nil);
  }
}

TEST_F(MakersPagesTests, AFootersLinkIsFollowed) {
  LinkTarget *target = [[[LinkTarget alloc] init] autorelease];
  TestPage *page = showPage(@[ group(), row(@"a") ]);
  PSSpecifier *group = [PSSpecifier emptyGroupSpecifier];
  [group setProperty:@"PSFooterHyperlinkView" forKey:PSFooterCellClassGroupKey];
  [group setProperty:@"See the site." forKey:@"footerHyperlinkView_title"];
  [group setProperty:NSStringFromRange(NSMakeRange(4, 8)) forKey:@"footerHyperlinkView_linkRange"];
  [group setProperty:[NSValue valueWithNonretainedObject:target] forKey:@"footerHyperlinkView_target"];
  [group setProperty:@"follow" forKey:@"footerHyperlinkView_action"];
  [page setSpecifiers:@[ group, plain(@"b") ]];
  auto *view = (PSFooterHyperlinkView *)footer(page);
  ASSERT_TRUE([view isKindOfClass:[PSFooterHyperlinkView class]]);
  EXPECT_EQ([view linkRange].location, 4u);
  [view setFrame:CGRectMake(0, 0, 300, [view preferredHeightForWidth:300])];
  [view layoutIfNeeded];
  UIButton *button = (UIButton *)[[view subviews] objectAtIndex:1];
  EXPECT_OBJC_EQ([button accessibilityLabel], @"the site");
  EXPECT_GT([button frame].size.height, 10);
  [button sendActionsForControlEvents:UIControlEventTouchUpInside];
  EXPECT_EQ(target->calls, 1);
  [view setLinkRange:NSMakeRange(4, 99)];
  EXPECT_OBJC_EQ([button accessibilityLabel], @"the site.") << "as far as there is text";
  [view setText:nil];
  EXPECT_TRUE([button isHidden]);
}

TEST_F(MakersPagesTests, SlidersUnderstandTextAndHaveSteps) {
  TestPage *page = showPage(@[
    group(), @{
      @"cell" : @"PSSliderCell",
      @"id" : @"s",
      @"key" : @"s",
      @"min" : @"0",
      @"max" : @"10.0",
      @"default" : @"7.5",
      @"defaults" : @"com.example",
      @"isSegmented" : @(YES),
      @"segmentCount" : @5
    }
  ]);
  auto *row = (PSControlTableCell *)cell(page, @"s");
  auto *slider = (UISlider *)[row control];
  EXPECT_EQ([slider minimumValue], 0);
  EXPECT_EQ([slider maximumValue], 10);
  EXPECT_EQ([slider value], 8);
  [slider setValue:4.9];
  [slider sendActionsForControlEvents:UIControlEventValueChanged];
  EXPECT_EQ([slider value], 4);
  EXPECT_OBJC_EQ([row controlValue], @4.0f);
  EXPECT_EQ(logged("is no number"), 0);
}

TEST_F(MakersPagesTests, ASliderOfNoSegmentsTakesEveryValue) {
  TestPage *page = showPage(@[
    group(), @{
      @"cell" : @"PSSliderCell",
      @"id" : @"s",
      @"key" : @"s",
      @"min" : @0,
      @"max" : @10,
      @"default" : @7.5,
      @"defaults" : @"com.example",
      @"isSegmented" : @(YES),
      @"segmentCount" : @0
    }
  ]);
  EXPECT_EQ([(UISlider *)[(PSControlTableCell *)cell(page, @"s") control] value], 7.5);
}

}  // namespace
