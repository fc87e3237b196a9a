#import "lists/ZunoFavouritesPicker.h"

#import <NorvikAppList/NorvikAppList.h>
#import <QuartzCore/QuartzCore.h>
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include <string_view>

#include "ZunoPrefs/lists/EditorTest.h"

/// A record of an app that has no name, and no icon unless it is given one.
@interface BareRecord : NSObject {
 @private
  UIImage *_icon;
}
@property(nonatomic, retain) UIImage *icon;
- (NSString *)displayName;
- (NSString *)bundleIdentifier;
@end

namespace {

NSString *const kKey = @"FavouriteApplications";

class FavouritesTest : public EditorTest {
 protected:
  /// Installs an app "test.<name>" whose display name is "App <name>".
  void install(NSString *name) {
    NSString *folder = [NSString stringWithFormat:@"/Applications/%@.app", name];
    makeFolder(folder);
    NSDictionary *info = @{
      @"CFBundleIdentifier" : [@"test." stringByAppendingString:name],
      @"CFBundleDisplayName" : [@"App " stringByAppendingString:name]
    };
    ASSERT_TRUE([info writeToFile:[path(folder) stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
  }
  void installAll(std::string_view letters) {
    for (char letter : letters) install([NSString stringWithFormat:@"%c", letter]);
  }
  void store(NSArray *names) {
    NSMutableArray *identifiers = [NSMutableArray array];
    for (NSString *name in names) [identifiers addObject:[@"test." stringByAppendingString:name]];
    writePreferences(kMainFile, @{kKey : identifiers, @"other" : @"kept"});
  }

  /// The editor before the installed apps have arrived.
  Editor *newEditor() {
    id editor =
        [(ZunoFavouritesPicker *)[classNamed("ZunoFavouritesPicker") alloc] initWithIdentifier:@"com.norvik.Zunoprefs"];
    return [(Editor *)editor autorelease];
  }
  /// The editor with the installed apps.
  Editor *loadedEditor() {
    Editor *editor = newEditor();
    SIMDrainMainQueue();
    return editor;
  }
};

TEST_F(FavouritesTest, BeforeTheAppsArriveBothSectionsHaveNoRows) {
  installAll("ab");
  Editor *editor = newEditor();
  EXPECT_OBJC_EQ([editor menuItems], nil);
  EXPECT_EQ(rows(editor, 0), 0);
  EXPECT_EQ(rows(editor, 1), 0);
  EXPECT_EQ([editor numberOfSectionsInTableView:[editor tableView]], 2);
  SIMDrainMainQueue();
  EXPECT_EQ(disabled(editor), "a,b");
}

TEST_F(FavouritesTest, TitlesOfTheSections) {
  Editor *editor = loadedEditor();
  EXPECT_OBJC_EQ([editor tableView:[editor tableView] titleForHeaderInSection:0], @"Enabled - Tap/Drag to disable.");
  EXPECT_OBJC_EQ([editor tableView:[editor tableView] titleForHeaderInSection:1], @"Disabled - Tap/Drag to enable.");
}

TEST_F(FavouritesTest, TheTableIsInEditingModeAndRowsCanBeTapped) {
  installAll("ab");
  store(@[ @"a" ]);
  Editor *editor = loadedEditor();
  UITableView *table = [editor tableView];
  EXPECT_TRUE([table isEditing]);
  EXPECT_TRUE([table allowsSelectionDuringEditing]);
  for (NSInteger section : {0, 1}) {
    EXPECT_EQ([editor tableView:table editingStyleForRowAtIndexPath:at(section, 0)], UITableViewCellEditingStyleNone);
    EXPECT_FALSE([editor tableView:table shouldIndentWhileEditingRowAtIndexPath:at(section, 0)]);
    EXPECT_TRUE([editor tableView:table canEditRowAtIndexPath:at(section, 0)]);
  }
}

TEST_F(FavouritesTest, WithoutAFileEveryAppIsDisabled) {
  installAll("cab");
  Editor *editor = loadedEditor();
  EXPECT_EQ(enabled(editor), "");
  EXPECT_EQ(disabled(editor), "a,b,c");
  EXPECT_EQ(stored(kKey), "none") << "showing writes nothing";
}

TEST_F(FavouritesTest, AnEmptyEnabledSectionShowsAPlaceholderThatDoesNothing) {
  installAll("a");
  Editor *editor = loadedEditor();
  ASSERT_EQ(rows(editor, 0), 1);
  UITableViewCell *placeholder = cell(editor, 0, 0);
  EXPECT_OBJC_EQ([[placeholder textLabel] text], @"No Favourites Are Enabled...");
  EXPECT_OBJC_EQ([[placeholder detailTextLabel] text], @"");
  EXPECT_OBJC_EQ([[placeholder imageView] image], nil);
  EXPECT_FALSE([editor tableView:[editor tableView] canEditRowAtIndexPath:at(0, 0)]);
  tap(editor, 0, 0);
  EXPECT_FALSE(exists(kMainFile)) << "nothing is saved";
}

TEST_F(FavouritesTest, AnEmptyDisabledSectionShowsItsPlaceholder) {
  installAll("a");
  store(@[ @"a" ]);
  Editor *editor = loadedEditor();
  ASSERT_EQ(rows(editor, 1), 1);
  EXPECT_OBJC_EQ([[cell(editor, 1, 0) textLabel] text], @"No Favourites Are Disabled...");
  EXPECT_FALSE([editor tableView:[editor tableView] canEditRowAtIndexPath:at(1, 0)]);
  tap(editor, 1, 0);
  EXPECT_EQ(stored(kKey), "a");
}

TEST_F(FavouritesTest, AnyOtherSectionIsTitledLikeTheDisabledOneAndItsRowsCanBeEdited) {
  expectFurtherSections(newEditor(), 0);
  installAll("abc");
  store(@[ @"a" ]);
  expectFurtherSections(loadedEditor(), 2);
  store(@[ @"a", @"b", @"c" ]);
  expectFurtherSections(loadedEditor(), 1);
}

TEST_F(FavouritesTest, ARowShowsNameWholeIdentifierIconAndShadow) {
  installAll("a");
  Editor *editor = loadedEditor();
  UITableViewCell *row = cell(editor, 1, 0);
  EXPECT_OBJC_EQ([row reuseIdentifier], @"Cell");
  EXPECT_OBJC_EQ([[row textLabel] text], @"App a");
  EXPECT_OBJC_EQ([[row detailTextLabel] text], @"test.a");
  CALayer *layer = [[row imageView] layer];
  EXPECT_FLOAT_EQ([layer shadowOpacity], 0.3f);
  EXPECT_EQ([layer shadowRadius], 1.0);
  EXPECT_EQ([layer shadowOffset].width, 0.0);
  EXPECT_EQ([layer shadowOffset].height, 1.0);
  EXPECT_OBJC_EQ([UIColor colorWithCGColor:[layer shadowColor]], [UIColor grayColor]);
  EXPECT_FALSE([[row imageView] clipsToBounds]);
  EXPECT_EQ([[row imageView] contentMode], UIViewContentModeScaleAspectFit);
}

TEST_F(FavouritesTest, TapMovesToTheEndOfTheOtherSection) {
  installAll("abcd");
  store(@[ @"b", @"a" ]);
  Editor *editor = loadedEditor();
  tap(editor, 0, 0);
  EXPECT_EQ(enabled(editor), "a");
  EXPECT_EQ(disabled(editor), "c,d,b");
  tap(editor, 1, 0);
  EXPECT_EQ(enabled(editor), "a,c");
  EXPECT_EQ(disabled(editor), "d,b");
  EXPECT_EQ(stored(kKey), "a,c");
  EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:@"other"], @"kept");
  EXPECT_TRUE(notifications.empty());
}

TEST_F(FavouritesTest, TappingAFifthEvictsTheFourthToTheEndOfTheDisabled) {
  installAll("abcdef");
  store(@[ @"a", @"b", @"c", @"d" ]);
  Editor *editor = loadedEditor();
  tap(editor, 1, 0);
  EXPECT_EQ(enabled(editor), "a,b,c,e");
  EXPECT_EQ(disabled(editor), "f,d");
  EXPECT_EQ(stored(kKey), "a,b,c,e");
}

TEST_F(FavouritesTest, DraggingWithinASectionTakesTheNewPlace) {
  installAll("abcde");
  store(@[ @"a", @"b", @"c" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(0, 0), at(0, 2));
  EXPECT_EQ(enabled(editor), "b,c,a");
  drag(editor, at(0, 2), at(0, 0));
  EXPECT_EQ(enabled(editor), "a,b,c");
  drag(editor, at(1, 1), at(1, 0));
  EXPECT_EQ(disabled(editor), "e,d");
  EXPECT_EQ(stored(kKey), "a,b,c");
}

TEST_F(FavouritesTest, DraggingToTheDisabledInsertsThere) {
  installAll("abcde");
  store(@[ @"a", @"b" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(0, 0), at(1, 1));
  EXPECT_EQ(enabled(editor), "b");
  EXPECT_EQ(disabled(editor), "c,a,d,e");
}

TEST_F(FavouritesTest, DraggingIntoAnEmptySectionAppendsWhateverTheRow) {
  installAll("ab");
  store(@[ @"a", @"b" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(0, 0), at(1, 1));
  EXPECT_EQ(disabled(editor), "a");
  drag(editor, at(0, 0), at(1, 0));
  EXPECT_EQ(disabled(editor), "b,a");
  EXPECT_EQ(enabled(editor), "");
  drag(editor, at(1, 1), at(0, 1));
  EXPECT_EQ(enabled(editor), "a");
  EXPECT_EQ(stored(kKey), "a");
}

TEST_F(FavouritesTest, DraggingAFifthEvictsTheFourthAndInserts) {
  installAll("abcdef");
  store(@[ @"a", @"b", @"c", @"d" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(1, 0), at(0, 1));
  EXPECT_EQ(enabled(editor), "a,e,b,c");
  EXPECT_EQ(disabled(editor), "f,d");
}

TEST_F(FavouritesTest, DroppingBelowTheFourthIsCutToTheEndAfterTheEviction) {
  installAll("abcdef");
  store(@[ @"a", @"b", @"c", @"d" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(1, 1), at(0, 4));
  EXPECT_EQ(enabled(editor), "a,b,c,f");
  EXPECT_EQ(disabled(editor), "e,d");
  EXPECT_EQ(stored(kKey), "a,b,c,f");
}

TEST_F(FavouritesTest, AnyOtherSectionChangesNothingButIsSaved) {
  installAll("ab");
  store(@[ @"a" ]);
  Editor *editor = loadedEditor();
  drag(editor, at(0, 0), at(2, 0));
  tap(editor, 3, 0);
  EXPECT_EQ(enabled(editor), "a");
  EXPECT_EQ(disabled(editor), "b");
}

TEST_F(FavouritesTest, SixStoredLoadTheFirstFourAndTheNextSaveStoresFour) {
  installAll("abcdef");
  store(@[ @"f", @"e", @"d", @"c", @"b", @"a" ]);
  Editor *editor = loadedEditor();
  EXPECT_EQ(enabled(editor), "f,e,d,c");
  EXPECT_EQ(disabled(editor), "a,b");
  EXPECT_EQ(stored(kKey), "f,e,d,c,b,a") << "loading stores nothing";
  drag(editor, at(0, 0), at(0, 0));
  EXPECT_EQ(stored(kKey), "f,e,d,c");
}

TEST_F(FavouritesTest, AnAppThatIsNotInstalledIsNotShownAndLeavesAtTheNextSave) {
  installAll("ab");
  store(@[ @"gone", @"b" ]);
  Editor *editor = loadedEditor();
  EXPECT_EQ(enabled(editor), "b");
  EXPECT_EQ(stored(kKey), "gone,b");
  tap(editor, 1, 0);
  EXPECT_EQ(stored(kKey), "b,a");
}

TEST_F(FavouritesTest, AStoredListOfTheWrongShapeLosesNothingWhenShown) {
  installAll("ab");
  for (id odd in @[ @"test.a", @{@"test.a" : @1}, @7 ]) {
    writePreferences(kMainFile, @{kKey : odd});
    EXPECT_EQ(enabled(loadedEditor()), "");
    EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:kKey], odd);
  }
  writePreferences(kMainFile, @{kKey : @[ @1, @"test.b", @[ @"test.a" ], @{} ]});
  EXPECT_EQ(enabled(loadedEditor()), "b");
}

TEST_F(FavouritesTest, AFileThatIsNoDictionaryIsNeverWritten) {
  installAll("ab");
  for (const char *content : {"", "damaged", "<plist><array/></plist>"}) {
    write(kMainFile, content);
    Editor *editor = loadedEditor();
    tap(editor, 1, 0);
    EXPECT_EQ(enabled(editor), "a") << "the screen follows";
    EXPECT_EQ(read(kMainFile), content);
  }
  EXPECT_EQ(listing(@"/var/jb/var/mobile/Library/Preferences"), "com.norvik.Zunoprefs.plist");
}

TEST_F(FavouritesTest, WithTheMasterSwitchOffNoFavouritesAreRead) {
  installAll("ab");
  writePreferences(kMainFile, @{@"Enabled" : @0, kKey : @[ @"test.a" ]});
  EXPECT_EQ(enabled(loadedEditor()), "");
}

TEST_F(FavouritesTest, AChangeWhileTheMasterSwitchIsOffReplacesTheStoredList) {
  installAll("abc");
  writePreferences(kMainFile, @{@"Enabled" : @0, kKey : @[ @"test.a", @"test.b" ]});
  Editor *editor = loadedEditor();
  EXPECT_EQ(stored(kKey), "a,b") << "showing keeps it";
  tap(editor, 1, 2);
  EXPECT_EQ(stored(kKey), "c");
}

TEST_F(FavouritesTest, TheFirstChangeMakesAFileWithOnlyTheList) {
  installAll("ab");
  Editor *editor = loadedEditor();
  tap(editor, 1, 1);
  EXPECT_OBJC_EQ(preferences(kMainFile), @{kKey : @[ @"test.b" ]});
}

TEST_F(FavouritesTest, RecordsWithoutANameOrIconAreShownAllTheSame) {
  id editor = newEditor();
  SIMDrainMainQueue();
  [editor setApps:@[ [[[BareRecord alloc] init] autorelease] ]];
  EXPECT_EQ(disabled(editor), "bare");
  UITableViewCell *row = cell(editor, 1, 0);
  EXPECT_OBJC_EQ([[row textLabel] text], nil);
  tap(editor, 1, 0);
  EXPECT_EQ(stored(kKey), "bare");
}

TEST_F(FavouritesTest, TwoRecordsWithOneIdentifierAreBothEnabledAndListedOnce) {
  id editor = newEditor();
  SIMDrainMainQueue();
  NSArray *twins = @[ [[[BareRecord alloc] init] autorelease], [[[BareRecord alloc] init] autorelease] ];
  [editor setApps:twins];
  EXPECT_EQ(disabled(editor), "bare");
  writePreferences(kMainFile, @{kKey : @[ @"test.bare" ]});
  [editor setApps:twins];
  EXPECT_EQ(enabled(editor), "bare,bare");
  EXPECT_EQ(disabled(editor), "");
}

TEST_F(FavouritesTest, TheInstalledAppsAreCopied) {
  installAll("ab");
  NSMutableArray *apps = [NSMutableArray arrayWithObject:[[[BareRecord alloc] init] autorelease]];
  auto *editor = (ZunoFavouritesPicker *)loadedEditor();
  EXPECT_FALSE([[editor appList] isKindOfClass:[NSMutableArray class]]);
  [editor setApps:apps];
  [apps removeAllObjects];
  EXPECT_EQ(joined([editor appList]), "bare");
  EXPECT_FALSE([[editor appList] isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ(joined([editor defaultItems]), "bare");
  EXPECT_EQ(disabled((Editor *)editor), "bare");
}

TEST_F(FavouritesTest, AnotherDomainWithoutAFileStartsEmptyAndOneWithAFileReadsTheMainFile) {
  installAll("ab");
  store(@[ @"a" ]);
  const auto opened = [&] {
    id editor = [(ZunoFavouritesPicker *)[classNamed("ZunoFavouritesPicker") alloc] initWithIdentifier:@"test.other"];
    SIMDrainMainQueue();
    return (Editor *)[editor autorelease];
  };
  EXPECT_EQ(enabled(opened()), "");
  writePreferences(@"/var/jb/var/mobile/Library/Preferences/test.other.plist", @{kKey : @[ @"test.b" ]});
  EXPECT_EQ(enabled(opened()), "a");
}

TEST_F(FavouritesTest, ARowShowsTheIconAndTheWholeIdentifier) {
  auto *editor = (ZunoFavouritesPicker *)loadedEditor();
  BareRecord *app = [[[BareRecord alloc] init] autorelease];
  UIImage *icon = [[[UIImage alloc] init] autorelease];
  [app setIcon:icon];
  [editor setApps:@[ app ]];
  UITableViewCell *row = cell((Editor *)editor, 1, 0);
  EXPECT_EQ([[row imageView] image], icon) << "unchanged";
  EXPECT_OBJC_EQ([[row detailTextLabel] text], @"test.bare");
}

TEST_F(FavouritesTest, ThePlaceholderTakesTheCellThatHeldTheLastApp) {
  auto *editor = (ZunoFavouritesPicker *)loadedEditor();
  BareRecord *app = [[[BareRecord alloc] init] autorelease];
  [app setIcon:[[[UIImage alloc] init] autorelease]];
  [editor setApps:@[ app ]];
  show(editor);
  UITableView *table = [editor tableView];
  [table layoutIfNeeded];
  tap((Editor *)editor, 1, 0);
  [table layoutIfNeeded];
  UITableViewCell *placeholder = [table cellForRowAtIndexPath:at(1, 0)];
  ASSERT_TRUE(placeholder != nil);
  EXPECT_OBJC_EQ([[placeholder textLabel] text], @"No Favourites Are Disabled...");
  EXPECT_OBJC_EQ([[placeholder detailTextLabel] text], @"");
  EXPECT_OBJC_EQ([[placeholder imageView] image], nil);
}

TEST_F(FavouritesTest, APageThatIsLeftBeforeTheAppsArriveLivesUntilThenAndNoLonger) {
  installAll("ab");
  int deaths = 0;
  @autoreleasepool {
    id editor = newEditor();
    [editor setPrefsIdentifier:(id)[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
  }
  EXPECT_EQ(deaths, 0) << "the request for the apps holds the editor";
  @autoreleasepool {
    SIMDrainMainQueue();
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(FavouritesTest, TheEditorGoesAwayWithItsPage) {
  installAll("ab");
  int deaths = 0;
  @autoreleasepool {
    Editor *editor = loadedEditor();
    (void)[editor view];
    Lifetime *witness = [[[Lifetime alloc] initWithCounter:&deaths] autorelease];
    [(NSMutableArray *)[editor menuItems] addObject:(id)witness];
  }
  EXPECT_EQ(deaths, 1);
}

}  // namespace

@implementation BareRecord

@synthesize icon = _icon;

- (void)dealloc {
  [_icon release];
  [super dealloc];
}

- (NSString *)displayName {
  return nil;
}

- (NSString *)bundleIdentifier {
  return @"test.bare";
}

@end
