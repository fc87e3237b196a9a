// What the two list editors have in common, tried on both, with records of the test's own.
#import <QuartzCore/QuartzCore.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>

#import "lists/ZunoFavouritesPicker.h"
#import "lists/ZunoWidgetsPicker.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ZunoPrefs/lists/EditorTest.h"

/// A record of either editor. Two records are equal when their identifiers are.
@interface ListRecord : NSObject {
 @private
  NSString *_bundleIdentifier;
  UIImage *_icon;
}
@property(nonatomic, copy) NSString *bundleIdentifier;
@property(nonatomic, retain) UIImage *icon;
- (NSString *)displayName;
@end

/// A table view that counts how often it is reloaded and tells what was animated.
@interface WatchedTable : UITableView {
 @public
  int reloads;
  std::vector<std::string> calls;
  std::function<void()> onReload;
}
@end

/// A table view with one cell to use again.
@interface UsedCellTable : UITableView {
 @public
  UITableViewCell *cell;  // Not owned.
}
@end

namespace {

struct EditorKind {
  const char *className;
  NSString *key;
  bool evictedIsDisabled;
};

class ListEditorsTest : public EditorTest, public ::testing::WithParamInterface<EditorKind> {
 protected:
  void SetUp() override {
    EditorTest::SetUp();
    makeFolder(@"/var/jb/Library/Zuno/Widgets");
  }

  Editor *newEditor(NSString *identifier = @"com.norvik.Zunoprefs") {
    id editor = [classNamed(GetParam().className) alloc];
    editor = [[editor initWithIdentifier:identifier] autorelease];
    SIMDrainMainQueue();
    return editor;
  }

  static ListRecord *record(char letter) {
    ListRecord *record = [[[ListRecord alloc] init] autorelease];
    [record setBundleIdentifier:[NSString stringWithFormat:@"test.%c", letter]];
    return record;
  }
  static NSMutableArray *records(std::string_view letters) {
    NSMutableArray *list = [NSMutableArray array];
    for (char letter : letters) [list addObject:record(letter)];
    return list;
  }

  /// An editor whose sections hold records with these identifiers, one letter each.
  Editor *editorShowing(std::string_view enabled, std::string_view disabled) {
    id editor = newEditor();
    [editor setMenuItems:records(enabled)];
    [editor setMenuItemsDisabled:records(disabled)];
    return editor;
  }

  /// Gives the editor a table view that is watched.
  static WatchedTable *watch(Editor *editor) {
    auto *table = [[[WatchedTable alloc] initWithFrame:CGRectMake(0, 0, 320, 2000)
                                                 style:UITableViewStylePlain] autorelease];
    [table setDataSource:editor];
    [table setDelegate:editor];
    [editor setTableView:table];
    table->reloads = 0;
    table->calls.clear();
    return table;
  }

  std::string saved() { return stored(GetParam().key); }
};

TEST_P(ListEditorsTest, ADragIntoFewerThanFourEvictsNothing) {
  Editor *editor = editorShowing("abc", "de");
  drag(editor, at(1, 0), at(0, 1));
  EXPECT_EQ(enabled(editor), "a,d,b,c");
  EXPECT_EQ(disabled(editor), "e");
  EXPECT_EQ(saved(), "a,d,b,c");
}

TEST_P(ListEditorsTest, ADragIntoFourEvictsTheLastFirst) {
  Editor *editor = editorShowing("abcd", "ef");
  drag(editor, at(1, 0), at(0, 3));
  EXPECT_EQ(enabled(editor), "a,b,c,e");
  EXPECT_EQ(disabled(editor), GetParam().evictedIsDisabled ? "f,d" : "f");
}

TEST_P(ListEditorsTest, ADragOutOfFourEvictsNothing) {
  Editor *editor = editorShowing("abcd", "ef");
  drag(editor, at(0, 0), at(1, 1));
  EXPECT_EQ(enabled(editor), "b,c,d");
  EXPECT_EQ(disabled(editor), "e,a,f");
}

TEST_P(ListEditorsTest, EqualRecordsAreEvictedTogether) {
  Editor *editor = editorShowing("abdcd", "ef");
  drag(editor, at(1, 0), at(0, 1));
  EXPECT_EQ(enabled(editor), "a,e,b,c");
  EXPECT_EQ(disabled(editor), GetParam().evictedIsDisabled ? "f,d" : "f");
}

TEST_P(ListEditorsTest, TheDisabledAreReorderedAndSaved) {
  Editor *editor = editorShowing("a", "bcd");
  drag(editor, at(1, 0), at(1, 2));
  EXPECT_EQ(disabled(editor), "c,d,b");
  drag(editor, at(1, 2), at(1, 0));
  EXPECT_EQ(disabled(editor), "b,c,d");
  EXPECT_EQ(enabled(editor), "a");
  EXPECT_EQ(saved(), "a");
}

TEST_P(ListEditorsTest, FourEnabledAreReorderedWithoutEviction) {
  Editor *editor = editorShowing("abcd", "e");
  drag(editor, at(0, 3), at(0, 0));
  EXPECT_EQ(enabled(editor), "d,a,b,c");
  EXPECT_EQ(disabled(editor), "e");
}

TEST_P(ListEditorsTest, RowsThatDoNotExistMoveNothing) {
  Editor *editor = editorShowing("ab", "c");
  for (NSIndexPath *from in @[ at(0, 2), at(1, 1), at(0, -1) ]) {
    drag(editor, from, at(0, 0));
    tap(editor, [from section], [from row]);
    EXPECT_EQ(enabled(editor), "a,b");
    EXPECT_EQ(disabled(editor), "c");
  }
  drag(editor, at(0, 0), at(0, -1));
  EXPECT_EQ(enabled(editor), "a,b") << "a drop row before the first is the first";
}

TEST_P(ListEditorsTest, ATapGoesToTheEndOfTheOtherSection) {
  Editor *editor = editorShowing("abc", "de");
  tap(editor, 1, 0);
  EXPECT_EQ(enabled(editor), "a,b,c,d");
  EXPECT_EQ(disabled(editor), "e");
  tap(editor, 0, 1);
  EXPECT_EQ(enabled(editor), "a,c,d");
  EXPECT_EQ(disabled(editor), "e,b");
  EXPECT_EQ(saved(), "a,c,d");
}

TEST_P(ListEditorsTest, AnotherSectionChangesNothingButIsSaved) {
  Editor *editor = editorShowing("ab", "c");
  WatchedTable *table = watch(editor);
  int changes = 0;
  const auto expectSaved = [&](const char *what) {
    EXPECT_EQ(enabled(editor), "a,b") << what;
    EXPECT_EQ(disabled(editor), "c") << what;
    EXPECT_EQ(saved(), "a,b") << what;
    EXPECT_EQ(table->reloads, ++changes) << what;
    writePreferences(kMainFile, @{});
  };
  drag(editor, at(0, 0), at(2, 0));
  expectSaved("dropped in another section");
  drag(editor, at(2, 0), at(0, 0));
  expectSaved("dragged out of another section");
  drag(editor, at(-1, 0), at(1, 0));
  expectSaved("a negative section");
  tap(editor, 2, 0);
  expectSaved("tapped in another section");
}

TEST_P(ListEditorsTest, EveryChangeReloadsTheTableAndIsSaved) {
  Editor *editor = editorShowing("ab", "c");
  WatchedTable *table = watch(editor);
  drag(editor, at(0, 0), at(0, 1));
  EXPECT_EQ(table->reloads, 1);
  EXPECT_EQ(saved(), "b,a");
  tap(editor, 0, 0);
  EXPECT_EQ(table->reloads, 2);
  EXPECT_EQ(saved(), "a");
  [editor loadLists];
  EXPECT_EQ(table->reloads, 3);
}

TEST_P(ListEditorsTest, TheTableIsReloadedAfterTheMoveAndBeforeTheListIsSaved) {
  Editor *editor = editorShowing("ab", "c");
  WatchedTable *table = watch(editor);
  std::vector<std::string> atReload;
  table->onReload = [&] { atReload.push_back(enabled(editor) + " " + saved()); };
  tap(editor, 1, 0);
  drag(editor, at(0, 0), at(0, 1));
  EXPECT_EQ(atReload, (std::vector<std::string>{"a,b,c none", "b,a,c a,b,c"}));
  EXPECT_EQ(saved(), "b,a,c");
  table->onReload = nullptr;
}

TEST_P(ListEditorsTest, ATapOnAPlaceholderReloadsAndSavesNothing) {
  Editor *editor = editorShowing("", "");
  WatchedTable *table = watch(editor);
  tap(editor, 0, 0);
  tap(editor, 1, 0);
  EXPECT_EQ(table->reloads, 0);
  EXPECT_FALSE(exists(kMainFile));
}

TEST_P(ListEditorsTest, ATappedRowIsDeselectedAtOnceAnimated) {
  Editor *editor = editorShowing("a", "");
  WatchedTable *table = watch(editor);
  tap(editor, 1, 0);
  EXPECT_EQ(table->calls, std::vector<std::string>{"deselect 1 0 animated"}) << "a placeholder, too";
}

TEST_P(ListEditorsTest, TheTableIsInEditingModeNotAnimated) {
  Editor *editor = newEditor();
  WatchedTable *table = watch(editor);
  [editor viewDidLoad];
  EXPECT_EQ(table->calls, std::vector<std::string>{"editing"});
  EXPECT_TRUE([table isEditing]);
  EXPECT_TRUE([table allowsSelectionDuringEditing]);
}

TEST_P(ListEditorsTest, PlaceholdersStayWhereTheyAreAndOtherRowsCanBeDragged) {
  Editor *editor = editorShowing("a", "");
  UITableView *table = [editor tableView];
  EXPECT_EQ([editor numberOfSectionsInTableView:table], 2);
  EXPECT_TRUE([editor tableView:table canEditRowAtIndexPath:at(0, 0)]);
  EXPECT_FALSE([editor tableView:table canEditRowAtIndexPath:at(1, 0)]);
  for (NSIndexPath *row in @[ at(0, 0), at(1, 0) ]) {
    EXPECT_EQ([editor tableView:table editingStyleForRowAtIndexPath:row], UITableViewCellEditingStyleNone);
    EXPECT_FALSE([editor tableView:table shouldIndentWhileEditingRowAtIndexPath:row]);
  }
  tap(editor, 0, 0);
  EXPECT_FALSE([editor tableView:table canEditRowAtIndexPath:at(0, 0)]);
  EXPECT_TRUE([editor tableView:table canEditRowAtIndexPath:at(1, 0)]);
}

TEST_P(ListEditorsTest, SectionsAreTitledAndAsLongAsTheirLists) {
  Editor *editor = editorShowing("abc", "de");
  UITableView *table = [editor tableView];
  EXPECT_EQ(rows(editor, 0), 3);
  EXPECT_EQ(rows(editor, 1), 2);
  EXPECT_OBJC_EQ([editor tableView:table titleForHeaderInSection:0], @"Enabled - Tap/Drag to disable.");
  EXPECT_OBJC_EQ([editor tableView:table titleForHeaderInSection:1], @"Disabled - Tap/Drag to enable.");
  [(id)editor setMenuItems:nil];
  EXPECT_EQ(rows(editor, 0), 0);
  EXPECT_EQ(rows(editor, 1), 0) << "nothing is known before the enabled are";
}

TEST_P(ListEditorsTest, ACellIsMadeWithASubtitleOrUsedAgain) {
  Editor *editor = editorShowing("a", "b");
  UITableViewCell *made = cell(editor, 0, 0);
  EXPECT_OBJC_EQ([made reuseIdentifier], @"Cell");
  EXPECT_TRUE([made detailTextLabel] != nil) << "only the subtitle style has one below the title";
  [[editor tableView] registerClass:[UITableViewCell class] forCellReuseIdentifier:@"Cell"];
  EXPECT_OBJC_EQ([cell(editor, 1, 0) detailTextLabel], nil) << "the cell of the queue is taken";
}

TEST_P(ListEditorsTest, APlaceholderInACellThatHeldAnIconShowsNone) {
  Editor *editor = editorShowing("a", "");
  UITableViewCell *used = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                                  reuseIdentifier:@"Cell"] autorelease];
  [[used textLabel] setText:@"App"];
  [[used detailTextLabel] setText:@"test.app"];
  [[used imageView] setImage:[[[UIImage alloc] init] autorelease]];
  [[[used imageView] layer] setShadowOpacity:0.7f];
  auto *table = [[[UsedCellTable alloc] initWithFrame:CGRectZero style:UITableViewStylePlain] autorelease];
  table->cell = used;
  UITableViewCell *placeholder = [editor tableView:table cellForRowAtIndexPath:at(1, 0)];
  ASSERT_EQ(placeholder, used);
  EXPECT_OBJC_EQ([[used detailTextLabel] text], @"");
  EXPECT_OBJC_EQ([[used imageView] image], nil);
  EXPECT_FLOAT_EQ([[[used imageView] layer] shadowOpacity], 0.7f) << "nothing else of the cell is touched";
}

TEST_P(ListEditorsTest, ARowHasTheShadowOfAnIcon) {
  Editor *editor = editorShowing("a", "");
  UITableViewCell *row = cell(editor, 0, 0);
  EXPECT_OBJC_EQ([[row textLabel] text], @"Name of test.a");
  CALayer *layer = [[row imageView] layer];
  EXPECT_OBJC_EQ([UIColor colorWithCGColor:[layer shadowColor]], [UIColor grayColor]);
  EXPECT_EQ([layer shadowOffset].width, 0.0);
  EXPECT_EQ([layer shadowOffset].height, 1.0);
  EXPECT_FLOAT_EQ([layer shadowOpacity], 0.3f);
  EXPECT_EQ([layer shadowRadius], 1.0);
  EXPECT_FALSE([[row imageView] clipsToBounds]);
  EXPECT_EQ([[row imageView] contentMode], UIViewContentModeScaleAspectFit);
}

TEST_P(ListEditorsTest, AUsedCellIsStyledAnew) {
  Editor *editor = editorShowing("a", "");
  UITableViewCell *used = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                                  reuseIdentifier:@"Cell"] autorelease];
  [[used imageView] setClipsToBounds:YES];
  [[used imageView] setContentMode:UIViewContentModeCenter];
  auto *table = [[[UsedCellTable alloc] initWithFrame:CGRectZero style:UITableViewStylePlain] autorelease];
  table->cell = used;
  ASSERT_EQ([editor tableView:table cellForRowAtIndexPath:at(0, 0)], used);
  EXPECT_FALSE([[used imageView] clipsToBounds]);
  EXPECT_EQ([[used imageView] contentMode], UIViewContentModeScaleAspectFit);
}

TEST_P(ListEditorsTest, LoadingFillsBothSectionsBeforeItReloads) {
  id editor = newEditor();
  writePreferences(kMainFile, @{GetParam().key : @[ @"test.b" ]});
  WatchedTable *table = watch(editor);
  std::vector<std::string> atReload;
  table->onReload = [&] { atReload.push_back(enabled(editor) + " " + disabled(editor)); };
  if ([editor respondsToSelector:@selector(setAppList:)]) {
    [editor setAppList:records("abc")];
  } else {
    [editor setWidgetsList:records("abc")];
  }
  [editor loadLists];
  EXPECT_EQ(atReload, (std::vector<std::string>{enabled(editor) + " " + disabled(editor)}));
  EXPECT_EQ(enabled(editor), "b");
  table->onReload = nullptr;
}

TEST_P(ListEditorsTest, DefaultItemsCannotBeChanged) {
  id editor = newEditor();
  NSMutableArray *list = records("ab");
  if ([editor respondsToSelector:@selector(setAppList:)]) {
    [editor setAppList:(id)list];
  } else {
    [editor setWidgetsList:(id)list];
  }
  NSArray *items = [editor defaultItems];
  const NSUInteger count = [items count];
  [list addObject:record('c')];
  EXPECT_EQ([items count], count) << "it is a list of its own";
  EXPECT_FALSE([items isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ(joined([items subarrayWithRange:NSMakeRange(count - 2, 2)]), "a,b");
}

TEST_P(ListEditorsTest, AnotherDomainNamesAnotherFile) {
  NSString *other = @"/var/jb/var/mobile/Library/Preferences/test.other.plist";
  writePreferences(kMainFile, @{GetParam().key : @[ @"test.a" ]});
  id editor = newEditor(@"test.other");
  EXPECT_OBJC_EQ([editor prefsIdentifier], @"test.other");
  [editor setMenuItems:records("bc")];
  [editor saveLists];
  EXPECT_OBJC_EQ(preferences(other), (@{GetParam().key : @[ @"test.b", @"test.c" ]}));
  EXPECT_EQ(saved(), "a") << "the main file stays as it was";
}

TEST_P(ListEditorsTest, RecordsWithoutAnIdentifierAreNotStored) {
  Editor *editor = editorShowing("ab", "");
  [(ListRecord *)[[editor menuItems] objectAtIndex:0] setBundleIdentifier:nil];
  [editor saveLists];
  EXPECT_EQ(saved(), "b");
}

TEST_P(ListEditorsTest, TheEditorAndAllThatItHoldsGoTogether) {
  int deaths = 0;
  @autoreleasepool {
    id editor = newEditor();
    [editor tableView];
    const auto witness = [&] { return [[[Lifetime alloc] initWithCounter:&deaths] autorelease]; };
    [editor setMenuItems:[NSMutableArray arrayWithObject:witness()]];
    [editor setMenuItemsDisabled:[NSMutableArray arrayWithObject:witness()]];
    [editor setPrefsIdentifier:(id)witness()];
    if ([editor respondsToSelector:@selector(setAppList:)]) {
      [editor setAppList:@[ witness() ]];
    } else {
      [editor setWidgetsList:@[ witness() ]];
    }
  }
  EXPECT_EQ(deaths, 4);
}

INSTANTIATE_TEST_SUITE_P(BothEditors, ListEditorsTest,
                         ::testing::Values(EditorKind{"ZunoFavouritesPicker", @"FavouriteApplications", true},
                                           EditorKind{"ZunoWidgetsPicker", @"EnabledWidgets", false}),
                         [](const auto &info) { return std::string(info.param.className); });

}  // namespace

@implementation ListRecord

@synthesize bundleIdentifier = _bundleIdentifier;
@synthesize icon = _icon;

- (void)dealloc {
  [_bundleIdentifier release];
  [_icon release];
  [super dealloc];
}

- (NSString *)displayName {
  return [@"Name of " stringByAppendingString:_bundleIdentifier];
}

- (BOOL)isEqual:(id)other {
  return [other isKindOfClass:[ListRecord class]] && [_bundleIdentifier isEqualToString:[other bundleIdentifier]];
}

- (NSUInteger)hash {
  return [_bundleIdentifier hash];
}

@end

@implementation WatchedTable

- (void)reloadData {
  ++reloads;
  if (onReload) onReload();
  [super reloadData];
}

- (void)deselectRowAtIndexPath:(NSIndexPath *)indexPath animated:(BOOL)animated {
  calls.push_back("deselect " + std::to_string([indexPath section]) + " " + std::to_string([indexPath row]) +
                  (animated ? " animated" : ""));
  [super deselectRowAtIndexPath:indexPath animated:animated];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  calls.push_back(std::string(editing ? "editing" : "not editing") + (animated ? " animated" : ""));
  [super setEditing:editing animated:animated];
}

@end

@implementation UsedCellTable

- (UITableViewCell *)dequeueReusableCellWithIdentifier:(NSString *)identifier {
  return [identifier isEqualToString:[cell reuseIdentifier]] ? cell : nil;
}

@end
