// Life of a list page: when rows are asked for, kept and asked for again.
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

/// Notes the order of calls; its rows are `_next`.
@interface LifePage : PSListController {
 @public
  NSMutableArray *_order;
  NSArray *_next;
  BOOL _raises;
  BOOL _forgets;
}
@end

@implementation LifePage
- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if ((self = [super initWithNibName:nibName bundle:bundle])) _order = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [_order release];
  [_next release];
  [super dealloc];
}
- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  [_order addObject:@"specifiers"];
  if (_raises) [NSException raise:NSGenericException format:@"no rows today"];
  if (_forgets) return _next;
  _specifiers = [_next copy];
  return _specifiers;
}
- (void)setRootController:(id)controller {
  [_order addObject:@"root"];
  [super setRootController:controller];
}
- (void)setParentController:(id)controller {
  [_order addObject:@"parent"];
  [super setParentController:controller];
}
- (void)setSpecifier:(PSSpecifier *)specifier {
  [_order addObject:@"specifier"];
  [super setSpecifier:specifier];
}
- (void)loadView {
  [_order addObject:@"loadView"];
  [super loadView];
}
- (void)viewDidLoad {
  [_order addObject:@"viewDidLoad"];
  [super viewDidLoad];
}
- (void)viewWillAppear:(BOOL)animated {
  [_order addObject:@"viewWillAppear"];
  [super viewWillAppear:animated];
}
@end

namespace {

PSSpecifier *rowNamed(NSString *name, PSCellType type = PSLinkCell) {
  PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:name
                                                    target:nil
                                                       set:NULL
                                                       get:NULL
                                                    detail:Nil
                                                      cell:type
                                                      edit:Nil];
  [row setIdentifier:name];
  return row;
}

class PSListControllerTest : public PreferencesTest {
 protected:
  LifePage *lifePage(NSArray *rows) {
    LifePage *page = [[[LifePage alloc] init] autorelease];
    page->_next = [rows copy];
    return page;
  }
};

TEST_F(PSListControllerTest, AsksForItsRowsOnceInViewDidLoad) {
  LifePage *page = lifePage(@[ [PSSpecifier emptyGroupSpecifier], rowNamed(@"A") ]);
  EXPECT_EQ([page table], nil);
  show(page);
  EXPECT_OBJC_EQ(page->_order, (@[ @"loadView", @"viewDidLoad", @"specifiers", @"viewWillAppear" ]));
  EXPECT_EQ([[page table] style], UITableViewStyleInsetGrouped);
  EXPECT_EQ([[page table] numberOfSections], 1);
  EXPECT_EQ([[page table] numberOfRowsInSection:0], 1);
}

TEST_F(PSListControllerTest, LookupBeforeTheViewAsksForTheRows) {
  PSSpecifier *row = rowNamed(@"A");
  LifePage *page = lifePage(@[ [PSSpecifier emptyGroupSpecifier], row ]);
  EXPECT_EQ([page specifierForID:@"A"], row);
  EXPECT_EQ([page indexOfSpecifierID:@"A"], 1);
  show(page);
  EXPECT_EQ([page->_order count], 4u);
}

TEST_F(PSListControllerTest, ARowInFrontGetsAnEmptyGroup) {
  LifePage *page = lifePage(@[ rowNamed(@"A"), [PSSpecifier groupSpecifierWithName:@"G"], rowNamed(@"B") ]);
  show(page);
  EXPECT_EQ(rows(page), "[] A [G] B");
  EXPECT_EQ([page numberOfGroups], 2);
  EXPECT_EQ([[page specifiers] count], 4u);
  EXPECT_EQ([page indexOfSpecifierID:@"A"], 1);
}

TEST_F(PSListControllerTest, RowsThatAreNotKeptByTheMakerAreKeptByThePage) {
  LifePage *page = lifePage(@[ [PSSpecifier emptyGroupSpecifier], rowNamed(@"A") ]);
  page->_forgets = YES;
  show(page);
  EXPECT_EQ(rows(page), "[] A");
  PSSpecifier *row = [page specifierForID:@"A"];
  EXPECT_EQ([page specifierForID:@"A"], row);
}

TEST_F(PSListControllerTest, APageWhoseRowsCannotBeMadeIsEmpty) {
  LifePage *page = lifePage(@[]);
  page->_raises = YES;
  show(page);
  [[page table] sim_prepareForDescription];
  EXPECT_EQ([[page table] numberOfSections], 0);
  EXPECT_EQ(logged("Uncaught exception while asking -[LifePage specifiers]: "), 1);
  page->_raises = NO;
  [page->_next release];
  page->_next = [@[ rowNamed(@"A") ] copy];
  [page reloadSpecifiers];
  EXPECT_EQ(rows(page), "[] A");
}

TEST_F(PSListControllerTest, RowsThatAreNoSpecifiersAreLeftOut) {
  LifePage *page = lifePage(@[ @"text", rowNamed(@"A"), @7 ]);
  show(page);
  EXPECT_EQ(rows(page), "[] A");
  EXPECT_EQ(logged("which is left out"), 2);
  LifePage *wrong = lifePage((NSArray *)@"no array");
  wrong->_forgets = YES;
  [wrong view];
  EXPECT_EQ(rows(wrong), "");
  EXPECT_EQ(logged("gave no array"), 1);
}

TEST_F(PSListControllerTest, AControllerWithoutRowsIsEmpty) {
  PSListController *page = [[[PSListController alloc] init] autorelease];
  show(page);
  EXPECT_EQ([page numberOfGroups], 0);
  EXPECT_EQ([[page table] numberOfSections], 0);
}

TEST_F(PSListControllerTest, ReloadSpecifiersAsksAgain) {
  LifePage *page = lifePage(@[ rowNamed(@"A"), rowNamed(@"B") ]);
  show(page);
  [page->_next release];
  page->_next = [@[ rowNamed(@"B"), rowNamed(@"C") ] copy];
  [page reloadSpecifiers];
  EXPECT_EQ(rows(page), "[] B C");
  EXPECT_OBJC_EQ([page specifierForID:@"A"], nil);
  [[page table] sim_prepareForDescription];
  EXPECT_OBJC_EQ([[cell(page, @"C") textLabel] text], @"C");
}

TEST_F(PSListControllerTest, ReloadTakesRowsThatTheMakerExchanged) {
  writeList(@[ @{@"cell" : @"PSLinkCell", @"label" : @"A"}, @{@"cell" : @"PSLinkCell", @"label" : @"B"} ]);
  LifePage *page = lifePage(@[ [PSSpecifier emptyGroupSpecifier], rowNamed(@"A"), rowNamed(@"B") ]);
  show(page);
  [page setSpecifiers:@[ [PSSpecifier emptyGroupSpecifier], rowNamed(@"Z") ]];
  EXPECT_EQ(rows(page), "[] Z");
  EXPECT_EQ([[page table] numberOfRowsInSection:0], 1);
  [page reload];
  EXPECT_EQ(rows(page), "[] Z");
}

TEST_F(PSListControllerTest, ReloadingKeepsTheSelectedRow) {
  LifePage *page = lifePage(@[ rowNamed(@"A"), rowNamed(@"B") ]);
  show(page);
  [[page table] selectRowAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]
                            animated:NO
                      scrollPosition:UITableViewScrollPositionNone];
  [page->_next release];
  page->_next = [@[ rowNamed(@"New"), rowNamed(@"A"), rowNamed(@"B") ] copy];
  [page reloadSpecifiers];
  EXPECT_OBJC_EQ([[page table] indexPathForSelectedRow], [NSIndexPath indexPathForRow:2 inSection:0]);
}

TEST_F(PSListControllerTest, OpensItsPagesInTheOrderOfSettings) {
  PSSpecifier *link = rowNamed(@"Link");
  [link setDetailControllerClass:[LifePage class]];
  LifePage *page = lifePage(@[ link ]);
  show(page);
  EXPECT_TRUE(tap(page, @"Link"));
  LifePage *child = (LifePage *)top();
  ASSERT_TRUE([child isKindOfClass:[LifePage class]]);
  EXPECT_NE(child, page);
  EXPECT_OBJC_EQ(
      child->_order,
      (@[ @"root", @"parent", @"specifier", @"loadView", @"viewDidLoad", @"specifiers", @"viewWillAppear" ]));
  EXPECT_OBJC_EQ([child title], @"Link");
  EXPECT_EQ([child parentController], page);
  EXPECT_EQ([child rootController], navigation());
  EXPECT_EQ([child specifier], link);
}

TEST_F(PSListControllerTest, APushedPageGetsTheNewSpecifierOfItsRow) {
  PSSpecifier *link = rowNamed(@"Link");
  [link setDetailControllerClass:[LifePage class]];
  LifePage *page = lifePage(@[ link ]);
  show(page);
  tap(page, @"Link");
  PSSpecifier *renewed = rowNamed(@"Link");
  [page->_next release];
  page->_next = [@[ renewed ] copy];
  [page reloadSpecifiers];
  EXPECT_EQ([(LifePage *)top() specifier], renewed);
  [page->_next release];
  page->_next = [@[] copy];
  [page reloadSpecifiers];
  EXPECT_EQ([(LifePage *)top() specifier], nil);
}

TEST_F(PSListControllerTest, TheVisitedRowIsDeselectedAndRefreshedOnReturn) {
  TestPage *page = showPage(@[ @{
    @"cell" : @"PSLinkListCell",
    @"label" : @"Size",
    @"key" : @"size",
    @"default" : @1,
    @"validValues" : @[ @1, @2 ],
    @"validTitles" : @[ @"Small", @"Large" ],
    @"detail" : @"TestPage"
  } ]);
  EXPECT_OBJC_EQ([[cell(page, @"Size") detailTextLabel] text], @"Small");
  tap(page, @"Size");
  EXPECT_TRUE([[page table] indexPathForSelectedRow] != nil);
  [page->_store setObject:@2 forKey:@"size"];
  [navigation() popViewControllerAnimated:NO];
  EXPECT_OBJC_EQ([[page table] indexPathForSelectedRow], nil);
  EXPECT_OBJC_EQ([[cell(page, @"Size") detailTextLabel] text], @"Large");
}

TEST_F(PSListControllerTest, PagesAndTheirRowsAreFreed) {
  int deaths = 0;
  @autoreleasepool {
    PSSpecifier *row = rowNamed(@"Row", PSSwitchCell);
    [row setUserInfo:[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
    PSSpecifier *link = rowNamed(@"Link");
    [link setDetailControllerClass:[LifePage class]];
    LifePage *page = lifePage(@[ link ]);
    show(page);
    LifePage *child = lifePage(@[ row ]);
    [page pushController:child animate:NO];
    EXPECT_TRUE(cell(child, @"Row") != nil);
    EXPECT_TRUE([row propertyForKey:PSTableCellKey] != nil);
    [navigation() popViewControllerAnimated:NO];
    SIMDrainMainQueue();
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}

}  // namespace
