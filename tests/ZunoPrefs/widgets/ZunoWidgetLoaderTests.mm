#import "widgets/ZunoWidgetLoader.h"

#import "widgets/ZunoWidgetHolder.h"
#import "widgets/ZunoWidgetProtocol.h"

#import <Foundation/SIMLog.h>

#include <unistd.h>

#include <algorithm>
#include <vector>

#include "ZunoPrefs/support/BuiltBundle.h"
#include "ZunoPrefs/support/Replaced.h"
#include "ZunoPrefs/support/WidgetTest.h"
#include "support/objc/LeaksIgnored.h"

/// What the test widgets answer beyond the contract.
@protocol CountingWidget <ZunoWidgetProtocol>
- (int)disappearances;
@end

/// A widget that does not implement what the contract leaves open.
@interface PlainWidget : NSObject {
 @private
  BOOL _isActivePage;
  id _contentView;  // Not owned.

 @public
  int told;  // How often it was told that it is not the active page.
}
@property(nonatomic, assign) id contentView;
@property(nonatomic) BOOL isActivePage;
@end

/// A widget that is set up and answers nothing else.
@interface SilentWidget : NSObject {
 @public
  int asked;
}
- (id)contentView;
@end

namespace {

class WidgetLoaderTest : public WidgetTest {
 protected:
  ZunoWidgetLoader *loader() { return [(Class)classNamed("ZunoWidgetLoader") sharedInstance]; }
  NSArray *load() {
    [loader() loadWidgets];
    return [loader() loadedWidgets];
  }
  /// Loads, expects that only "good" passes, and returns how often `text` stands in the log as a whole line.
  long rejections(const std::string &text) {
    NSArray *loaded = load();
    EXPECT_EQ(joined(loaded), "good");
    return std::count(log.begin(), log.end(), text);
  }
};

TEST_F(WidgetLoaderTest, OneSharedInstanceThatHasLoadedNothingYet) {
  EXPECT_EQ(loader(), loader());
  ZunoWidgetLoader *fresh = [[[classNamed("ZunoWidgetLoader") alloc] init] autorelease];
  EXPECT_OBJC_EQ([fresh loadedWidgets], nil);
  EXPECT_TRUE([[loader() loadedWidgets] isKindOfClass:[NSArray class]]);
}

/// Whether this process, in which nothing has asked for it yet, has a shared loader with an empty list.
bool sharedInstanceIsEmptyAtFirst() {
  Class loader = [testing_support::builtBundle() classNamed:@"ZunoWidgetLoader"];
  return [[[loader sharedInstance] loadedWidgets] isEqual:@[]];
}

TEST(WidgetLoaderProcessTest, TheSharedInstanceOfAFreshProcessHasAnEmptyList) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // A process of its own, from its start.
  EXPECT_EXIT(_exit(sharedInstanceIsEmptyAtFirst() ? 0 : 1), ::testing::ExitedWithCode(0), "");
}

TEST_F(WidgetLoaderTest, AMissingFolderIsMadeAndHoldsNothing) {
  EXPECT_OBJC_EQ(load(), @[]);
  EXPECT_TRUE(exists(kWidgetsFolder));
  EXPECT_EQ(listing(@"/var/jb/Library/Zuno"), "Widgets");
  EXPECT_TRUE(logged("[ZunoWidgetLoader] Loaded 0 widgets!"));
}

std::vector<std::string> *madeFolders = nullptr;

BOOL noteFolder(id, SEL, NSString *folder, BOOL intermediate, NSDictionary *attributes, NSError **) {
  madeFolders->push_back(std::string([folder UTF8String]) + (intermediate ? " with those above" : "") +
                         (attributes ? " with attributes" : ""));
  return NO;
}

TEST_F(WidgetLoaderTest, OnlyAFolderIsTakenAsItIs) {
  std::vector<std::string> made;
  madeFolders = &made;
  const auto madeByLoading = [&] {
    const Replaced make([[NSFileManager defaultManager] class],
                        @selector(createDirectoryAtPath:withIntermediateDirectories:attributes:error:), noteFolder);
    made.clear();
    EXPECT_OBJC_EQ(load(), @[]);
    return made;
  };
  const std::vector<std::string> wanted{std::string([path(kWidgetsFolder) UTF8String]) + " with those above"};
  EXPECT_EQ(madeByLoading(), wanted) << "there is nothing";
  write(kWidgetsFolder, "a file");
  EXPECT_EQ(madeByLoading(), wanted) << "there is a file";
  EXPECT_OBJC_EQ(load(), @[]);
  EXPECT_EQ(read(kWidgetsFolder), "a file");
  ASSERT_TRUE([[NSFileManager defaultManager] removeItemAtPath:path(kWidgetsFolder) error:nullptr]);
  makeFolder(kWidgetsFolder);
  EXPECT_EQ(madeByLoading(), std::vector<std::string>());
}

TEST_F(WidgetLoaderTest, AGoodBundleIsLoadedAndDescribed) {
  NSString *folder = installWidget(@"good", @"FixtureWidget");
  NSString *preferences = write([kWidgetsFolder stringByAppendingString:@"/good.bundle/Preferences.plist"], "<plist/>");
  NSArray *loaded = load();
  ASSERT_EQ([loaded count], 1u);
  ZunoWidgetHolder *holder = [loaded objectAtIndex:0];
  EXPECT_OBJC_EQ([holder bundleIdentifier], @"test.good");
  EXPECT_OBJC_EQ([holder displayName], @"Widget good");
  EXPECT_OBJC_EQ([holder className], @"FixtureWidget");
  EXPECT_OBJC_EQ([[holder bundle] bundlePath], folder);
  EXPECT_TRUE([holder hasPreferences]);
  EXPECT_OBJC_EQ([holder preferencesFile], preferences);
  EXPECT_OBJC_EQ(NSStringFromClass([(id)[holder widget] class]), @"FixtureWidget");
  EXPECT_OBJC_EQ([[holder widget] contentView], nil) << "the loader does not set widgets up";
  const auto said = [](NSString *format, id object) {
    return std::string([[NSString stringWithFormat:format, object] UTF8String]);
  };
  EXPECT_EQ(log, (std::vector<std::string> {
              said(@"[ZunoWidgetLoader] Found bundles: %@", @[ @"good.bundle" ]),
                  said(@"[ZunoWidgetLoader] Loading: %@", folder), said(@"[ZunoWidgetLoader]: %@", [holder bundle]),
                  said(@"[ZunoWidgetLoader]: Loaded widget: %@", @"test.good"), "[ZunoWidgetLoader] Loaded 1 widgets!",
            }));
}

/// Whether the code of the bundle in question was loaded when its line was logged.
void noteFreshCode(NSString *line, void *loaded) {
  if (![line hasPrefix:@"[ZunoWidgetLoader]: "] || [line hasPrefix:@"[ZunoWidgetLoader]: Loaded"]) return;
  static_cast<std::vector<bool> *>(loaded)->push_back(NSClassFromString(@"FixtureFreshWidget") != Nil);
}

TEST_F(WidgetLoaderTest, ABundleIsLoggedWhenItsCodeIsLoaded) {
  installWidget(@"fresh", @"FixtureFreshWidget");
  ASSERT_EQ(NSClassFromString(@"FixtureFreshWidget"), Nil) << "no other test loads it";
  std::vector<bool> loaded;
  SIMSetLogHandler(noteFreshCode, &loaded);
  EXPECT_EQ([load() count], 1u);
  SIMSetLogHandler(nullptr, nullptr);
  EXPECT_EQ(loaded, std::vector<bool>{true});
}

TEST_F(WidgetLoaderTest, WithoutAPreferencesResourceThereIsNone) {
  installWidget(@"good", @"FixtureWidget");
  ZunoWidgetHolder *holder = [load() objectAtIndex:0];
  EXPECT_FALSE([holder hasPreferences]);
  EXPECT_OBJC_EQ([holder preferencesFile], nil);
}

TEST_F(WidgetLoaderTest, WithoutADisplayNameTheNameIsNil) {
  installWidget(@"good", @"FixtureWidget", @{@"CFBundleDisplayName" : [NSNull null]});
  NSArray *loaded = load();
  ASSERT_EQ([loaded count], 1u);
  EXPECT_OBJC_EQ([(ZunoWidgetHolder *)[loaded objectAtIndex:0] displayName], nil);
}

TEST_F(WidgetLoaderTest, VersionsThatAreNotPositiveAreOutOfDateAndTheirCodeIsNotLoaded) {
  installWidget(@"good", @"FixtureWidget");
  for (id version in @[ @0, @(-3), @"none", @"", @[ @1 ], [NSNull null] ]) {
    NSString *folder = installWidget([NSString stringWithFormat:@"old%u", (unsigned)[version hash]],
                                     @"FixtureNeverLoaded", @{@"ZunoWidgetsVersion" : version});
    EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget out of date! %s", folder)), 1)
        << [[version description] UTF8String];
    EXPECT_FALSE(logged(line("[ZunoWidgetLoader] Failed to load bundle: %s", folder)));
    EXPECT_EQ(NSClassFromString(@"FixtureNeverLoaded"), Nil);
    ASSERT_TRUE([[NSFileManager defaultManager] removeItemAtPath:folder error:nullptr]);
    log.clear();
  }
}

TEST_F(WidgetLoaderTest, AVersionInATextCounts) {
  installWidget(@"good", @"FixtureWidget", @{@"ZunoWidgetsVersion" : @"2"});
  EXPECT_EQ([load() count], 1u);
}

TEST_F(WidgetLoaderTest, WhatIsNoBundleIsOutOfDate) {
  installWidget(@"good", @"FixtureWidget");
  NSString *file = write([kWidgetsFolder stringByAppendingString:@"/readme.txt"], "text");
  EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget out of date! %s", file)), 1);
  NSString *folder = makeFolder([kWidgetsFolder stringByAppendingString:@"/empty.bundle"]);
  log.clear();
  EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget out of date! %s", folder)), 1);
  NSString *broken = [write([kWidgetsFolder stringByAppendingString:@"/broken.bundle/Info.plist"], "<plist><di")
      stringByDeletingLastPathComponent];
  log.clear();
  EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget out of date! %s", broken)), 1);
}

TEST_F(WidgetLoaderTest, CodeThatDoesNotLoadIsRejected) {
  const testing_support::LeaksIgnored ignored;  // GNUstep's, of bundles that do not load.
  installWidget(@"good", @"FixtureWidget");
  NSString *missing = installWidget(@"missing", @"NoSuchCode");
  NSString *text = makeFolder([kWidgetsFolder stringByAppendingString:@"/text.bundle"]);
  NSDictionary *info = @{
    @"CFBundleExecutable" : @"Text",
    @"CFBundleIdentifier" : @"test.text",
    @"ZunoWidgetsVersion" : @1,
    @"ZunoWidgetClass" : @"Text"
  };
  ASSERT_TRUE([info writeToFile:[text stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
  write([kWidgetsFolder stringByAppendingString:@"/text.bundle/Text"], "no code");
  NSString *unresolved = installWidget(@"unresolved", @"FixtureNeedsMissingCode");
  for (NSString *folder in @[ missing, text, unresolved ]) {
    log.clear();
    EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Failed to load bundle: %s", folder)), 1) << [folder UTF8String];
  }
}

TEST_F(WidgetLoaderTest, AMissingOrNonConformingClassIsRejectedAfterItsCodeWasLoaded) {
  installWidget(@"good", @"FixtureWidget");
  for (id name in @[ @"NoSuchClass", @"FixtureNotAWidget", @"NSObject", @7, [NSNull null] ]) {
    NSString *folder = installWidget([NSString stringWithFormat:@"odd%u", (unsigned)[name hash]], @"FixtureNotAWidget",
                                     @{@"ZunoWidgetClass" : name});
    log.clear();
    EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget class does not conform to protocol: %s", folder)), 1);
    ASSERT_TRUE([[NSFileManager defaultManager] removeItemAtPath:folder error:nullptr]);
  }
  EXPECT_NE(NSClassFromString(@"FixtureNotAWidget"), Nil);
}

TEST_F(WidgetLoaderTest, AClassThatHasTheMethodsButDoesNotAdoptTheContractIsRejected) {
  installWidget(@"good", @"FixtureWidget");
  NSString *folder = installWidget(@"odd", @"FixtureLooksLikeAWidget");
  EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget class does not conform to protocol: %s", folder)), 1);
  EXPECT_TRUE([NSClassFromString(@"FixtureLooksLikeAWidget") instancesRespondToSelector:@selector(contentView)]);
}

TEST_F(WidgetLoaderTest, NamesNeedNoExtension) {
  NSString *folder = installWidget(@"good", @"FixtureWidget");
  NSString *plain = [folder stringByDeletingPathExtension];
  ASSERT_TRUE([[NSFileManager defaultManager] moveItemAtPath:folder toPath:plain error:nullptr]);
  ASSERT_EQ([load() count], 1u);
  EXPECT_OBJC_EQ([[(ZunoWidgetHolder *)[load() objectAtIndex:0] bundle] bundlePath], plain);
}

TEST_F(WidgetLoaderTest, TheOrderIsThatOfTheFoldersListing) {
  for (NSString *name in @[ @"one", @"two", @"three", @"four" ]) installWidget(name, @"FixtureWidget");
  NSArray *names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:path(kWidgetsFolder) error:nullptr];
  std::string wanted;
  for (NSString *name in names) {
    wanted += (wanted.empty() ? "" : ",") + std::string([[name stringByDeletingPathExtension] UTF8String]);
  }
  EXPECT_EQ(joined(load()), wanted);
}

/// The number of widgets that the shared loader had when each line was logged.
void countWidgets(NSString *, void *counts) {
  NSArray *widgets = [[[testing_support::builtBundle() classNamed:@"ZunoWidgetLoader"] sharedInstance] loadedWidgets];
  static_cast<std::vector<NSUInteger> *>(counts)->push_back([widgets count]);
}

TEST_F(WidgetLoaderTest, TheOldListIsDroppedBeforeAnythingElse) {
  installWidget(@"good", @"FixtureWidget");
  ASSERT_EQ([load() count], 1u);
  std::vector<NSUInteger> counts;
  SIMSetLogHandler(countWidgets, &counts);
  load();
  SIMSetLogHandler(nullptr, nullptr);
  // What was found, which entry, the bundle, the widget; only then the sum.
  EXPECT_EQ(counts, (std::vector<NSUInteger>{0, 0, 0, 0, 1}));
}

TEST_F(WidgetLoaderTest, AnyLoaderAsksTheSharedInstance) {
  installWidget(@"one", @"FixtureWidget");
  ZunoWidgetHolder *holder = [load() objectAtIndex:0];
  ZunoWidgetLoader *other = [[[classNamed("ZunoWidgetLoader") alloc] init] autorelease];
  EXPECT_EQ([other widgetWithIdentifier:@"test.one"], holder);
  [[holder widget] setupWithFrame:CGRectMake(0, 0, 10, 10)];
  [[holder widget] setIsActivePage:YES];
  [other setAllWidgetsInactive];
  EXPECT_FALSE([[holder widget] isActivePage]);

  [other loadWidgets];
  EXPECT_EQ([[other loadedWidgets] count], 1u) << "it loads for itself";
  EXPECT_EQ([loader() widgetWithIdentifier:@"test.one"], holder) << "the shared instance keeps its own";
}

TEST_F(WidgetLoaderTest, TwoBundlesWithOneIdentifierAreBothLoadedAndTheFirstIsFound) {
  installWidget(@"one", @"FixtureWidget", @{@"CFBundleIdentifier" : @"test.same"});
  installWidget(@"two", @"FixtureOtherWidget", @{@"CFBundleIdentifier" : @"test.same"});
  NSArray *loaded = load();
  EXPECT_EQ(joined(loaded), "same,same");
  EXPECT_EQ([loader() widgetWithIdentifier:@"test.same"], [loaded objectAtIndex:0]);
  EXPECT_OBJC_EQ([loader() widgetWithIdentifier:@"test.other"], nil);
  EXPECT_OBJC_EQ([loader() widgetWithIdentifier:nil], nil);
}

TEST_F(WidgetLoaderTest, LoadingAgainGivesNewHoldersAndWidgets) {
  installWidget(@"good", @"FixtureWidget");
  const auto first = objcxx::share((ZunoWidgetHolder *)[load() objectAtIndex:0]);
  ZunoWidgetHolder *second = [load() objectAtIndex:0];
  EXPECT_NE(first.get(), second);
  EXPECT_NE([first.get() widget], [second widget]);
}

TEST_F(WidgetLoaderTest, OnlyWidgetsThatAreSetUpAreToldThatTheyAreInactive) {
  installWidget(@"one", @"FixtureWidget");
  installWidget(@"two", @"FixtureOtherWidget");
  load();
  auto *setUp = (id<CountingWidget>)[[loader() widgetWithIdentifier:@"test.one"] widget];
  auto *notSetUp = (id<CountingWidget>)[[loader() widgetWithIdentifier:@"test.two"] widget];
  [setUp setupWithFrame:CGRectMake(0, 0, 10, 10)];
  [setUp setIsActivePage:YES];
  [notSetUp setIsActivePage:YES];
  [loader() setAllWidgetsInactive];
  EXPECT_FALSE([setUp isActivePage]);
  EXPECT_EQ([setUp disappearances], 1);
  EXPECT_TRUE([notSetUp isActivePage]);
  EXPECT_EQ([notSetUp disappearances], 0);
  [loader() setAllWidgetsInactive];
  EXPECT_EQ([setUp disappearances], 1) << "it was not active any more";
}

TEST_F(WidgetLoaderTest, ACopiedBundleIsAWidgetOfItsOwnMadeByTheFirst) {
  NSString *original = installWidget(@"first", @"FixtureWidget");
  const auto first = objcxx::share((ZunoWidgetHolder *)[load() objectAtIndex:0]);
  log.clear();
  NSString *copy = installWidgetCopy(@"second", @"FixtureWidget", @{@"CFBundleIdentifier" : @"test.first"});
  NSArray *loaded = load();
  EXPECT_EQ(joined(loaded), "first,first");
  for (ZunoWidgetHolder *holder in loaded) EXPECT_EQ([(id)[holder widget] class], [(id)[first.get() widget] class]);
  EXPECT_OBJC_EQ(
      [[[loaded valueForKey:@"bundle"] valueForKey:@"bundlePath"] sortedArrayUsingSelector:@selector(compare:)],
      (@[ original, copy ]));
  EXPECT_TRUE(logged("objc: Class FixtureWidget is implemented in both "));
  EXPECT_TRUE(logged([[copy stringByAppendingString:@"/FixtureWidget. The one in "] UTF8String]));
}

TEST_F(WidgetLoaderTest, TwoMakersWithOneClassNameHaveBothTheirWidgets) {
  installWidget(@"one", @"FixtureOtherWidget");
  load();
  NSString *rival = installWidgetCopy(@"rival", @"FixtureRivalWidget", @{@"ZunoWidgetClass" : @"FixtureOtherWidget"});
  EXPECT_EQ([load() count], 2u);
  EXPECT_OBJC_EQ([[loader() widgetWithIdentifier:@"test.rival"] className], @"FixtureOtherWidget");
  EXPECT_TRUE(
      logged([[@"and " stringByAppendingString:[rival stringByAppendingString:@"/FixtureRivalWidget."]] UTF8String]));
}

TEST_F(WidgetLoaderTest, AWidgetWithTheNameOfAClassOfSettingsIsRejectedAndHurtsNothing) {
  installWidget(@"good", @"FixtureWidget");
  Class page = NSClassFromString(@"SIMPropertyListPage");
  ASSERT_NE(page, Nil);
  NSString *folder =
      installWidgetCopy(@"clash", @"FixtureSettingsWidget", @{@"ZunoWidgetClass" : @"SIMPropertyListPage"});
  EXPECT_EQ(rejections(line("[ZunoWidgetLoader] Widget class does not conform to protocol: %s", folder)), 1);
  EXPECT_EQ(NSClassFromString(@"SIMPropertyListPage"), page);
  EXPECT_TRUE(logged("objc: Class SIMPropertyListPage is implemented in both "));
}

TEST_F(WidgetLoaderTest, TheLogSaysWhyCodeDidNotLoad) {
  NSString *unresolved = installWidget(@"unresolved", @"FixtureNeedsMissingCode");
  load();
  EXPECT_TRUE(logged(line("[Foundation] The code of %s was not loaded: ", unresolved)));
  EXPECT_TRUE(logged("undefined symbol: fixtureFunctionThatNobodyHas"));
}

/// A holder of `widget`, which no bundle made.
ZunoWidgetHolder *holderOf(id widget) {
  Class holders = [testing_support::builtBundle() classNamed:@"ZunoWidgetHolder"];
  ZunoWidgetHolder *holder = [[[holders alloc] init] autorelease];
  [holder setWidget:widget];
  return holder;
}

TEST_F(WidgetLoaderTest, AnActiveWidgetIsToldThatItDisappearsWithoutBeingAskedWhetherItCan) {
  PlainWidget *active = [[[PlainWidget alloc] init] autorelease];
  [active setContentView:@"view"];
  [active setIsActivePage:YES];
  [loader() setLoadedWidgets:@[ holderOf(active) ]];
  EXPECT_EQ(raisedBy([&] { [loader() setAllWidgetsInactive]; }), "NSInvalidArgumentException");
  EXPECT_TRUE([active isActivePage]) << "it was told before the flag was set";

  [active setIsActivePage:NO];
  EXPECT_EQ(raisedBy([&] { [loader() setAllWidgetsInactive]; }), "") << "an inactive one is not told";
  [loader() setLoadedWidgets:@[]];
}

TEST_F(WidgetLoaderTest, WidgetsThatLackAMessageOfTheContractAreNotSentIt) {
  SilentWidget *silent = [[[SilentWidget alloc] init] autorelease];
  PlainWidget *next = [[[PlainWidget alloc] init] autorelease];
  [next setContentView:@"view"];
  ZunoWidgetHolder *empty = holderOf(nil);
  [loader() setLoadedWidgets:@[ empty, holderOf(silent), holderOf(next) ]];
  EXPECT_EQ(raisedBy([&] { [loader() setAllWidgetsInactive]; }), "");
  EXPECT_EQ(silent->asked, 1);
  EXPECT_EQ(next->told, 1) << "the others follow";
  [loader() setLoadedWidgets:@[]];
}

TEST_F(WidgetLoaderTest, AHolderOwnsWhatItHolds) {
  int deaths = 0;
  @autoreleasepool {
    ZunoWidgetHolder *holder = holderOf([[[Lifetime alloc] initWithCounter:&deaths] autorelease]);
    const auto witness = [&] { return (id)[[[Lifetime alloc] initWithCounter:&deaths] autorelease]; };
    [holder setBundleIdentifier:witness()];
    [holder setDisplayName:witness()];
    [holder setClassName:witness()];
    [holder setBundle:witness()];
    [holder setPreferencesFile:witness()];
  }
  EXPECT_EQ(deaths, 6);
}

TEST_F(WidgetLoaderTest, ALoaderOwnsItsList) {
  int deaths = 0;
  @autoreleasepool {
    ZunoWidgetLoader *other = [[[classNamed("ZunoWidgetLoader") alloc] init] autorelease];
    [other setLoadedWidgets:@[ [[[Lifetime alloc] initWithCounter:&deaths] autorelease] ]];
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(WidgetLoaderTest, TheOldHoldersGoWithTheOldList) {
  installWidget(@"good", @"FixtureWidget");
  int deaths = 0;
  @autoreleasepool {
    ZunoWidgetHolder *holder = [load() objectAtIndex:0];
    [holder setDisplayName:(id)[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
    load();
  }
  EXPECT_EQ(deaths, 1);
}

}  // namespace

@implementation PlainWidget

@synthesize contentView = _contentView;

- (BOOL)isActivePage {
  return _isActivePage;
}

- (void)setIsActivePage:(BOOL)isActivePage {
  _isActivePage = isActivePage;
  if (!isActivePage) ++told;
}

@end

@implementation SilentWidget

- (id)contentView {
  ++asked;
  return self;
}

@end
