// What the session describes, when its revision grows, and what it lets go.
#import <UIKit/UIKit.h>
#import <dispatch/dispatch.h>

#import "Settings/Service.h"
#import "Settings/SettingsRootController.h"
#include "simulator/Settings/SessionTest.h"
#include "wire/Messages.hpp"
#include "wire/NoticePage.hpp"

#include <sys/socket.h>

#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

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

namespace wire = sim::wire;

/// "a", the first half of a pair, "b", the second half of another.
NSString *halvesOfPairs() {
  NSMutableString *text = [NSMutableString stringWithString:@"a😀b😀"];
  [text deleteCharactersInRange:NSMakeRange(4, 1)];
  [text deleteCharactersInRange:NSMakeRange(2, 1)];
  return text;
}

/// The names of the fields, in their order.
std::string namesIn(const Json &object) {
  std::string names;
  for (const auto &field : object.items()) names += field.key() + " ";
  return names;
}

TEST_F(SessionTest, TheFirstScreenHasTheGivenRevision) {
  start([[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a" ] ]] autorelease], 41);
  EXPECT_EQ(screen()["revision"], 41);
  EXPECT_EQ(session().revision(), 41u);
}

TEST_F(SessionTest, TheRevisionGrowsOnlyWithAChange) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  EXPECT_FALSE(session().refresh());
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);  // Nothing on the screen comes of it.
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
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(reply["path"], Json({"List", "Next"}));
}

TEST_F(SessionTest, AnExceptionInATapIsLoggedAndNothingElse) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  page->tapRaises = @"TestException";
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(reply, screen());
  EXPECT_TRUE(logged("TestException"));
  page->tapRaises = nil;
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(page), "tap 0.0,tap 0.0");
}

TEST_F(SessionTest, AnExceptionOnTheMainQueueIsLogged) {
  startList(@[ @[ @"a" ] ]);
  dispatch_async(dispatch_get_main_queue(), ^{
    [NSException raise:@"TestException" format:@"as the test wants"];
  });
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
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
  EXPECT_EQ(tap(this->page()["back"]["id"]), Outcome::done);
  EXPECT_EQ(labels(), " a ");
}

TEST_F(SessionTest, APageThatCannotBeShownHasTheFieldsOfAnyOther) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  const Json whole = screen();
  page->raises = @"TestException";
  [[page tableView] reloadData];
  session().refresh();
  const Json withoutSettings = Json::parse(sim::wire::noticeScreen(7, "No", "Why."), nullptr, false);
  EXPECT_EQ(namesIn(withoutSettings), namesIn(whole));
  EXPECT_EQ(withoutSettings["revision"], 7);
  EXPECT_EQ(withoutSettings["page"]["sections"][0]["header"], "No");
  EXPECT_EQ(withoutSettings["page"]["sections"][0]["footer"], "Why.");
  for (const Json &notice : {screen()["page"], withoutSettings["page"]}) {
    EXPECT_EQ(namesIn(notice), namesIn(whole["page"]));
    EXPECT_EQ(namesIn(notice["bar"]), namesIn(whole["page"]["bar"]));
    EXPECT_EQ(notice["contentInset"], whole["page"]["contentInset"]);
    EXPECT_EQ(namesIn(notice["sections"][0]), namesIn(whole["page"]["sections"][0]));
    EXPECT_EQ(notice["sections"][0]["rows"], Json::array());
  }
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
    EXPECT_EQ(tap(this->page()["back"]["id"]), Outcome::done);
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
  EXPECT_EQ(tap(zuno), Outcome::done);
  EXPECT_EQ(screen()["path"].size(), 2u);
  EXPECT_GT(page()["sections"].size(), 1u);
  EXPECT_EQ(tap(page()["back"]["id"]), Outcome::done);
  EXPECT_EQ(titles(), "/Settings");
}

/// The session behind a channel, and the simulator's end of it.
class ServiceTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    simulator = std::make_unique<wire::Channel>(sim::Descriptor(ends[0]));
    settings = std::make_unique<wire::Channel>(sim::Descriptor(ends[1]));
    list = startList(@[ @[ @"a" ] ]);
    service = std::make_unique<sim::Service>(*settings, session());
  }
  void TearDown() override {
    service.reset();
    SessionTest::TearDown();
  }

  /// Sends, has it served, and gives everything that came back.
  std::vector<wire::Report> exchange(wire::Message message) {
    EXPECT_TRUE(simulator->send(message));
    EXPECT_TRUE(service->serve());
    return received();
  }
  std::vector<wire::Report> received() {
    std::vector<wire::Message> messages;
    char probe;
    while (::recv(simulator->descriptor(), &probe, 1, MSG_PEEK | MSG_DONTWAIT) > 0) simulator->receive(messages);
    std::vector<wire::Report> reports;
    for (wire::Message &message : messages) reports.push_back(wire::decodeReport(std::move(message)));
    return reports;
  }
  /// The only thing that comes back: the answer, whose number and revision are right.
  wire::Reply ask(wire::Call call) {
    const auto reports = exchange(wire::encode(wire::Request{7, std::move(call)}));
    const auto *reply = reports.size() == 1 ? std::get_if<wire::Reply>(&reports[0]) : nullptr;
    EXPECT_TRUE(reply);
    if (!reply) return {};
    EXPECT_EQ(reply->request, 7u);
    EXPECT_EQ(reply->revision, session().revision());
    return *reply;
  }
  /// Tells something, and gives the revision that comes back; 0 when nothing does.
  std::uint64_t tell(wire::Call call) { return revisionIn(exchange(wire::encode(wire::Request{0, std::move(call)}))); }
  static std::uint64_t revisionIn(const std::vector<wire::Report> &reports) {
    EXPECT_LE(reports.size(), 1u);
    if (reports.empty()) return 0;
    const auto *changed = std::get_if<wire::Changed>(&reports[0]);
    EXPECT_TRUE(changed);
    return changed ? changed->revision : 0;
  }

  std::unique_ptr<wire::Channel> simulator;
  std::unique_ptr<wire::Channel> settings;
  std::unique_ptr<sim::Service> service;
  ListPage *list = nil;  // Not owned.
};

TEST_F(ServiceTest, AnswersForScreenAndEvent) {
  const auto answer = ask(wire::Screen{});
  EXPECT_EQ(answer.outcome, Outcome::done);
  EXPECT_EQ(Json::parse(answer.content, nullptr, false), screen());
  EXPECT_FALSE(service->owesAnnouncement());

  const auto tapped = ask(wire::Event{Json{{"type", "tap"}, {"id", rowId(0, 0)}}.dump()});
  EXPECT_EQ(Json::parse(tapped.content, nullptr, false), screen());
  EXPECT_EQ(calls(list), "tap 0.0");
  EXPECT_EQ(ask(wire::Event{""}).outcome, Outcome::malformed);
}

TEST_F(ServiceTest, ARefusalTellsTheRevisionToo) {
  [list pushNext];
  const auto answer = ask(wire::Event{R"({"type":"tap","id":"none"})"});
  EXPECT_EQ(answer.outcome, Outcome::unknown);
  EXPECT_EQ(answer.revision, 2u) << "of the page that came by itself";
  EXPECT_FALSE(service->owesAnnouncement());
  const auto late = ask(wire::Event{R"({"type":"tap","id":"none","revision":1})"});
  EXPECT_EQ(late.outcome, Outcome::stale);
}

TEST_F(ServiceTest, AnswersForPictures) {
  UIImageView *view = [[[UIImageView alloc] initWithImage:picture(8)] autorelease];
  [view setFrame:CGRectMake(0, 0, 8, 8)];
  list->sectionView = objcxx::share<UIView>(view);
  [[list tableView] reloadData];
  session().refresh();
  const auto answer = ask(wire::Image{identifierOf(page()["sections"][0]["headerView"]["image"])});
  EXPECT_EQ(answer.outcome, Outcome::done);
  EXPECT_EQ(answer.content.substr(1, 3), "PNG");
  EXPECT_TRUE(service->owesAnnouncement());
  EXPECT_EQ(ask(wire::Image{"0"}).outcome, Outcome::unknown);
}

TEST_F(ServiceTest, AnswersForFiles) {
  const std::string file = [onDevice(write(@"/.simulator/uploads/1", "a text")) UTF8String];
  EXPECT_EQ(ask(wire::PickFile{file, "a.txt", {}}).outcome, Outcome::refused);

  UIActivityViewController *sheet = [[[UIActivityViewController alloc]
      initWithActivityItems:@[ [NSURL fileURLWithPath:path(@"/.simulator/uploads/1")] ]
      applicationActivities:nil] autorelease];
  [list presentViewController:sheet animated:YES completion:nil];
  session().refresh();
  const auto answer = ask(wire::Shared{screen()["sheet"]["items"][0].value("id", "")});
  EXPECT_EQ(answer.outcome, Outcome::done);
  EXPECT_EQ(answer.content, "a text");
  EXPECT_EQ(ask(wire::Shared{"none"}).outcome, Outcome::unknown);
}

TEST_F(ServiceTest, AnAddedPhotoIsOnTheScreenOfItsAnswer) {
  makeFolder(@"/var/mobile/Media/DCIM");
  [list presentViewController:[[[UIImagePickerController alloc] init] autorelease] animated:YES completion:nil];
  session().refresh();
  const auto before = session().revision();
  NSString *file = onDevice(write(@"/.simulator/uploads/1", UIImagePNGRepresentation(picture(4))));
  const auto answer = ask(wire::AddPhoto{[file UTF8String], "a.png"});
  EXPECT_EQ(answer.outcome, Outcome::done);
  EXPECT_EQ(answer.revision, before + 1);
  EXPECT_EQ(Json::parse(answer.content, nullptr, false), Json({{"path", "100APPLE/IMG_0001.PNG"}}));
}

TEST_F(ServiceTest, TakesWhatItIsToldAndTellsWhatBecameOfTheScreen) {
  EXPECT_EQ(tell(wire::Pasteboard{"text"}), 0u);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], @"text");
  EXPECT_TRUE(service->owesAnnouncement());
  EXPECT_EQ(tell(wire::Pasteboard{}), 0u);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], nil);
  EXPECT_EQ(tell(wire::Display{820, 1180, 2, 24, 0, 20, 0}), 2u);
  EXPECT_EQ(row(0, 0)["frame"][2], 820);
  EXPECT_FALSE(service->owesAnnouncement());
  EXPECT_EQ(tell(wire::Display{820, 1180, 2, 24, 0, 20, 0}), 0u) << "the screen is the same";
  EXPECT_EQ(tell(wire::Appearance{true}), 0u) << "colours tell both of their forms";
  EXPECT_EQ([[list traitCollection] userInterfaceStyle], UIUserInterfaceStyleDark);
  EXPECT_EQ(tell(wire::Appearance{false}), 0u);
  EXPECT_EQ(tell(wire::Display{390, 844, 3, 0, 0, 0, 0}), 3u);
}

TEST_F(ServiceTest, AnUnknownCallIsAnsweredOrLogged) {
  const auto reports = exchange({{{"verb", "dance"}, {"request", 1}}, {}});
  ASSERT_EQ(reports.size(), 1u);
  const auto *reply = std::get_if<wire::Reply>(&reports[0]);
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->request, 1u);
  EXPECT_EQ(reply->outcome, Outcome::malformed);
  EXPECT_FALSE(reply->content.empty());
  EXPECT_TRUE(exchange({{{"verb", "dance"}}, {}}).empty());
  EXPECT_TRUE(logged("[simulator] "));
  EXPECT_TRUE(exchange({{{"verb", 3}}, {}}).empty());
}

TEST_F(ServiceTest, AnnouncesWhatChangedByItself) {
  service->announce();
  EXPECT_TRUE(received().empty());
  [list pushNext];
  service->announce();
  EXPECT_EQ(revisionIn(received()), 2u);
  service->announce();
  EXPECT_TRUE(received().empty());
}

TEST_F(ServiceTest, EndsWhenTheSimulatorIsGone) {
  simulator.reset();
  EXPECT_FALSE(service->serve());
}

}  // namespace
