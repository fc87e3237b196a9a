// An id names one row for as long as it is on the screen, and never another one.
#import <Preferences/Preferences.h>
#import <UIKit/UIKit.h>

#include <map>
#include <set>

#include "simulator/Settings/SessionTest.h"

/// A page with a row for each of `names`, made anew whenever its rows are. Each has an identifier unless `anonymous`.
@interface SpecifierPage : PSListController {
 @public
  objcxx::Retained<NSArray> names;
  BOOL anonymous;
}
@end

@implementation SpecifierPage

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSMutableArray *made = [NSMutableArray array];
  for (NSString *name in names.get()) {
    PSSpecifier *specifier = [PSSpecifier preferenceSpecifierNamed:@"Row"
                                                            target:self
                                                               set:NULL
                                                               get:NULL
                                                            detail:Nil
                                                              cell:PSStaticTextCell
                                                              edit:Nil];
    if (anonymous) {
      [specifier setName:name];
    } else {
      [specifier setIdentifier:name];
    }
    [made addObject:specifier];
  }
  _specifiers = [made copy];
  return _specifiers;
}

@end

/// A label of an app's own.
@interface RowLabel : UILabel
@end

@implementation RowLabel
@end

/// Its rows show their texts in views of their own, one for each part between slashes.
@interface CustomCellPage : ListPage
@end

@implementation CustomCellPage

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                  reuseIdentifier:nil] autorelease];
  NSString *row = [[sections.get() objectAtIndex:[path section]] objectAtIndex:[path row]];
  for (NSString *text in [row componentsSeparatedByString:@"/"]) {
    RowLabel *label = [[[RowLabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)] autorelease];
    [label setText:text];
    [[cell contentView] addSubview:label];
  }
  return cell;
}

@end

/// Answers a drag by loading all of its rows anew, as list editors do.
@interface ReloadingPage : ListPage
@end

@implementation ReloadingPage

- (void)tableView:(UITableView *)tableView moveRowAtIndexPath:(NSIndexPath *)from toIndexPath:(NSIndexPath *)to {
  [super tableView:tableView moveRowAtIndexPath:from toIndexPath:to];
  [tableView reloadData];
}

@end

namespace {

constexpr auto kNone = UITableViewRowAnimationNone;

NSIndexPath *at(NSInteger section, NSInteger row) { return [NSIndexPath indexPathForRow:row inSection:section]; }

class RowIdentityTest : public SessionTest {
 protected:
  NSMutableArray *rows(NSUInteger section) { return [list_->sections.get() objectAtIndex:section]; }
  UITableView *table() { return [list_ tableView]; }
  void start(NSArray *sections) { list_ = startList(sections); }

  void show(ListPage *page) {
    list_ = page;
    SessionTest::start(page);
  }
  /// The ids of all rows that are described, by what they show.
  std::map<std::string, std::string> ids() {
    std::map<std::string, std::string> result;
    const Json sections = page()["sections"];
    for (const Json &section : sections) {
      for (const Json &row : section["rows"]) {
        if (!row.contains("outline")) result[textOf(row)] = row["id"];
      }
    }
    return result;
  }
  static std::string textOf(const Json &row) {
    return row["views"].empty() ? row.value("label", "") : row["views"][0].value("text", "");
  }
  /// The ids of a section's rows, in order.
  std::vector<std::string> idsOf(std::size_t section) {
    std::vector<std::string> result;
    const Json rows = page()["sections"][section]["rows"];
    for (const Json &row : rows) result.push_back(row["id"]);
    return result;
  }
  void expectGone(const std::string &id) {
    expectRefused({{"type", "tap"}, {"id", id}}, Outcome::unknown);
    expectRefused({{"type", "set"}, {"id", id}, {"value", true}}, Outcome::unknown);
    expectRefused({{"type", "swipe"}, {"id", id}}, Outcome::unknown);
  }

  ListPage *list_ = nil;  // Owned by the session.
};

TEST_F(RowIdentityTest, ARowKeepsItsIdWhenOneIsInsertedBeforeIt) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = ids();
  [rows(0) insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  session().refresh();
  EXPECT_EQ(labels(), " new  a  b ");
  EXPECT_EQ(ids()["a"], before.at("a"));
  EXPECT_EQ(ids()["b"], before.at("b"));
  EXPECT_EQ(tap(before.at("a")), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 0.1");
}

TEST_F(RowIdentityTest, TheIdOfADeletedRowNamesNothing) {
  start(@[ @[ @"a", @"b", @"c" ] ]);
  const auto before = ids();
  [rows(0) removeObjectAtIndex:0];
  [table() deleteRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  session().refresh();
  expectGone(before.at("a"));
  EXPECT_EQ(calls(list_), "");
  [rows(0) insertObject:@"a" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  session().refresh();
  expectGone(before.at("a"));
  EXPECT_EQ(ids()["c"], before.at("c"));
}

TEST_F(RowIdentityTest, IdsFollowMovesByThePageAndByTheUser) {
  start(@[ @[ @"a", @"b", @"c" ], @[ @"d" ] ]);
  const auto before = ids();
  [rows(1) insertObject:@"a" atIndex:0];
  [rows(0) removeObjectAtIndex:0];
  [table() moveRowAtIndexPath:at(0, 0) toIndexPath:at(1, 0)];
  session().refresh();
  EXPECT_EQ(labels(), " b  c | a  d ");
  EXPECT_EQ(ids(), before);
  [list_ setEditing:YES animated:NO];
  session().refresh();
  EXPECT_EQ(move({1, 0}, {0, 1}), Outcome::done);
  EXPECT_EQ(labels(), " b  a  c | d ");
  EXPECT_EQ(ids(), before);
  EXPECT_EQ(tap(before.at("d")), Outcome::done);
  EXPECT_EQ(calls(list_), "move 1.0");  // No taps while it is edited.
}

TEST_F(RowIdentityTest, IdsFollowADragAfterWhichThePageLoadsItsRowsAnew) {
  show([[[ReloadingPage alloc] initWithTitle:@"List"
                                    sections:@[ @[ @"same", @"x", @"same" ], @[ @"y" ] ]] autorelease]);
  const auto before = idsOf(0);
  const std::string y = rowId(1, 0);
  [list_ setEditing:YES animated:NO];
  session().refresh();
  EXPECT_EQ(move({0, 0}, {0, 2}), Outcome::done);
  EXPECT_EQ(labels(), " x  same  same | y ");
  EXPECT_EQ(idsOf(0), (std::vector{before[1], before[2], before[0]})) << "alike, but the user has moved the first";
  EXPECT_EQ(move({0, 0}, {1, 1}), Outcome::done);
  EXPECT_EQ(labels(), " same  same | y  x ");
  EXPECT_EQ(idsOf(0), (std::vector{before[2], before[0]}));
  EXPECT_EQ(idsOf(1), (std::vector{y, before[1]}));
}

TEST_F(RowIdentityTest, AReloadedRowKeepsItsIdWhateverItShows) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = idsOf(0);
  [rows(0) replaceObjectAtIndex:0 withObject:@"another"];
  [table() reloadRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  session().refresh();
  EXPECT_EQ(labels(), " another  b ");
  EXPECT_EQ(idsOf(0), before);
}

TEST_F(RowIdentityTest, RowsOfAReloadedSectionAreKnownByWhatTheyShow) {
  start(@[ @[ @"a", @"b" ], @[ @"a" ] ]);
  const auto first = idsOf(0), second = idsOf(1);
  [rows(0) setArray:@[ @"new", @"b", @"a" ]];
  [table() reloadSections:[NSIndexSet indexSetWithIndex:0] withRowAnimation:kNone];
  session().refresh();
  EXPECT_EQ(rowId(0, 1), first[1]);
  EXPECT_EQ(rowId(0, 2), first[0]);
  EXPECT_EQ(idsOf(1), second);
}

TEST_F(RowIdentityTest, RowsAreKnownAgainWhenAllAreLoadedAnew) {
  start(@[ @[ @"a", @"b", @"c" ], @[ @"d" ] ]);
  const auto before = ids();
  [rows(0) setArray:@[ @"d", @"new", @"b" ]];
  [rows(1) setArray:@[ @"a" ]];
  [table() reloadData];
  session().refresh();
  EXPECT_EQ(labels(), " d  new  b | a ");
  for (const char *name : {"a", "b", "d"}) EXPECT_EQ(ids()[name], before.at(name)) << name;
  for (const auto &[name, id] : before) EXPECT_NE(ids()["new"], id);
  expectGone(before.at("c"));
  EXPECT_EQ(tap(before.at("a")), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 1.0");
}

TEST_F(RowIdentityTest, RowsThatShowTheSameStayDistinctAndInOrder) {
  start(@[ @[ @"same", @"x", @"same", @"same" ] ]);
  const auto before = idsOf(0);
  EXPECT_EQ(std::set(before.begin(), before.end()).size(), 4u);
  [rows(0) setArray:@[ @"new", @"same", @"same", @"x", @"same" ]];
  [table() reloadData];
  session().refresh();
  const auto after = idsOf(0);
  EXPECT_EQ((std::vector(after.begin() + 1, after.end())), (std::vector{before[0], before[2], before[1], before[3]}));
  EXPECT_EQ(tap(before[2]), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 0.2");
}

TEST_F(RowIdentityTest, TextsInViewsOfTheirOwnTellRowsApart) {
  show([[[CustomCellPage alloc] initWithTitle:@"List" sections:@[ @[ @"a", @"b", @"c" ] ]] autorelease]);
  const auto before = ids();
  ASSERT_EQ(before.size(), 3u);
  [rows(0) setArray:@[ @"c", @"b", @"new" ]];
  [table() reloadData];
  session().refresh();
  EXPECT_EQ(ids()["c"], before.at("c"));
  EXPECT_EQ(ids()["b"], before.at("b"));
  expectGone(before.at("a"));
}

TEST_F(RowIdentityTest, TheSameLettersInOtherViewsAreAnotherRow) {
  show([[[CustomCellPage alloc] initWithTitle:@"List" sections:@[ @[ @"1/23" ] ]] autorelease]);
  const std::string before = rowId(0, 0);
  [rows(0) setArray:@[ @"12/3", @"1/23" ]];
  [table() reloadData];
  session().refresh();
  EXPECT_EQ(rowId(0, 1), before);
}

TEST_F(RowIdentityTest, SpecifiersTellRowsApartThatShowTheSame) {
  SpecifierPage *page = [[[SpecifierPage alloc] init] autorelease];
  page->names = objcxx::share(@[ @"one", @"two", @"three" ]);
  SessionTest::start(page);
  const auto before = idsOf(0);
  page->names = objcxx::share(@[ @"three", @"new", @"one" ]);
  [page reloadSpecifiers];
  session().refresh();
  EXPECT_EQ(labels(), " Row  Row  Row ");
  EXPECT_EQ(rowId(0, 0), before[2]);
  EXPECT_EQ(rowId(0, 2), before[0]);
  expectGone(before[1]);

  NSArray *rows = [page specifiers];
  const auto now = idsOf(0);
  for (PSSpecifier *row in rows) [row setIdentifier:nil];
  [page setSpecifiers:[[rows reverseObjectEnumerator] allObjects]];
  session().refresh();
  EXPECT_EQ(idsOf(0), (std::vector(now.rbegin(), now.rend()))) << "they are the same objects";
}

TEST_F(RowIdentityTest, SpecifiersWithoutIdentifiersAreKnownByWhatTheirRowsShow) {
  SpecifierPage *page = [[[SpecifierPage alloc] init] autorelease];
  page->anonymous = YES;
  page->names = objcxx::share(@[ @"one", @"two" ]);
  SessionTest::start(page);
  const auto before = ids();
  page->names = objcxx::share(@[ @"two", @"one" ]);
  [page reloadSpecifiers];
  session().refresh();
  EXPECT_EQ(labels(), " two  one ");
  EXPECT_EQ(ids(), before);
}

TEST_F(RowIdentityTest, SpecifiersThatAreAddedAndRemovedLeaveTheOthersTheirIds) {
  SpecifierPage *page = [[[SpecifierPage alloc] init] autorelease];
  page->names = objcxx::share(@[ @"one", @"two", @"three" ]);
  SessionTest::start(page);
  const auto before = idsOf(0);
  [page removeSpecifierID:@"one" animated:YES];
  [page insertSpecifier:[PSSpecifier groupSpecifierWithID:@"group"] afterSpecifierID:@"two" animated:YES];
  session().refresh();
  EXPECT_EQ(idsOf(0), std::vector{before[1]});
  EXPECT_EQ(idsOf(1), std::vector{before[2]});
  expectGone(before[0]);
}

TEST_F(RowIdentityTest, TwoTablesOnAPageShareNoId) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = ids();
  ListPage *other = [[[ListPage alloc] initWithTitle:@"Other" sections:@[ @[ @"a", @"b" ] ]] autorelease];
  const auto first = objcxx::share(table());
  auto both = objcxx::adopt([[UIView alloc] initWithFrame:[table() frame]]);
  [list_ setView:both.get()];
  [both.get() addSubview:[other tableView]];
  [both.get() addSubview:first.get()];
  session().refresh();
  for (const auto &[name, id] : ids()) {
    for (const auto &[formerName, former] : before) EXPECT_NE(id, former);
  }
  EXPECT_EQ(tap(before.at("a")), Outcome::unknown) << "a row of the table that is not shown";
  const auto shown = ids();
  [both.get() bringSubviewToFront:[other tableView]];
  session().refresh();
  EXPECT_EQ(ids(), before);
  EXPECT_EQ(tap(shown.at("a")), Outcome::unknown);
  EXPECT_EQ(calls(other), "");
}

TEST_F(RowIdentityTest, IdsStayWhileAnotherPageIsInFront) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = ids();
  [list_ pushNext];
  session().refresh();
  EXPECT_EQ(labels(), " deep ");
  for (const auto &[name, id] : before) expectGone(id);
  const std::string deep = rowId(0, 0);
  [rows(0) setArray:@[ @"new", @"b", @"a" ]];
  [table() reloadData];
  session().refresh();
  EXPECT_EQ(tap(page()["back"]["id"]), Outcome::done);
  EXPECT_EQ(labels(), " new  b  a ");
  EXPECT_EQ(ids()["a"], before.at("a"));
  EXPECT_EQ(ids()["b"], before.at("b"));
  [list_ pushNext];
  session().refresh();
  EXPECT_NE(rowId(0, 0), deep) << "another page";
  expectGone(deep);
}

TEST_F(RowIdentityTest, AnEventFindsItsRowThoughTheScreenHasNotBeenDescribedSince) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = ids();
  [rows(0) insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  EXPECT_EQ(tap(before.at("a")), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 0.1");
  [rows(0) setArray:@[ @"b", @"a" ]];
  [table() reloadData];
  EXPECT_EQ(tap(before.at("b")), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 0.1,tap 0.0");
  const auto revision = session().revision();
  [rows(0) setArray:@[ @"a" ]];
  [table() reloadData];
  EXPECT_EQ(send({{"type", "tap"}, {"id", before.at("a")}, {"revision", revision}}), Outcome::stale);
  EXPECT_EQ(tap(before.at("b")), Outcome::unknown);
  EXPECT_EQ(calls(list_), "tap 0.1,tap 0.0");
}

TEST_F(RowIdentityTest, SwipeActionsGoWithTheirRow) {
  start(@[ @[ @"a", @"b" ] ]);
  const std::string remove = row(0, 1)["swipeActions"][0]["id"];
  [rows(0) insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  session().refresh();
  EXPECT_EQ(row(0, 2)["swipeActions"][0]["id"], remove);
  EXPECT_EQ(tap(remove), Outcome::done);
  EXPECT_EQ(calls(list_), "delete 0.2");
  EXPECT_EQ(labels(), " new  a ");
  expectRefused({{"type", "tap"}, {"id", remove}}, Outcome::unknown);
}

TEST_F(RowIdentityTest, OutlinesOfALongListHaveTheIdsOfTheirRows) {
  NSMutableArray *many = [NSMutableArray array];
  for (int row = 0; row < 3000; ++row) [many addObject:[NSString stringWithFormat:@"row %d", row]];
  start(@[ many ]);
  const auto before = idsOf(0);
  EXPECT_EQ(std::set(before.begin(), before.end()).size(), 3000u);
  [rows(0) insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  EXPECT_EQ(tap(before[2000]), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 0.2001");
  EXPECT_EQ(row(0, 2001)["label"], "row 2000");
  const auto now = idsOf(0);
  EXPECT_EQ((std::vector(now.begin() + 1, now.end())), before);

  [rows(0) removeObjectAtIndex:0];
  [table() reloadData];
  session().refresh();
  EXPECT_EQ(row(0, 2000)["label"], "row 2000");
  EXPECT_EQ(rowId(0, 2000), before[2000]) << "it has been described";
  EXPECT_EQ(row(0, 500)["outline"], true);
  expectRefused({{"type", "swipe"}, {"id", before[500]}}, Outcome::unknown);
}

TEST_F(RowIdentityTest, OutlinesAreKnownAgainByTheirSpecifiers) {
  NSMutableArray *names = [NSMutableArray array];
  for (int row = 0; row < 3000; ++row) [names addObject:[NSString stringWithFormat:@"row %d", row]];
  SpecifierPage *page = [[[SpecifierPage alloc] init] autorelease];
  page->names = objcxx::share((NSArray *)names);
  SessionTest::start(page);
  const auto before = idsOf(0);
  EXPECT_EQ(row(0, 2999)["outline"], true);
  page->names = objcxx::share([[names reverseObjectEnumerator] allObjects]);
  [page reloadSpecifiers];
  session().refresh();
  EXPECT_EQ(idsOf(0), (std::vector(before.rbegin(), before.rend())));
}

TEST_F(RowIdentityTest, AnOutlineKeepsWhatItsRowWasKnownBy) {
  NSMutableArray *names = [NSMutableArray array];
  for (int row = 0; row < 3000; ++row) [names addObject:[NSString stringWithFormat:@"row %d", row]];
  SpecifierPage *page = [[[SpecifierPage alloc] init] autorelease];
  page->anonymous = YES;
  page->names = objcxx::share((NSArray *)names);
  SessionTest::start(page);
  const auto before = idsOf(0);
  EXPECT_EQ(send({{"type", "scroll"}, {"to", {0, 2000}}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["outline"], true);
  [names exchangeObjectAtIndex:0 withObjectAtIndex:1];
  [page reloadSpecifiers];
  [[page table] scrollToRowAtIndexPath:at(0, 0) atScrollPosition:UITableViewScrollPositionTop animated:NO];
  session().refresh();
  EXPECT_EQ(row(0, 1)["label"], "row 0");
  EXPECT_EQ(rowId(0, 1), before[0]);
  EXPECT_EQ(rowId(0, 0), before[1]);
}

TEST_F(RowIdentityTest, SectionsThatComeAndGoInOneUpdateLeaveTheOthersTheirIds) {
  start(@[ @[ @"a", @"b" ], @[ @"c" ], @[ @"d", @"e" ] ]);
  const auto before = ids();
  NSMutableArray *sections = list_->sections.get();
  [sections removeObjectAtIndex:1];
  [sections insertObject:[NSMutableArray arrayWithObjects:@"c", @"a", nil] atIndex:0];
  [rows(1) removeObjectAtIndex:0];
  [rows(2) insertObject:@"new" atIndex:1];
  [table()
      performBatchUpdates:^{
        [table() deleteSections:[NSIndexSet indexSetWithIndex:1] withRowAnimation:kNone];
        [table() insertSections:[NSIndexSet indexSetWithIndex:0] withRowAnimation:kNone];
        [table() deleteRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
        [table() insertRowsAtIndexPaths:@[ at(2, 1) ] withRowAnimation:kNone];
      }
               completion:nil];
  session().refresh();
  EXPECT_EQ(labels(), " c  a | b | d  new  e ");
  EXPECT_EQ(idsOf(1), std::vector{before.at("b")});
  EXPECT_EQ(rowId(2, 0), before.at("d"));
  EXPECT_EQ(rowId(2, 2), before.at("e"));
  for (const char *gone : {"a", "c"}) expectGone(before.at(gone));
  EXPECT_EQ(tap(before.at("e")), Outcome::done);
  EXPECT_EQ(calls(list_), "tap 2.2");
}

TEST_F(RowIdentityTest, AFailedUpdateLosesNoRowThatIsStillThere) {
  start(@[ @[ @"a", @"b" ] ]);
  const auto before = ids();
  [rows(0) removeObjectAtIndex:0];
  EXPECT_EQ(raisedBy([&] { [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone]; }),
            "NSInternalInconsistencyException");
  session().refresh();
  EXPECT_EQ(labels(), " b ");
  EXPECT_EQ(rowId(0, 0), before.at("b"));
}

TEST_F(RowIdentityTest, AnIdOfABarButtonNamesThatButton) {
  start(@[ @[ @"a" ] ]);
  const auto button = [&](NSString *title) {
    return objcxx::adopt([[UIBarButtonItem alloc] initWithTitle:title
                                                          style:UIBarButtonItemStylePlain
                                                         target:list_
                                                         action:@selector(pushNext)]);
  };
  const auto go = button(@"Go"), other = button(@"Other");
  [[list_ navigationItem] setRightBarButtonItem:go.get()];
  session().refresh();
  const std::string former = page()["buttons"][0]["id"];
  [[list_ navigationItem] setRightBarButtonItem:other.get()];
  session().refresh();
  expectRefused({{"type", "tap"}, {"id", former}}, Outcome::unknown);
  [[list_ navigationItem] setLeftBarButtonItem:go.get()];
  session().refresh();
  const std::string left = page()["buttons"][0]["id"], right = page()["buttons"][1]["id"];
  [[list_ navigationItem] setLeftBarButtonItem:nil];
  session().refresh();
  EXPECT_EQ(page()["buttons"][0]["id"], right);
  expectRefused({{"type", "tap"}, {"id", left}}, Outcome::unknown);
  EXPECT_EQ(tap(right), Outcome::done);
  EXPECT_EQ(titles(), "/List/Next");
}

}  // namespace
