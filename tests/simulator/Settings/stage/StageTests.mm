// The stage in its own process: what it has the loader do, what it tells a widget, and what it says of faults.
#import <Foundation/Guarded.h>
#import <Foundation/SIMDevice.h>

#include <gmock/gmock.h>

#import "Settings/stage/Stage.h"
#include "simulator/Settings/SessionTest.h"

#include <memory>
#include <string>
#include <vector>

/// Says what it is told, and raises in the method of this name.
@interface StagedFixture : NSObject <SIMStagedWidget> {
 @public
  objcxx::Retained<NSMutableArray> told;
  objcxx::Retained<UIView> view;
  NSString *raises;
  BOOL active;
}
@end

@implementation StagedFixture

- (void)tell:(NSString *)what {
  if (!told) told = objcxx::adopt([[NSMutableArray alloc] init]);
  [told.get() addObject:what];
  if ([what isEqualToString:raises]) [NSException raise:@"TideException" format:@"no moon"];
}

- (void)setupWithFrame:(CGRect)frame {
  [self tell:@"setup"];
  if (!view) view = objcxx::adopt([[UIView alloc] initWithFrame:frame]);
}

- (id)contentView {
  return view.get();
}

- (BOOL)isActivePage {
  return active;
}

- (void)setIsActivePage:(BOOL)isActivePage {
  active = isActivePage;
  [self tell:isActivePage ? @"active" : @"inactive"];
}

- (void)viewDidAppear {
  [self tell:@"appeared"];
}

- (void)ZunoViewDidHide:(BOOL)hidden {
  [self tell:hidden ? @"hidden" : @"not hidden"];
}

@end

/// What the loader of the test has loaded.
@interface StagedHolder : NSObject <SIMWidgetHolder> {
 @public
  objcxx::Retained<StagedFixture> fixture;
  objcxx::Retained<NSBundle> own;
}
@end

@implementation StagedHolder
- (NSBundle *)bundle {
  return own.get();
}
- (NSString *)bundleIdentifier {
  return [own.get() bundleIdentifier];
}
- (NSString *)displayName {
  return @"Fixture";
}
- (NSString *)className {
  return @"StagedFixture";
}
- (NSString *)preferencesFile {
  return [own.get() pathForResource:@"Preferences" ofType:@"plist"];
}
- (id<SIMStagedWidget>)widget {
  return fixture.get();
}
@end

/// In place of the loader of the bundle that loads widgets: says the same in the log.
@interface ZunoWidgetLoader : NSObject
+ (id)sharedInstance;
- (void)loadWidgets;
- (NSArray *)loadedWidgets;
@end

namespace {

NSString *const kFolder = @"/var/jb/Library/Zuno/Widgets/";
objcxx::Retained<StagedHolder> loadedHolder;

NSString *bundlePath(NSString *name) { return SIMDevicePath([kFolder stringByAppendingString:name]); }

}  // namespace

@implementation ZunoWidgetLoader

+ (id)sharedInstance {
  static id shared = [[self alloc] init];
  return shared;
}

- (void)loadWidgets {
  NSString *old = bundlePath(@"old.bundle");
  NSLog(@"[ZunoWidgetLoader] Found bundles: (…)");
  NSLog(@"[ZunoWidgetLoader] Loading: %@", old);
  NSLog(@"[ZunoWidgetLoader] Widget out of date! %@", old);
  NSString *broken = bundlePath(@"broken.bundle");
  NSLog(@"[ZunoWidgetLoader] Loading: %@", broken);
  NSLog(@"[Foundation] The code of %@ was not loaded: no symbol", broken);
  NSLog(@"[ZunoWidgetLoader]: a bundle");
  NSLog(@"[ZunoWidgetLoader] Failed to load bundle: %@", broken);
  NSString *good = [loadedHolder.get()->own.get() bundlePath];
  NSLog(@"[ZunoWidgetLoader] Loading: %@", good);
  NSLog(@"[ZunoWidgetLoader]: a bundle");
  NSLog(@"[ZunoWidgetLoader]: Loaded widget: test.fixture");
  NSLog(@"[ZunoWidgetLoader] Loaded 1 widgets!");
}

- (NSArray *)loadedWidgets {
  return @[ loadedHolder.get() ];
}

@end

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
namespace wire = sim::wire;

class StageTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    NSString *folder = makeFolder([kFolder stringByAppendingString:@"good.bundle"]);
    [@{@"CFBundleIdentifier" : @"test.fixture"} writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"]
                                                 atomically:YES];
    NSArray *items = @[ @{@"cell" : @"PSSwitchCell", @"label" : @"Light", @"key" : @"light"} ];
    [@{@"items" : items} writeToFile:[folder stringByAppendingPathComponent:@"Preferences.plist"] atomically:YES];
    loadedHolder = objcxx::adopt([[StagedHolder alloc] init]);
    loadedHolder.get()->own = objcxx::share([NSBundle bundleWithPath:folder]);
    loadedHolder.get()->fixture = objcxx::adopt([[StagedFixture alloc] init]);
    stage_ = std::make_unique<sim::Stage>([this](wire::Report report) { take(report); });
    startStage(*stage_);
  }
  void TearDown() override {
    loadedHolder = {};
    SessionTest::TearDown();
    stage_.reset();
  }
  void take(const wire::Report &report) {
    if (const auto *entering = std::get_if<wire::Entering>(&report)) entered_.push_back(entering->doing);
    if (const auto *raised = std::get_if<wire::Raised>(&report))
      raised_.push_back(raised->name + ": " + raised->reason);
  }
  StagedFixture *widget() const { return loadedHolder.get()->fixture.get(); }
  std::string told() const { return [[widget()->told.get() componentsJoinedByString:@","] UTF8String] ?: ""; }
  void show() {
    ASSERT_EQ(perform(wire::LoadWidgets{"{}"}), Outcome::done);
    ASSERT_EQ(perform(wire::ShowWidget{kGood}), Outcome::done) << reply;
  }
  Outcome call(const char *method, std::optional<bool> argument = {}) {
    return perform(wire::CallWidget{method, argument});
  }

  static constexpr const char *kGood = "/var/jb/Library/Zuno/Widgets/good.bundle";
  std::unique_ptr<sim::Stage> stage_;
  std::vector<std::string> entered_;
  std::vector<std::string> raised_;
};

TEST_F(StageTest, WhatTheLoaderLoadsIsListedWithItsReasons) {
  ASSERT_EQ(perform(wire::LoadWidgets{"{}"}), Outcome::done);
  const Json widgets = reply["widgets"];
  ASSERT_EQ(widgets.size(), 3u);
  EXPECT_EQ(widgets[0]["path"], "/var/jb/Library/Zuno/Widgets/old.bundle");
  EXPECT_EQ(widgets[0]["state"], "refused");
  EXPECT_EQ(widgets[0]["reason"], "It is no bundle: it has no Info.plist.");
  EXPECT_EQ(widgets[1]["reason"], "Its code was not loaded: no symbol");
  EXPECT_EQ(widgets[2]["path"], kGood);
  EXPECT_EQ(widgets[2]["state"], "loaded");
  EXPECT_EQ(widgets[2]["displayName"], "Fixture");
  EXPECT_EQ(widgets[2]["identifier"], "test.fixture");
  EXPECT_EQ(widgets[2]["hasPreferences"], true);
  EXPECT_EQ(widgets[2]["methods"][0],
            Json({{"name", "viewDidAppear"}, {"takesFlag", false}, {"required", false}, {"implemented", true}}));
  EXPECT_EQ(widgets[2]["methods"][1]["implemented"], false);
  EXPECT_EQ(reply["steps"].size(), 7u);
  EXPECT_THAT(entered_, ElementsAre("being loaded", "being loaded", "being made, with -init", "being loaded",
                                    "being made, with -init", ""));
  EXPECT_TRUE(logged("Loaded 1 widgets!")) << "the log has its lines all the same";
}

TEST_F(StageTest, AWidgetIsSetUpWithTheDisplaysSizeAndShown) {
  show();
  EXPECT_EQ(told(), "setup");
  EXPECT_EQ(titles(), "/Fixture");
  EXPECT_EQ(page()["bar"]["hidden"], true);
  EXPECT_EQ(page()["view"]["views"][0]["frame"], Json({0, 0, 390, 844}));
  EXPECT_EQ(reply["isActivePage"], false);
}

TEST_F(StageTest, MessagesReachTheWidget) {
  show();
  EXPECT_EQ(call("viewDidAppear"), Outcome::done);
  EXPECT_EQ(call("setIsActivePage:", true), Outcome::done);
  EXPECT_EQ(reply["isActivePage"], true);
  EXPECT_TRUE(reply["milliseconds"].is_number());
  EXPECT_EQ(call("ZunoViewDidHide:", false), Outcome::done);
  EXPECT_EQ(told(), "setup,appeared,active,not hidden");
  EXPECT_EQ(entered_.back(), "running by itself, from a timer or a queue");
  EXPECT_EQ(entered_[entered_.size() - 2], "-ZunoViewDidHide:");
}

TEST_F(StageTest, MessagesThatMakeNoSenseAreRefused) {
  EXPECT_EQ(call("viewDidAppear"), Outcome::refused) << "nobody is on the stage";
  EXPECT_EQ(perform(wire::OpenPreferences{}), Outcome::refused);
  EXPECT_EQ(perform(wire::ShowWidget{kGood}), Outcome::refused) << "nothing is loaded";
  EXPECT_EQ(perform(wire::LoadWidgets{"[]"}), Outcome::malformed);
  show();
  EXPECT_EQ(call("didScrollToView"), Outcome::refused) << "it does not implement that";
  EXPECT_EQ(call("setIsActivePage:"), Outcome::malformed);
  EXPECT_EQ(call("viewDidAppear", true), Outcome::malformed);
  EXPECT_EQ(call("dealloc"), Outcome::malformed);
  EXPECT_EQ(told(), "setup");
}

TEST_F(StageTest, AWidgetThatRaisesIsToldAndTakenOff) {
  show();
  widget()->raises = @"appeared";
  EXPECT_EQ(call("viewDidAppear"), Outcome::failed);
  EXPECT_THAT(raised_, ElementsAre("TideException: no moon"));
  EXPECT_EQ(page()["view"]["views"], Json::array());
  EXPECT_EQ(call("viewDidAppear"), Outcome::refused);
  EXPECT_TRUE(logged("Uncaught exception while performing an event: TideException: no moon"));
}

TEST_F(StageTest, WhatIsRaisedLaterIsToldToo) {
  show();
  sim::guarded(@"running a timer", [] { [NSException raise:@"LaterException" format:@"out of the blue"]; });
  EXPECT_THAT(raised_, ElementsAre("LaterException: out of the blue"));
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(page()["view"]["views"], Json::array());
}

TEST_F(StageTest, AWidgetWithoutAViewIsRefused) {
  widget()->view = objcxx::adopt((UIView *)[[NSObject alloc] init]);
  ASSERT_EQ(perform(wire::LoadWidgets{"{}"}), Outcome::done);
  EXPECT_EQ(perform(wire::ShowWidget{kGood}), Outcome::refused);
  EXPECT_THAT(reply.value("error", ""), HasSubstr("NSObject"));
  widget()->view = {};
  loadedHolder.get()->fixture = {};
  EXPECT_EQ(perform(wire::ShowWidget{kGood}), Outcome::refused);
  EXPECT_THAT(reply.value("error", ""), HasSubstr("-init gave nil"));
}

TEST_F(StageTest, ThePreferencesAreAPageWhoseValuesAreStored) {
  show();
  EXPECT_EQ(perform(wire::OpenPreferences{}), Outcome::done);
  EXPECT_EQ(titles(), "/Fixture/Fixture");
  EXPECT_EQ(page()["bar"]["hidden"], false);
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_THAT(read(@"/var/mobile/Library/Preferences/test.fixture.plist"), HasSubstr("<key>light</key>"));
  EXPECT_EQ(perform(wire::OpenPreferences{}), Outcome::done);
  EXPECT_EQ(titles(), "/Fixture/Fixture") << "it is open";
}

TEST_F(StageTest, ABrokenListOfPreferencesSaysSo) {
  write([kFolder stringByAppendingString:@"good.bundle/Preferences.plist"], "no list");
  show();
  EXPECT_EQ(perform(wire::OpenPreferences{}), Outcome::done);
  EXPECT_EQ(page()["sections"][0]["footer"], "Preferences.plist is no property list.");
}

TEST_F(StageTest, ABundleThatIsRefusedIsNotLoaded) {
  NSString *path = [[loadedHolder.get()->own.get() bundlePath] stringByAppendingString:@"2"];
  const Json refused{{[onDevice(path) UTF8String], "It has crashed."}};
  ASSERT_EQ(perform(wire::LoadWidgets{refused.dump()}), Outcome::done);
  makeFolder(onDevice(path));
  EXPECT_FALSE([[NSBundle bundleWithPath:path] load]);
  EXPECT_TRUE(logged("was not loaded: It has crashed."));
}

TEST_F(StageTest, APhoneHasNoStage) {
  start([[[PlainPage alloc] init] autorelease]);
  for (const wire::Call &each :
       std::vector<wire::Call>{wire::LoadWidgets{"{}"}, wire::ShowWidget{"/a"}, wire::CallWidget{"viewDidAppear", {}},
                               wire::OpenPreferences{}}) {
    EXPECT_EQ(perform(each), Outcome::refused);
  }
}

TEST_F(StageTest, WhatAWidgetSharesIsFetchedFromTheStage) {
  show();
  UIActivityViewController *sheet = [[[UIActivityViewController alloc]
      initWithActivityItems:@[ [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")] ]
      applicationActivities:nil] autorelease];
  present(stage_->page(), sheet);
  const Json item = screen()["sheet"]["items"][0];
  EXPECT_EQ(item["url"], "/shared/stage-" + item.value("id", ""));
}

}  // namespace
