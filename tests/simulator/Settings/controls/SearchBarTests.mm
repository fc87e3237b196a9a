// Searching a page: the bar of its navigation item, and one in a table's header.
#import <UIKit/UISearchController.h>

#include "simulator/Settings/SessionTest.h"

/// A list of which a search shows the rows that contain its text.
@interface SearchedPage : ListPage <UISearchResultsUpdating>
@end

@implementation SearchedPage
- (void)updateSearchResultsForSearchController:(UISearchController *)search {
  NSString *text = [[search searchBar] text];
  NSMutableArray *rows = [NSMutableArray array];
  for (NSString *row in @[ @"apple", @"pear", @"plum" ]) {
    if ([text length] == 0 || [row rangeOfString:text].length > 0) [rows addObject:row];
  }
  [sections.get() replaceObjectAtIndex:0 withObject:rows];
  [[self tableView] reloadData];
}
@end

namespace {

class SearchControlTest : public SessionTest {
 protected:
  void TearDown() override {
    page_ = nullptr;
    results_ = nullptr;
    SessionTest::TearDown();
  }
  UISearchController *startSearch(UIViewController *results = nil) {
    page_ = objcxx::adopt([[SearchedPage alloc] initWithTitle:@"Fruit" sections:@[ @[ @"apple", @"pear", @"plum" ] ]]);
    UISearchController *search = [[[UISearchController alloc] initWithSearchResultsController:results] autorelease];
    [search setSearchResultsUpdater:page_.get()];
    [[page_.get() navigationItem] setSearchController:search];
    start(page_.get());
    return search;
  }
  Json search() const { return page()["search"]; }
  std::string bar() const { return search()["bar"]["id"]; }

  objcxx::Retained<SearchedPage> page_;
  objcxx::Retained<ListPage> results_;
};

TEST_F(SearchControlTest, APageWithoutOneHasNone) {
  startList(@[ @[ @"a" ] ]);
  EXPECT_EQ(page()["search"], nullptr);
}

TEST_F(SearchControlTest, AnActiveSearchShowsWhatIsFound) {
  UISearchController *controller = startSearch();
  EXPECT_EQ(search()["active"], false);
  EXPECT_EQ(search()["scrolls"], true);
  EXPECT_EQ(search()["bar"]["control"]["type"], "search");
  EXPECT_EQ(search()["bar"]["control"]["placeholder"], "Search");
  EXPECT_EQ(search()["bar"]["control"]["cancelButton"], false);
  EXPECT_EQ(search()["bar"]["value"], "");
  EXPECT_EQ(set(bar(), nullptr), Outcome::refused) << "there is no button yet";
  EXPECT_EQ(reply["error"], "It shows no button that cancels.");
  EXPECT_EQ(send({{"type", "set"}, {"id", bar()}, {"value", "p"}, {"finished", false}}), Outcome::done);
  EXPECT_EQ(labels(), " apple  pear  plum ");
  EXPECT_EQ(search()["active"], true);
  EXPECT_EQ(search()["coversBar"], true);
  EXPECT_EQ(search()["bar"]["control"]["editing"], true);
  EXPECT_EQ(search()["bar"]["control"]["cancelButton"], true);
  EXPECT_EQ(send({{"type", "set"}, {"id", bar()}, {"value", "pl"}, {"return", true}}), Outcome::done);
  EXPECT_EQ(labels(), " apple  plum ");
  EXPECT_EQ(search()["bar"]["value"], "pl");
  EXPECT_EQ(search()["bar"]["control"]["editing"], false);
  EXPECT_EQ(tap(rowId(0, 1)), Outcome::done);
  EXPECT_EQ(set(bar(), nullptr), Outcome::done);
  EXPECT_EQ(labels(), " apple  pear  plum ");
  EXPECT_EQ(search()["active"], false);
  [controller setHidesNavigationBarDuringPresentation:NO];
  [controller setObscuresBackgroundDuringPresentation:YES];
  [[page_.get() navigationItem] setHidesSearchBarWhenScrolling:NO];
  [controller setActive:YES];
  session().refresh();
  EXPECT_EQ(search()["coversBar"], false);
  EXPECT_EQ(search()["obscures"], true);
  EXPECT_EQ(search()["scrolls"], false);
  for (const Json &wrong : {Json(1), Json(true), Json::array()}) EXPECT_EQ(set(bar(), wrong), Outcome::refused);
}

TEST_F(SearchControlTest, AnotherControllersRowsAreShownAndTapped) {
  results_ = objcxx::adopt([[ListPage alloc] initWithTitle:@"Found" sections:@[ @[ @"found" ] ]]);
  results_.get()->selectable = YES;
  startSearch(results_.get());
  EXPECT_EQ(labels(), " apple  pear  plum ");
  EXPECT_EQ(set(bar(), "f"), Outcome::done);
  EXPECT_EQ(labels(), " found ");
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(results_.get()), "tap 0.0");
  EXPECT_EQ(set(bar(), nullptr), Outcome::done);
  EXPECT_EQ(labels(), " apple  pear  plum ");
}

TEST_F(SearchControlTest, ABarInAHeaderIsWorkedThere) {
  UISearchBar *header = [[[UISearchBar alloc] initWithFrame:CGRectMake(0, 0, 320, 56)] autorelease];
  [header setBarTintColor:[UIColor redColor]];
  ListPage *page = startList(@[ @[ @"a" ] ]);
  [[page tableView] setTableHeaderView:header];
  session().refresh();
  const Json described = this->page()["headerView"];
  EXPECT_EQ(described["control"]["barColor"], "#ff0000ff");
  EXPECT_EQ(set(described["id"], "x"), Outcome::done);
  EXPECT_TRUE([[header text] isEqualToString:@"x"]);
}

TEST_F(SearchControlTest, ABarHasTheLookAndTheKeyboardThatItWasGiven) {
  UISearchBar *bar = [[[UISearchBar alloc] initWithFrame:CGRectMake(0, 0, 320, 56)] autorelease];
  EXPECT_EQ(describedView(bar)["control"], Json({{"type", "search"},
                                                 {"placeholder", nullptr},
                                                 {"keyboard", "text"},
                                                 {"autocapitalization", "sentences"},
                                                 {"autocorrection", nullptr},
                                                 {"spellChecking", nullptr},
                                                 {"returnKey", "search"},
                                                 {"cancelButton", false},
                                                 {"editing", false},
                                                 {"minimal", false},
                                                 {"barColor", nullptr},
                                                 {"textColor", {{"light", "#000000ff"}, {"dark", "#ffffffff"}}},
                                                 {"ownTextColor", false},
                                                 {"fieldColor", nullptr},
                                                 {"tintColor", nullptr}}));
  [bar setPlaceholder:@"Fruit"];
  [bar setKeyboardType:UIKeyboardTypeURL];
  [bar setAutocapitalizationType:UITextAutocapitalizationTypeAllCharacters];
  [bar setAutocorrectionType:UITextAutocorrectionTypeNo];
  [bar setSpellCheckingType:UITextSpellCheckingTypeYes];
  [bar setShowsCancelButton:YES];
  [bar setSearchBarStyle:UISearchBarStyleMinimal];
  [bar setBackgroundColor:[UIColor blackColor]];
  [bar setBarTintColor:[UIColor whiteColor]];
  [bar setTintColor:[UIColor redColor]];
  [[bar searchTextField] setTextColor:[UIColor greenColor]];
  [[bar searchTextField] setBackgroundColor:[UIColor blueColor]];
  EXPECT_EQ(describedView(bar)["control"], Json({{"type", "search"},
                                                 {"placeholder", "Fruit"},
                                                 {"keyboard", "url"},
                                                 {"autocapitalization", "characters"},
                                                 {"autocorrection", false},
                                                 {"spellChecking", true},
                                                 {"returnKey", "search"},
                                                 {"cancelButton", true},
                                                 {"editing", false},
                                                 {"minimal", true},
                                                 {"barColor", "#ffffffff"},
                                                 {"textColor", "#00ff00ff"},
                                                 {"ownTextColor", true},
                                                 {"fieldColor", "#0000ffff"},
                                                 {"tintColor", "#ff0000ff"}}));
}

TEST_F(SearchControlTest, ABarThatCannotBeReachedTakesNoText) {
  UISearchBar *bar = [[[UISearchBar alloc] initWithFrame:CGRectMake(0, 0, 320, 56)] autorelease];
  [bar setUserInteractionEnabled:NO];
  const std::string id = describedView(bar)["id"];
  expectRefused({{"type", "set"}, {"id", id}, {"value", "x"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
  expectRefused({{"type", "set"}, {"id", id}, {"value", "x"}, {"return", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

}  // namespace
