// The pages that were open are opened again in a later run, by what was touched to reach them.
#import <Preferences/Preferences.h>
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

namespace wire = sim::wire;

/// Its rows open pages of the same kind with their names; "alert" asks first. A button in the bar opens "Added".
@interface BranchPage : ListPage
@end

@implementation BranchPage

- (void)viewDidLoad {
  [super viewDidLoad];
  UIBarButtonItem *button = [[[UIBarButtonItem alloc] initWithBarButtonSystemItem:UIBarButtonSystemItemAdd
                                                                           target:self
                                                                           action:@selector(add)] autorelease];
  [[self navigationItem] setRightBarButtonItem:button];
}

- (void)open:(NSString *)title {
  BranchPage *next = [[[BranchPage alloc] initWithTitle:title sections:sections.get()] autorelease];
  [[self navigationController] pushViewController:next animated:YES];
}

- (void)add {
  [self open:@"Added"];
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)path {
  NSString *name = [[sections.get() objectAtIndex:static_cast<NSUInteger>([path section])]
      objectAtIndex:static_cast<NSUInteger>([path row])];
  if ([name isEqualToString:@"raise"]) [NSException raise:@"BranchException" format:@"as the test wants"];
  if (![name isEqualToString:@"alert"]) return [self open:name];
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Open?"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:@"OK"
                                            style:UIAlertActionStyleDefault
                                          handler:^(UIAlertAction *) {
                                            [self open:@"Asked"];
                                          }]];
  [self presentViewController:alert animated:YES completion:nil];
}

@end

namespace {

class PageTrailTests : public SessionTest {
 protected:
  void startWith(NSArray *rows, std::uint64_t revision = 1) {
    start([[[BranchPage alloc] initWithTitle:@"First" sections:@[ rows ]] autorelease], revision);
  }
  void tapRow(std::size_t number) { EXPECT_EQ(tap(rowId(0, number)), Outcome::done); }
  std::string place() { return session().perform(wire::Place{}).content; }
  /// The titles of the pages that are open in a new run with `rows`.
  std::string reopened(const std::string &place, NSArray *rows) {
    startWith(rows, session().revision() + 1);
    EXPECT_EQ(perform(wire::Reopen{place}), Outcome::done);
    EXPECT_EQ(reply["path"], screen()["path"]) << "it is answered with the screen";
    return titles();
  }
};

TEST_F(PageTrailTests, OpensTheSamePagesAgain) {
  startWith(@[ @"a", @"b" ]);
  EXPECT_EQ(reopened(place(), @[ @"a", @"b" ]), titles()) << "the first page alone";
  tapRow(1);
  tapRow(0);
  const std::string before = titles();
  EXPECT_EQ(reopened(place(), @[ @"a", @"b" ]), before);
  EXPECT_EQ(reopened(place(), @[ @"a", @"b" ]), before) << "as the reopened pages are remembered";
}

TEST_F(PageTrailTests, FindsARowWhereverItIsNow) {
  startWith(@[ @"a", @"b" ]);
  tapRow(1);
  const std::string before = titles();
  const std::string there = place();
  EXPECT_EQ(reopened(there, @[ @"new", @"a", @"c", @"b" ]), before);
}

TEST_F(PageTrailTests, WhatARowShowsCountsMoreThanItsLabelAndThatMoreThanItsPlace) {
  startWith(@[ @"a", @"b" ]);
  tapRow(1);
  sim::Json there = sim::Json::parse(place());
  sim::Json &touch = there["pages"][1]["touch"];
  std::string label = touch["label"];
  ASSERT_TRUE(label.ends_with("b")) << label;
  label.back() = 'a';
  touch["label"] = label;
  touch["at"] = {0, 9};
  (void)reopened(there.dump(), @[ @"a", @"b" ]);
  EXPECT_EQ(screen()["path"], sim::Json({"First", "b"}));
  touch["shown"] = "what nothing shows";
  touch["at"] = {0, 0};
  (void)reopened(there.dump(), @[ @"b", @"a" ]);
  EXPECT_EQ(screen()["path"], sim::Json({"First", "a"}));
}

TEST_F(PageTrailTests, TakesTheRowInThePlaceOfOneThatIsCalledOtherwiseNow) {
  startWith(@[ @"a", @"b" ]);
  tapRow(1);
  const std::string there = place();
  EXPECT_NE(reopened(there, @[ @"a", @"renamed" ]).find("renamed"), std::string::npos);
}

TEST_F(PageTrailTests, StopsAtTheNearestPageThatIsStillThere) {
  startWith(@[ @"a", @"b" ]);
  tapRow(1);
  const std::string there = place();
  EXPECT_EQ(reopened(there, @[ @"a" ]).find("b"), std::string::npos) << "neither the row nor one in its place";
  EXPECT_EQ(screen()["path"], sim::Json({"First"}));
  EXPECT_EQ(reopened(there, @[ @"a", @"raise" ]).find("raise"), std::string::npos);
  EXPECT_EQ(screen()["path"], sim::Json({"First"}));
}

TEST_F(PageTrailTests, FollowsButtonsInTheBarToo) {
  startWith(@[ @"a" ]);
  EXPECT_EQ(tap(page()["buttons"][0]["id"]), Outcome::done);
  tapRow(0);
  const std::string before = titles();
  EXPECT_EQ(reopened(place(), @[ @"a" ]), before);
}

TEST_F(PageTrailTests, EndsWhereAPageCameInAnotherWay) {
  startWith(@[ @"a", @"alert" ]);
  tapRow(0);
  tapRow(1);
  EXPECT_EQ(tap(screen()["alert"]["actions"][0]["id"]), Outcome::done);
  tapRow(0);
  EXPECT_EQ(screen()["path"], sim::Json({"First", "a", "Asked", "a"}));
  const std::string there = place();
  (void)reopened(there, @[ @"a", @"alert" ]);
  EXPECT_EQ(screen()["path"], sim::Json({"First", "a"}));
  EXPECT_TRUE(screen()["alert"].is_null());
}

TEST_F(PageTrailTests, ForgetsPagesThatWereLeft) {
  startWith(@[ @"a", @"b" ]);
  tapRow(0);
  EXPECT_EQ(tap(page()["back"]["id"]), Outcome::done);
  tapRow(1);
  const std::string there = place();
  (void)reopened(there, @[ @"a", @"b" ]);
  EXPECT_EQ(screen()["path"], sim::Json({"First", "b"}));
}

TEST_F(PageTrailTests, PagesKeepTheirNumbersAndScrollPositions) {
  NSMutableArray *rows = [NSMutableArray array];
  for (int i = 0; i < 60; ++i) [rows addObject:[NSString stringWithFormat:@"row %d", i]];
  startWith(rows);
  tapRow(0);
  EXPECT_EQ(tap(page()["back"]["id"]), Outcome::done);
  tapRow(1);
  EXPECT_EQ(send({{"type", "scroll"}, {"to", {0, 50}}}), Outcome::done);
  const sim::Json number = page()["id"];
  const sim::Json there = sim::Json::parse(place());
  ASSERT_GT(there["pages"][1]["offset"], 500);
  (void)reopened(there.dump(), rows);
  EXPECT_EQ(page()["id"], number);
  EXPECT_EQ(sim::Json::parse(place()), there);
  tapRow(3);
  EXPECT_GT(page()["id"], number) << "no number is given twice";
}

TEST_F(PageTrailTests, WhatIsNoPlaceIsRefusedAndOpensNothing) {
  startWith(@[ @"a" ]);
  for (const char *text : {"", "null", "[]", "{}", "{\"pages\":3}", "{\"pages\":[1]}", "{\"pages\""}) {
    EXPECT_EQ(perform(wire::Reopen{text}), Outcome::malformed) << text;
  }
  const std::vector<sim::Json> strange{
      {{"pages", sim::Json::array()}},
      {{"pages", {{{"id", -7}, {"offset", "far"}}, {{"id", 1e300}, {"touch", "row"}}}}},
      {{"pages", {{{"id", 1}}, {{"id", 1}, {"touch", {{"at", {0, 1e9}}}}}}}},
      {{"pages", {{{"id", 1}}, {{"touch", {{"at", {-1, 0}}, {"shown", 3}}}}}}},
      {{"pages", {{{"id", 1}}, {{"touch", {{"button", 3}, {"at", 1e30}}}}}}},
  };
  for (const sim::Json &place : strange) {
    EXPECT_EQ(perform(wire::Reopen{place.dump()}), Outcome::done) << place;
    EXPECT_EQ(screen()["path"], sim::Json({"First"})) << place;
  }
}

}  // namespace
