#import "lists/ZunoWidgetsPicker.h"

#import <QuartzCore/QuartzCore.h>

#import "core/ZunoprefsRootListController.h"
#import "widgets/ZunoWidgetHolder.h"
#import "widgets/ZunoWidgetLoader.h"

#include <string>
#include <vector>

#include "ZunoPrefs/support/WidgetTest.h"
#include "support/objc/MethodSpy.h"

namespace {

NSString *const kKey = @"EnabledWidgets";

class WidgetsPickerTest : public WidgetTest {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    makeFolder(kWidgetsFolder);
  }
  Editor *editor() {
    id editor =
        [(ZunoWidgetsPicker *)[classNamed("ZunoWidgetsPicker") alloc] initWithIdentifier:@"com.norvik.Zunoprefs"];
    return [(Editor *)editor autorelease];
  }
  void installFive() {
    installWidget(@"a", @"FixtureWidget");
    for (NSString *name in @[ @"b", @"c", @"d", @"e" ]) installWidget(name, @"FixtureOtherWidget");
  }
  void store(NSArray *identifiers) { writePreferences(kMainFile, @{kKey : identifiers, @"other" : @"kept"}); }
  static bool contains(const std::string &list, const std::string &entry) {
    return ("," + list + ",").find("," + entry + ",") != std::string::npos;
  }
};

TEST_F(WidgetsPickerTest, IsCompleteWhenItIsMade) {
  Editor *picker = editor();
  EXPECT_EQ(enabled(picker), "KRBFavouritesView,KRBMusicView");
  EXPECT_EQ(disabled(picker), "");
  EXPECT_OBJC_EQ([[cell(picker, 1, 0) textLabel] text], @"No Widgets Are Disabled...");
  EXPECT_FALSE(exists(kMainFile)) << "showing writes nothing";
}

TEST_F(WidgetsPickerTest, TheDefaultListShowsItsWidgetOnlyWhenItIsInstalled) {
  installWidget(@"x", @"FixtureWidget", @{@"CFBundleIdentifier" : @"com.norvik.Zunowidgets.siri"});
  installWidget(@"y", @"FixtureOtherWidget");
  Editor *picker = editor();
  EXPECT_EQ(enabled(picker), "com.norvik.Zunowidgets.siri,KRBFavouritesView,KRBMusicView");
  EXPECT_EQ(disabled(picker), "y");
}

TEST_F(WidgetsPickerTest, TheFirstChangeStoresOnlyWhatIsShown) {
  Editor *picker = editor();
  drag(picker, at(0, 0), at(0, 1));
  EXPECT_EQ(stored(kKey), "KRBMusicView,KRBFavouritesView");
}

TEST_F(WidgetsPickerTest, BuiltInPagesComeFirstAndAreMadeAnewOnEachCall) {
  installWidget(@"a", @"FixtureWidget");
  Editor *picker = editor();
  NSArray *first = [picker defaultItems];
  EXPECT_EQ(joined(first), "KRBMusicView,KRBFavouritesView,a");
  EXPECT_OBJC_EQ([(ZunoWidgetHolder *)[first objectAtIndex:0] displayName], @"Music View");
  EXPECT_OBJC_EQ([(ZunoWidgetHolder *)[first objectAtIndex:1] displayName], @"Favourites View");
  NSArray *second = [picker defaultItems];
  EXPECT_NE([first objectAtIndex:0], [second objectAtIndex:0]);
  EXPECT_EQ([first objectAtIndex:2], [second objectAtIndex:2]);
}

TEST_F(WidgetsPickerTest, RowsShowTheNameAndNothingElse) {
  installWidget(@"a", @"FixtureWidget", @{@"CFBundleDisplayName" : [NSNull null]});
  Editor *picker = editor();
  UITableViewCell *named = cell(picker, 0, 0);
  EXPECT_OBJC_EQ([[named textLabel] text], @"Favourites View");
  EXPECT_EQ([[[named detailTextLabel] text] length], 0u);
  EXPECT_OBJC_EQ([[named imageView] image], nil);
  EXPECT_FLOAT_EQ([[[named imageView] layer] shadowOpacity], 0.3f);
  EXPECT_OBJC_EQ([[cell(picker, 1, 0) textLabel] text], nil);
}

TEST_F(WidgetsPickerTest, AnEmptyEnabledSectionShowsAPlaceholderThatDoesNothing) {
  store(@[]);
  Editor *picker = editor();
  ASSERT_EQ(rows(picker, 0), 1);
  EXPECT_OBJC_EQ([[cell(picker, 0, 0) textLabel] text], @"No Widgets Are Enabled...");
  EXPECT_FALSE([picker tableView:[picker tableView] canEditRowAtIndexPath:at(0, 0)]);
  tap(picker, 0, 0);
  EXPECT_EQ(stored(kKey), "");
  EXPECT_EQ(disabled(picker), "KRBMusicView,KRBFavouritesView");
}

TEST_F(WidgetsPickerTest, AnyOtherSectionIsTitledLikeTheDisabledOneAndItsRowsCanBeEdited) {
  expectFurtherSections(editor(), 1);
  store(@[]);
  expectFurtherSections(editor(), 2);
}

TEST_F(WidgetsPickerTest, TapsEnableAnyNumber) {
  installFive();
  store(@[ @"KRBMusicView", @"KRBFavouritesView", @"test.a", @"test.b" ]);
  Editor *picker = editor();
  tap(picker, 1, 0);
  tap(picker, 1, 0);
  EXPECT_EQ([[picker menuItems] count], 6u);
  EXPECT_EQ([[picker menuItemsDisabled] count], 1u);
  EXPECT_EQ([[preferences(kMainFile) objectForKey:kKey] count], 6u);
  EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:@"other"], @"kept");
  EXPECT_EQ([[editor() menuItems] count], 6u) << "all of them load again";
}

TEST_F(WidgetsPickerTest, ADragIntoFourOrMoreDropsTheLastUntilTheEditorIsOpenedAgain) {
  installFive();
  store(@[ @"KRBMusicView", @"test.a", @"test.b", @"test.c" ]);
  Editor *picker = editor();
  const std::string first = joined([[picker menuItemsDisabled] subarrayWithRange:NSMakeRange(0, 1)]);
  drag(picker, at(1, 0), at(0, 1));
  EXPECT_EQ(enabled(picker), "KRBMusicView," + first + ",a,b");
  EXPECT_FALSE(contains(disabled(picker), "c")) << "it is gone from both sections";
  EXPECT_FALSE(contains(stored(kKey), "c"));
  EXPECT_TRUE(contains(disabled(editor()), "c")) << "and back when the editor is opened again";
}

TEST_F(WidgetsPickerTest, DroppingBelowTheLastIsCutToTheEndAfterTheEviction) {
  installFive();
  store(@[ @"KRBMusicView", @"test.a", @"test.b", @"test.c", @"test.d" ]);
  Editor *picker = editor();
  const std::string first = joined([[picker menuItemsDisabled] subarrayWithRange:NSMakeRange(0, 1)]);
  drag(picker, at(1, 0), at(0, 5));
  EXPECT_EQ(enabled(picker), "KRBMusicView,a,b,c," + first);
}

TEST_F(WidgetsPickerTest, ADragIntoFourStoresWithoutTheEvicted) {
  installFive();
  store(@[ @"KRBMusicView", @"KRBFavouritesView", @"test.a", @"test.b" ]);
  Editor *picker = editor();
  const NSUInteger others = [[picker menuItemsDisabled] count];
  drag(picker, at(1, 0), at(0, 0));
  EXPECT_EQ([[picker menuItems] count], 4u);
  EXPECT_EQ([[picker menuItemsDisabled] count], others - 1);
  EXPECT_FALSE(contains(stored(kKey), "b"));
}

TEST_F(WidgetsPickerTest, AUsedCellKeepsTheEmptyDetailOfAPlaceholder) {
  store(@[]);
  Editor *picker = editor();
  show(picker);
  UITableView *table = [picker tableView];
  [table layoutIfNeeded];
  tap(picker, 1, 0);
  [table layoutIfNeeded];
  UITableViewCell *row = [table cellForRowAtIndexPath:at(0, 0)];
  EXPECT_OBJC_EQ([[row textLabel] text], @"Music View");
  EXPECT_EQ([[[row detailTextLabel] text] length], 0u);
  EXPECT_OBJC_EQ([[row imageView] image], nil);
}

TEST_F(WidgetsPickerTest, TheWidgetsAreThoseOfTheSharedLoaderLoadedAnew) {
  auto *first = (ZunoWidgetsPicker *)editor();
  EXPECT_OBJC_EQ([first widgetsList], @[]);
  installWidget(@"a", @"FixtureWidget");
  auto *second = (ZunoWidgetsPicker *)editor();
  EXPECT_EQ(joined([second widgetsList]), "a");
  EXPECT_EQ([second widgetsList], [[(Class)classNamed("ZunoWidgetLoader") sharedInstance] loadedWidgets]);
  EXPECT_EQ(joined([first widgetsList]), "") << "an editor keeps its own";
}

TEST_F(WidgetsPickerTest, TheWidgetsAreLoadedOnceTheIdentifierIsKnown) {
  std::vector<std::string> identifiers;
  const MethodSpy<> load(classNamed("ZunoWidgetsPicker"), @selector(loadWidgets),
                         [&](id picker) { identifiers.emplace_back([[picker prefsIdentifier] UTF8String] ?: "none"); });
  editor();
  EXPECT_EQ(identifiers, std::vector<std::string>{"com.norvik.Zunoprefs"});
}

TEST_F(WidgetsPickerTest, TheEditorGoesAwayWithItsPage) {
  int deaths = 0;
  @autoreleasepool {
    Editor *picker = editor();
    show(picker);
    [(NSMutableArray *)[picker menuItemsDisabled] addObject:[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
    show([[[UIViewController alloc] init] autorelease]);
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(WidgetsPickerTest, StoredDuplicatesAndUnknownIdentifiers) {
  installWidget(@"a", @"FixtureWidget");
  store(@[ @"test.a", @"test.a", @"test.gone", @3, @"KRBMusicView" ]);
  Editor *picker = editor();
  EXPECT_EQ(enabled(picker), "a,a,KRBMusicView");
  EXPECT_EQ(disabled(picker), "KRBFavouritesView");
}

TEST_F(WidgetsPickerTest, AStoredValueThatIsNoListEnablesNothingAndIsKept) {
  writePreferences(kMainFile, @{kKey : @"KRBMusicView"});
  Editor *picker = editor();
  EXPECT_EQ(enabled(picker), "");
  EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:kKey], @"KRBMusicView");
}

TEST_F(WidgetsPickerTest, WithTheMasterSwitchOffTheDefaultListIsShown) {
  writePreferences(kMainFile, @{@"Enabled" : @0, kKey : @[]});
  EXPECT_EQ(enabled(editor()), "KRBFavouritesView,KRBMusicView");
}

TEST_F(WidgetsPickerTest, AChangeWhileTheMasterSwitchIsOffReplacesTheStoredList) {
  writePreferences(kMainFile, @{@"Enabled" : @0, kKey : @[ @"KRBMusicView" ]});
  Editor *picker = editor();
  EXPECT_EQ(stored(kKey), "KRBMusicView") << "showing keeps it";
  tap(picker, 0, 1);
  EXPECT_EQ(stored(kKey), "KRBFavouritesView");
}

TEST_F(WidgetsPickerTest, AFileThatIsNoDictionaryIsNotWritten) {
  write(kMainFile, "damaged");
  Editor *picker = editor();
  tap(picker, 0, 0);
  EXPECT_EQ(enabled(picker), "KRBMusicView");
  EXPECT_EQ(read(kMainFile), "damaged");
}

TEST_F(WidgetsPickerTest, TheRootPagesFavouritesRowsFollow) {
  auto *page = [[(ZunoprefsRootListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  UINavigationController *navigation = show(page);
  const auto hasRow = [&] { return [page specifierForID:@"SelectFavourites"] != nil; };
  EXPECT_TRUE(hasRow());
  for (const bool wanted : {false, true}) {
    [page selectWidgets];
    auto *picker = (Editor *)[navigation topViewController];
    const auto section = static_cast<NSInteger>(wanted);
    NSArray *list = wanted ? [picker menuItemsDisabled] : [picker menuItems];
    for (NSUInteger row = 0; row < [list count]; ++row) {
      if ([[[list objectAtIndex:row] bundleIdentifier] isEqualToString:@"KRBFavouritesView"]) {
        tap(picker, section, static_cast<NSInteger>(row));
        break;
      }
    }
    [navigation popViewControllerAnimated:YES];
    EXPECT_EQ(hasRow(), wanted);
  }
}

}  // namespace
