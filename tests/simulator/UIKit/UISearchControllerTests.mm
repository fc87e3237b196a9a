#import <UIKit/UIKit.h>
#import <UIKit/UISearchBar+Sim.h>
#import <UIKit/UISearchController+Sim.h>
#import <objcxx/Retained.h>

#include <string>
#include <utility>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

/// Delegate and updater of a search, which writes down what it is told.
@interface SearchListener : NSObject <UISearchBarDelegate, UISearchControllerDelegate, UISearchResultsUpdating> {
 @public
  std::string heard;
  BOOL refusesToBegin;
  BOOL refusesToEnd;
  BOOL refusesChanges;
}
@end

@implementation SearchListener
- (void)note:(const std::string &)what {
  heard += (heard.empty() ? "" : " ") + what;
}
- (BOOL)searchBarShouldBeginEditing:(UISearchBar *)bar {
  (void)bar;
  return !refusesToBegin;
}
- (void)searchBarTextDidBeginEditing:(UISearchBar *)bar {
  (void)bar;
  [self note:"begin"];
}
- (BOOL)searchBarShouldEndEditing:(UISearchBar *)bar {
  (void)bar;
  return !refusesToEnd;
}
- (void)searchBarTextDidEndEditing:(UISearchBar *)bar {
  (void)bar;
  [self note:"end"];
}
- (void)searchBar:(UISearchBar *)bar textDidChange:(NSString *)text {
  (void)bar;
  [self note:std::string("text=") + [text UTF8String]];
}
- (BOOL)searchBar:(UISearchBar *)bar shouldChangeTextInRange:(NSRange)range replacementText:(NSString *)text {
  (void)bar;
  (void)range;
  (void)text;
  return !refusesChanges;
}
- (void)searchBarSearchButtonClicked:(UISearchBar *)bar {
  (void)bar;
  [self note:"search"];
}
- (void)searchBarCancelButtonClicked:(UISearchBar *)bar {
  (void)bar;
  [self note:"cancel"];
}
- (void)willPresentSearchController:(UISearchController *)search {
  [self note:[search isActive] ? "wrong" : "will-present"];
}
- (void)didPresentSearchController:(UISearchController *)search {
  [self note:[search isActive] ? "did-present" : "wrong"];
}
- (void)willDismissSearchController:(UISearchController *)search {
  (void)search;
  [self note:"will-dismiss"];
}
- (void)didDismissSearchController:(UISearchController *)search {
  (void)search;
  [self note:"did-dismiss"];
}
- (void)updateSearchResultsForSearchController:(UISearchController *)search {
  [self note:std::string("update=") + [[[search searchBar] text] UTF8String]];
}
@end

namespace {

class SearchTest : public testing_support::ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    listener_ = objcxx::adopt([[SearchListener alloc] init]);
  }
  void TearDown() override {
    listener_ = nullptr;
    ObjCTest::TearDown();
  }
  UISearchBar *makeBar() {
    UISearchBar *bar = [[[UISearchBar alloc] initWithFrame:CGRectZero] autorelease];
    [bar setDelegate:listener_.get()];
    return bar;
  }
  UISearchController *makeSearch(UIViewController *results = nil) {
    UISearchController *search = [[[UISearchController alloc] initWithSearchResultsController:results] autorelease];
    [search setSearchResultsUpdater:listener_.get()];
    [search setDelegate:listener_.get()];
    return search;
  }
  std::string heard() { return std::exchange(listener_.get()->heard, std::string()); }

  objcxx::Retained<SearchListener> listener_;
};

TEST_F(SearchTest, ABarTellsOfWhatIsTyped) {
  UISearchBar *bar = makeBar();
  EXPECT_OBJC_EQ([bar text], @"");
  EXPECT_TRUE([bar sim_type:@"a" finished:NO]);
  EXPECT_TRUE([bar isFirstResponder]);
  EXPECT_TRUE([bar sim_type:@"ab" finished:NO]);
  EXPECT_TRUE([bar sim_type:@"ab" finished:YES]);
  EXPECT_FALSE([bar isFirstResponder]);
  EXPECT_EQ(heard(), "begin text=a text=ab end");
  EXPECT_OBJC_EQ([[bar searchTextField] text], @"ab");
  EXPECT_TRUE([bar sim_search:@"abc"]);
  EXPECT_EQ(heard(), "begin text=abc search");
  EXPECT_TRUE([bar isFirstResponder]) << "its delegate ends it, as on a device";
  [bar resignFirstResponder];
  heard();
  listener_.get()->refusesChanges = YES;
  EXPECT_TRUE([bar sim_type:@"x" finished:YES]);
  EXPECT_OBJC_EQ([bar text], @"abc");
  EXPECT_EQ(heard(), "begin end");
  listener_.get()->refusesToEnd = YES;
  EXPECT_TRUE([bar sim_type:@"abc" finished:YES]);
  EXPECT_TRUE([bar isFirstResponder]);
  listener_.get()->refusesToEnd = NO;
  [bar resignFirstResponder];
  heard();
  listener_.get()->refusesToBegin = YES;
  EXPECT_FALSE([bar sim_type:@"y" finished:NO]);
  EXPECT_EQ(heard(), "");
}

TEST_F(SearchTest, ABarIsCancelledWhereItShowsTheButton) {
  UISearchBar *bar = makeBar();
  EXPECT_FALSE([bar sim_cancelByUser]);
  [bar setShowsCancelButton:YES animated:YES];
  [bar setText:@"abc"];
  heard();
  EXPECT_TRUE([bar sim_cancelByUser]);
  EXPECT_EQ(heard(), "cancel");
  EXPECT_OBJC_EQ([bar text], @"abc") << "what follows is the delegate's";
  [bar setUserInteractionEnabled:NO];
  EXPECT_FALSE([bar sim_cancelByUser]);
  EXPECT_FALSE([bar sim_type:@"" finished:NO]);
  [bar sizeToFit];
  EXPECT_EQ([bar frame].size.height, 56);
}

TEST_F(SearchTest, ASearchBeginsUpdatesAndEnds) {
  UISearchController *search = makeSearch();
  EXPECT_OBJC_EQ([[search searchBar] placeholder], @"Search");
  EXPECT_TRUE([[search searchBar] sim_type:@"" finished:NO]);
  EXPECT_TRUE([search isActive]);
  EXPECT_EQ(heard(), "will-present update= did-present");
  EXPECT_TRUE([[search searchBar] sim_type:@"t" finished:NO]);
  EXPECT_EQ(heard(), "update=t");
  EXPECT_TRUE([[search searchBar] sim_search:@"ta"]);
  EXPECT_EQ(heard(), "update=ta");
  EXPECT_TRUE([search isActive]);
  EXPECT_FALSE([[search searchBar] isFirstResponder]);
  EXPECT_TRUE([[search searchBar] sim_showsCancel]);
  EXPECT_TRUE([[search searchBar] sim_cancelByUser]);
  EXPECT_EQ(heard(), "will-dismiss update= did-dismiss");
  EXPECT_FALSE([search isActive]);
  EXPECT_FALSE([[search searchBar] sim_showsCancel]);
  [search setActive:YES];
  EXPECT_TRUE([[search searchBar] isFirstResponder]);
  [search setActive:NO];
  EXPECT_EQ(heard(), "will-present update= did-present will-dismiss update= did-dismiss");
}

TEST_F(SearchTest, AnotherControllersTableLiesOverThePageWhileThereIsAText) {
  UITableViewController *results = [[[UITableViewController alloc] initWithStyle:UITableViewStylePlain] autorelease];
  UISearchController *search = makeSearch(results);
  EXPECT_EQ([search searchResultsController], results);
  [search setActive:YES];
  EXPECT_EQ([search sim_shownResultsController], nil);
  EXPECT_TRUE([[search searchBar] sim_type:@"t" finished:NO]);
  EXPECT_EQ([search sim_shownResultsController], results);
  [search setActive:NO];
  EXPECT_EQ([search sim_shownResultsController], nil);
}

TEST_F(SearchTest, ANavigationItemKeepsItsSearch) {
  UINavigationItem *item = [[[UINavigationItem alloc] initWithTitle:@"Page"] autorelease];
  EXPECT_EQ([item searchController], nil);
  EXPECT_TRUE([item hidesSearchBarWhenScrolling]);
  UISearchController *search = makeSearch();
  [item setSearchController:search];
  EXPECT_EQ([item searchController], search);
  EXPECT_FALSE([search obscuresBackgroundDuringPresentation]);
  [search setDimsBackgroundDuringPresentation:YES];
  EXPECT_TRUE([search obscuresBackgroundDuringPresentation]);
}

}  // namespace
