// What the session describes, when its revision grows, and what it lets go.
#import <UIKit/UIKit.h>
#import <dispatch/dispatch.h>

#import "Settings/Service.hpp"
#import "Settings/SettingsRootController.h"
#include "simulator/Settings/SessionTest.h"
#include "wire/Channel.hpp"

#include <sys/socket.h>

#include <filesystem>
#include <system_error>

/// Notes the vertical size class at each change of traits.
@interface TraitView : UIView {
 @public
  std::vector<long> heights;
}
@end

@implementation TraitView
- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  [super traitCollectionDidChange:previous];
  heights.push_back([[self traitCollection] verticalSizeClass]);
}
@end

namespace {

/// "a", the first half of a pair, "b", the second half of another.
NSString *halvesOfPairs() {
  NSMutableString *text = [NSMutableString stringWithString:@"a😀b😀"];
  [text deleteCharactersInRange:NSMakeRange(4, 1)];
  [text deleteCharactersInRange:NSMakeRange(2, 1)];
  return text;
}

TEST_F(SessionTest, TheFirstScreenHasTheGivenRevision) {
  start([[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ] ]] autorelease], 41);
  EXPECT_EQ(screen()["revision"], 41);
  EXPECT_EQ(session().revision(), 41u);
}

TEST_F(SessionTest, TheRevisionGrowsOnlyWithAChange) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  EXPECT_FALSE(session().refresh());
  EXPECT_EQ(tap(rowId(0, 0)), 200);  // Nothing on the screen comes of it.
  EXPECT_EQ(session().revision(), 1u);

  [[page->sections.get() objectAtIndex:0] addObject:@"b"];
  [[page tableView] reloadData];
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(screen()["revision"], 2);
  EXPECT_EQ(labels(), " a  b ");
  EXPECT_FALSE(session().refresh());
}

TEST_F(SessionTest, WhatWasQueuedIsOnTheScreenOfTheReply) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  dispatch_async(dispatch_get_main_queue(), ^{
    [page pushNext];
  });
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(reply["path"], Json({"List", "Next"}));
}

TEST_F(SessionTest, AnExceptionInATapIsLoggedAndNothingElse) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  page->tapRaises = @"TestException";
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(reply, screen());
  EXPECT_TRUE(logged("TestException"));
  page->tapRaises = nil;
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(calls(page), "tap 0.0,tap 0.0");
}

TEST_F(SessionTest, AnExceptionOnTheMainQueueIsLogged) {
  startList(@[ @[ @"a" ] ]);
  dispatch_async(dispatch_get_main_queue(), ^{
    [NSException raise:@"TestException" format:@"as the test wants"];
  });
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_TRUE(logged("TestException"));
  EXPECT_EQ(labels(), " a ");
}

TEST_F(SessionTest, APageWhoseRowsRaiseCanBeLeft) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  ListPage *broken = [[[ListPage alloc] initWithTitle:@"Broken" sections:@[ @[ @"x" ] ]] autorelease];
  [[page navigationController] pushViewController:broken animated:NO];
  broken->raises = @"TestException";
  [[broken tableView] reloadData];
  session().refresh();
  EXPECT_EQ(titles(), "/List/Broken");
  EXPECT_EQ(labels(), "");
  EXPECT_NE(this->page()["sections"][0].value("footer", "").find("TestException"), std::string::npos);
  EXPECT_TRUE(logged("TestException"));
  EXPECT_EQ(tap(this->page()["back"]["id"]), 200);
  EXPECT_EQ(labels(), " a ");
}

TEST_F(SessionTest, APageWithoutATableShowsItsView) {
  start([[[PlainPage alloc] init] autorelease]);
  EXPECT_TRUE(page()["style"].is_null());
  EXPECT_TRUE(page()["sections"].empty());
  const Json label = page()["view"]["views"][0];
  EXPECT_EQ(label["type"], "label");
  EXPECT_EQ(label["class"], "UILabel");
  EXPECT_EQ(label["text"], "plain");
  EXPECT_EQ(label["frame"], Json({10, 20, 100, 30}));
}

TEST_F(SessionTest, SectionViewsAndCellViewsAreDescribed) {
  UILabel *label = [[[UILabel alloc] initWithFrame:CGRectMake(0, 0, 50, 20)] autorelease];
  [label setText:@"own"];
  ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ], @[ @"b" ] ]] autorelease];
  UIView *header = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 40)] autorelease];
  [header addSubview:label];
  list->sectionView = objcxx::share(header);
  start(list);
  EXPECT_EQ(page()["sections"][0]["headerView"]["views"][0]["text"], "own");
  EXPECT_EQ(page()["sections"][0]["footerView"]["class"], "UIView");
  EXPECT_TRUE(page()["sections"][1]["headerView"].is_null());

  EXPECT_TRUE(row(0, 0)["views"].empty());
  UILabel *extra = [[[UILabel alloc] initWithFrame:CGRectMake(0, 0, 50, 20)] autorelease];
  [extra setText:@"extra"];
  NSIndexPath *first = [NSIndexPath indexPathForRow:0 inSection:0];
  [[[[list tableView] cellForRowAtIndexPath:first] contentView] addSubview:extra];
  session().refresh();
  EXPECT_EQ(row(0, 0)["views"][0]["text"], "extra");
}

TEST_F(SessionTest, TextsThatAreNoUTF8AreMended) {
  NSString *huge = [NSString stringWithUTF8String:std::string(70'000, 'x').c_str()];
  startList(@[ @[ halvesOfPairs(), huge, @"quote\" back\\ \t\n" ] ]);
  EXPECT_EQ(row(0, 0)["label"], "a\xef\xbf\xbd"
                                "b\xef\xbf\xbd");
  EXPECT_TRUE(row(0, 1)["label"] == std::string(65'536, 'x') + "\u2026");
  EXPECT_EQ(row(0, 2)["label"], "quote\" back\\ \t\n");
}

TEST_F(SessionTest, APageThatWasPoppedIsLetGo) {
  int deaths = 0;
  ListPage *page = startList(@[ @[ @"a" ] ]);
  @autoreleasepool {
    ListPage *next = [[[ListPage alloc] initWithTitle:@"Next" sections:@[ @[ @"x" ] ]] autorelease];
    next->lifetime = objcxx::adopt([[Lifetime alloc] initWithCounter:&deaths]);
    [[page navigationController] pushViewController:next animated:NO];
    session().refresh();
  }
  EXPECT_EQ(deaths, 0);
  @autoreleasepool {
    EXPECT_EQ(tap(this->page()["back"]["id"]), 200);
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(SessionTest, DarkIsNoChangeOfColoursThatCarryBoth) {
  startList(@[ @[ @"a" ] ]);
  EXPECT_TRUE(row(0, 0)["labelColor"].contains("dark"));
  session().setDark(true);
  EXPECT_FALSE(session().refresh());
  session().setDark(false);
}

TEST_F(SessionTest, ATurnLaysThePageOutAnewAndTellsItsViews) {
  TraitView *header = [[[TraitView alloc] initWithFrame:CGRectMake(0, 0, 100, 40)] autorelease];
  ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ] ]] autorelease];
  list->sectionView = objcxx::share((UIView *)header);
  start(list);
  const auto widthOf = [](const Json &view) { return view["frame"][2]; };
  EXPECT_EQ(widthOf(page()["sections"][0]["headerView"]), 390);
  session().setScreen(CGSizeMake(844, 390), 3, UIEdgeInsetsMake(0, 47, 21, 47));
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(widthOf(row(0, 0)), 844);
  EXPECT_EQ(widthOf(page()["sections"][0]["headerView"]), 844);
  EXPECT_EQ(header->heights, (std::vector<long>{UIUserInterfaceSizeClassCompact}));

  session().setScreen(CGSizeMake(800, 380), 3, UIEdgeInsetsZero);
  EXPECT_EQ(header->heights.size(), 1u) << "the traits are the same";
  session().setScreen(CGSizeMake(-1, 380), 3, UIEdgeInsetsZero);
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(widthOf(row(0, 0)), 800);
  session().setScreen(CGSizeMake(390, 844), 3, UIEdgeInsetsZero);
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(widthOf(row(0, 0)), 390);
}

/// The bundle as it is installed, opened from the first page of Settings.
TEST_F(SessionTest, TheInstalledBundleOpens) {
  std::error_code error;
  std::filesystem::copy(BUILD_FOLDER "/device-root", [path(@"/") UTF8String],
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing,
                        error);
  ASSERT_FALSE(error) << error.message();
  start([[[SettingsRootController alloc] init] autorelease]);
  std::string zuno;
  const Json rows = page()["sections"][0]["rows"];
  for (const Json &row : rows) {
    if (row.value("label", "") == "Zuno") zuno = row.value("id", "");
  }
  ASSERT_FALSE(zuno.empty()) << rows.dump();
  EXPECT_EQ(tap(zuno), 200);
  EXPECT_EQ(screen()["path"].size(), 2u);
  EXPECT_GT(page()["sections"].size(), 1u);
  EXPECT_EQ(tap(page()["back"]["id"]), 200);
  EXPECT_EQ(titles(), "/Settings");
}

/// The session behind a channel, and the simulator's end of it.
class ServiceTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    simulator = std::make_unique<sim::wire::Channel>(sim::Descriptor(ends[0]));
    settings = std::make_unique<sim::wire::Channel>(sim::Descriptor(ends[1]));
    list = startList(@[ @[ @"a" ] ]);
    service = std::make_unique<sim::Service>(*settings, session());
  }
  void TearDown() override {
    service.reset();
    SessionTest::TearDown();
  }

  /// Sends, has it served, and gives everything that came back.
  std::vector<sim::wire::Message> exchange(const Json &message) {
    EXPECT_TRUE(simulator->send({message, {}}));
    EXPECT_TRUE(service->serve());
    return received();
  }
  std::vector<sim::wire::Message> received() {
    std::vector<sim::wire::Message> messages;
    char probe;
    while (::recv(simulator->descriptor(), &probe, 1, MSG_PEEK | MSG_DONTWAIT) > 0) simulator->receive(messages);
    return messages;
  }

  std::unique_ptr<sim::wire::Channel> simulator;
  std::unique_ptr<sim::wire::Channel> settings;
  std::unique_ptr<sim::Service> service;
  ListPage *list = nil;  // Not owned.
};

TEST_F(ServiceTest, AnswersForScreenAndEvent) {
  auto messages = exchange({{"request", 7}, {"verb", "screen"}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["reply"], 7);
  EXPECT_EQ(messages[0].header["status"], 200);
  EXPECT_EQ(messages[0].header["type"], "application/json");
  EXPECT_EQ(Json::parse(messages[0].payload, nullptr, false), screen());
  EXPECT_FALSE(service->owesAnnouncement());

  messages = exchange({{"request", 8}, {"verb", "event"}, {"event", {{"type", "tap"}, {"id", rowId(0, 0)}}}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["reply"], 8);
  EXPECT_EQ(calls(list), "tap 0.0");

  messages = exchange({{"request", 9}, {"verb", "event"}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["status"], 400);
}

TEST_F(ServiceTest, AnswersForPictures) {
  UIImageView *view = [[[UIImageView alloc] initWithImage:picture(8)] autorelease];
  [view setFrame:CGRectMake(0, 0, 8, 8)];
  list->sectionView = objcxx::share<UIView>(view);
  [[list tableView] reloadData];
  session().refresh();
  const std::string identifier = identifierOf(page()["sections"][0]["headerView"]["image"]);
  auto messages = exchange({{"request", 1}, {"verb", "image"}, {"id", identifier}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["type"], "image/png");
  EXPECT_EQ(messages[0].payload.substr(1, 3), "PNG");
  EXPECT_TRUE(service->owesAnnouncement());
  for (const Json &unknown : {Json("0"), Json(3), Json()}) {
    messages = exchange({{"request", 2}, {"verb", "image"}, {"id", unknown}});
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].header["status"], 404);
  }
}

TEST_F(ServiceTest, AnswersForFiles) {
  const std::string file = [write(@"/.simulator/uploads/1", "a text") UTF8String];
  auto messages = exchange({{"request", 1}, {"verb", "pickFile"}, {"file", file}, {"name", "a.txt"}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["status"], 422);

  UIActivityViewController *sheet = [[[UIActivityViewController alloc]
      initWithActivityItems:@[ [NSURL fileURLWithPath:path(@"/.simulator/uploads/1")] ]
      applicationActivities:nil] autorelease];
  [list presentViewController:sheet animated:YES completion:nil];
  session().refresh();
  const std::string identifier = screen()["sheet"]["items"][0].value("id", "");
  messages = exchange({{"request", 2}, {"verb", "shared"}, {"id", identifier}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["type"], "application/octet-stream");
  EXPECT_EQ(messages[0].payload, "a text");
  for (const Json &unknown : {Json("none"), Json(3), Json()}) {
    messages = exchange({{"request", 3}, {"verb", "shared"}, {"id", unknown}});
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].header["status"], 404);
    EXPECT_EQ(messages[0].header["type"], "application/json");
  }
}

TEST_F(ServiceTest, AnAddedPhotoIsAnnouncedBeforeTheAnswer) {
  makeFolder(@"/var/mobile/Media/DCIM");
  [list presentViewController:[[[UIImagePickerController alloc] init] autorelease] animated:YES completion:nil];
  session().refresh();
  const std::string file = [write(@"/.simulator/uploads/1", UIImagePNGRepresentation(picture(4))) UTF8String];
  auto messages = exchange({{"request", 1}, {"verb", "addPhoto"}, {"file", file}, {"name", "a.png"}});
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].header["post"], "changed");
  EXPECT_EQ(messages[0].header["revision"], session().revision());
  EXPECT_EQ(messages[1].header["status"], 200);
  EXPECT_EQ(Json::parse(messages[1].payload, nullptr, false), Json({{"path", "100APPLE/IMG_0001.PNG"}}));
}

TEST_F(ServiceTest, AnUnknownRequestIsAnsweredAndAnUnknownMessageIgnored) {
  auto messages = exchange({{"request", 1}, {"verb", "dance"}});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["status"], 400);
  EXPECT_TRUE(exchange({{"verb", "dance"}}).empty());
  EXPECT_TRUE(exchange({{"verb", 3}}).empty());
}

TEST_F(ServiceTest, AnnouncesWhatChangedByItself) {
  service->announce();
  EXPECT_TRUE(received().empty());
  [list pushNext];
  service->announce();
  auto messages = received();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].header["post"], "changed");
  EXPECT_EQ(messages[0].header["revision"], 2);
  service->announce();
  EXPECT_TRUE(received().empty());
}

TEST_F(ServiceTest, EndsWhenTheSimulatorIsGone) {
  simulator.reset();
  EXPECT_FALSE(service->serve());
}

}  // namespace
