// Table views whose rows, headers and footers are as high as their constraints make them.
#import "AutoLayoutSupport.h"

#import <UIKit/UITableView+Sim.h>

#include <gmock/gmock.h>

using objcxx::adopt;
using testing::HasSubstr;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

@interface NoteCell : UITableViewCell {
 @public
  UILabel *note;
}
@end

@implementation NoteCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)identifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier])) return nil;
  note = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  [note setNumberOfLines:0];
  [note setTranslatesAutoresizingMaskIntoConstraints:NO];
  [[self contentView] addSubview:note];
  UILayoutGuide *margins = [self contentView].layoutMarginsGuide;
  [NSLayoutConstraint activateConstraints:@[
    [note.leadingAnchor constraintEqualToAnchor:margins.leadingAnchor],
    [note.trailingAnchor constraintEqualToAnchor:margins.trailingAnchor],
    [note.topAnchor constraintEqualToAnchor:margins.topAnchor],
    [note.bottomAnchor constraintEqualToAnchor:margins.bottomAnchor],
  ]];
  return self;
}

@end

/// Moves its content view whenever it is laid out.
@interface ShiftedCell : UITableViewCell {
 @public
  int layouts;
}
@end

@implementation ShiftedCell

- (void)layoutSubviews {
  [super layoutSubviews];
  ++layouts;
  [[self contentView] setFrame:CGRectInset([self bounds], 10, 0)];
}

@end

@interface NoteSource : NSObject <UITableViewDataSource, UITableViewDelegate> {
 @public
  objcxx::Retained<NSMutableArray> notes;
  BOOL hasHeader;
}
@end

@implementation NoteSource

- (NSInteger)tableView:(UITableView *)table numberOfRowsInSection:(NSInteger)section {
  return (NSInteger)[notes.get() count];
}

- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  NoteCell *cell = (NoteCell *)[table dequeueReusableCellWithIdentifier:@"note" forIndexPath:path];
  [cell->note setText:[notes.get() objectAtIndex:(NSUInteger)[path row]]];
  return cell;
}

- (UIView *)tableView:(UITableView *)table viewForHeaderInSection:(NSInteger)section {
  if (!hasHeader) return nil;
  UIView *header = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  UIView *inner = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [inner setTranslatesAutoresizingMaskIntoConstraints:NO];
  [header addSubview:inner];
  [NSLayoutConstraint activateConstraints:@[
    [inner.heightAnchor constraintEqualToConstant:70],
    [inner.topAnchor constraintEqualToAnchor:header.topAnchor constant:5],
    [inner.bottomAnchor constraintEqualToAnchor:header.bottomAnchor constant:-5],
    [inner.leadingAnchor constraintEqualToAnchor:header.leadingAnchor],
    [inner.trailingAnchor constraintEqualToAnchor:header.trailingAnchor],
  ]];
  return header;
}

@end

namespace {

NSString *const kLong = @"A note that is long enough to take several lines in a table view that is as wide as a phone, "
                        @"and a few more in a narrower one, whatever the font may be";

class SelfSizingTests : public AutoLayoutTest {
 protected:
  objcxx::Retained<UITableView> tableOf(NSArray *notes, BOOL hasHeader = NO) {
    source_ = adopt([[NoteSource alloc] init]);
    source_.get()->notes = adopt((NSMutableArray *)[notes mutableCopy]);
    source_.get()->hasHeader = hasHeader;
    auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 600) style:UITableViewStylePlain]);
    [table.get() registerClass:[NoteCell class] forCellReuseIdentifier:@"note"];
    [table.get() setDataSource:source_.get()];
    [table.get() setDelegate:source_.get()];
    [table.get() layoutIfNeeded];
    return table;
  }
  static CGFloat heightOf(UITableView *table, NSInteger row) {
    return [table rectForRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]].size.height;
  }
  static CGFloat expectedHeight(NSString *text, CGFloat width) {
    UILabel *label = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
    [label setNumberOfLines:0];
    [label setText:text];
    return [label sizeThatFits:CGSizeMake(width - 2 * 16, 0)].height + 2 * 11;
  }

  objcxx::Retained<NoteSource> source_;
};

TEST_F(SelfSizingTests, RowsAreAsHighAsTheirConstraintsMakeThem) {
  const auto table = tableOf(@[ @"Short", kLong ]);
  EXPECT_NEAR(heightOf(table.get(), 0), expectedHeight(@"Short", 320), 0.34);
  EXPECT_NEAR(heightOf(table.get(), 1), expectedHeight(kLong, 320), 0.34);
  EXPECT_GT(heightOf(table.get(), 1), 80);
  NoteCell *cell = (NoteCell *)[table.get() cellForRowAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]];
  EXPECT_NEAR([cell->note frame].size.height, heightOf(table.get(), 1) - 22, 0.34);
  EXPECT_EQ([cell->note frame].size.width, 320 - 32);
}

TEST_F(SelfSizingTests, RowsFollowTheWidthOfTheTable) {
  const auto table = tableOf(@[ kLong, @"Short" ]);
  const CGFloat before = heightOf(table.get(), 0);
  [table.get() setFrame:CGRectMake(0, 0, 200, 600)];
  [table.get() layoutIfNeeded];
  EXPECT_GT(heightOf(table.get(), 0), before);
  EXPECT_NEAR(heightOf(table.get(), 0), expectedHeight(kLong, 200), 0.34);
  EXPECT_EQ(takeLog(), "");
}

TEST_F(SelfSizingTests, RowsThatAreUsedAgainTakeTheHeightOfTheirNewText) {
  const auto table = tableOf(@[ @"Short", @"Short" ]);
  [source_.get()->notes.get() replaceObjectAtIndex:0 withObject:kLong];
  [table.get() reloadData];
  [table.get() layoutIfNeeded];
  EXPECT_NEAR(heightOf(table.get(), 0), expectedHeight(kLong, 320), 0.34);
  EXPECT_NEAR(heightOf(table.get(), 1), expectedHeight(@"Short", 320), 0.34);
}

TEST_F(SelfSizingTests, AHeightThatIsSetIsKept) {
  const auto table = tableOf(@[ kLong ]);
  [table.get() setRowHeight:50];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(heightOf(table.get(), 0), 50);
  [table.get() setRowHeight:UITableViewAutomaticDimension];
  [table.get() setEstimatedRowHeight:30];
  [table.get() layoutIfNeeded];
  EXPECT_NEAR(heightOf(table.get(), 0), expectedHeight(kLong, 320), 0.34);
}

TEST_F(SelfSizingTests, ConstraintsThatLeaveNoHeightGiveTheStandardOneWithAWord) {
  const auto cell = adopt([[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil]);
  UIView *dot = addView([cell.get() contentView]);
  [[dot.centerYAnchor constraintEqualToAnchor:[cell.get() contentView].centerYAnchor] setActive:YES];
  EXPECT_EQ([cell.get() systemLayoutSizeFittingSize:CGSizeMake(320, 0)].height, 0);
  [cell.get() removeFromSuperview];

  const auto table = tableOf(@[ @"" ]);
  NoteCell *live = (NoteCell *)[table.get() cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  [[live contentView] setLayoutMargins:UIEdgeInsetsZero];
  [table.get() reloadData];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(heightOf(table.get(), 0), 44);
  EXPECT_THAT(takeLog(), HasSubstr("Constraints suggest a height of zero"));
}

TEST_F(SelfSizingTests, HeadersOfSectionsAreAsHighAsTheirConstraintsMakeThem) {
  const auto table = tableOf(@[ @"Short" ], YES);
  EXPECT_EQ([table.get() rectForHeaderInSection:0].size.height, 80 + 22);
  UIView *header = [table.get() sim_viewForHeaderInSection:0];
  EXPECT_EQ(frameOf([[header subviews] firstObject]).substr(0, 8), "0 5 320 ");
}

TEST_F(SelfSizingTests, TheHeaderOfATableKeepsItsHeight) {
  const auto table = tableOf(@[ @"Short" ]);
  UIView *header = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 90)] autorelease];
  UIView *inner = addView(header);
  pin(inner, 12);
  [table.get() setTableHeaderView:header];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(header), "0 0 320 90");
  EXPECT_EQ(frameOf(inner), "12 12 296 66");
  [table.get() setFrame:CGRectMake(0, 0, 500, 600)];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(inner), "12 12 476 66");
}

TEST_F(SelfSizingTests, TheHeaderOfATableMayBePlacedByConstraints) {
  const auto table = tableOf(@[ @"Short" ]);
  UIView *header = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [header setTranslatesAutoresizingMaskIntoConstraints:NO];
  UIView *inner = addView(header);
  pin(inner, 10);
  [[inner.heightAnchor constraintEqualToConstant:40] setActive:YES];
  [table.get() setTableHeaderView:header];
  [[header.widthAnchor constraintEqualToAnchor:table.get().widthAnchor] setActive:YES];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(header), "0 0 320 60");
  EXPECT_EQ([table.get() rectForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]].origin.y, 60);
  EXPECT_EQ(frameOf(inner), "10 10 300 40");
}

// Not round and round.
TEST_F(SelfSizingTests, ACellMayHaveAWordOnItsContentView) {
  const auto cell = adopt([[ShiftedCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil]);
  pin(addView([cell.get() contentView]), 1);
  [cell.get() setFrame:CGRectMake(0, 0, 100, 50)];
  [cell.get() layoutIfNeeded];
  EXPECT_EQ(cell.get()->layouts, 1);
  EXPECT_EQ(frameOf([[[cell.get() contentView] subviews] firstObject]), "1 1 78 48");
}

TEST_F(SelfSizingTests, AccessoriesTakeTheirShareOfTheWidth) {
  const auto cell = adopt([[NoteCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil]);
  [cell.get()->note setText:kLong];
  const CGFloat without = [cell.get() systemLayoutSizeFittingSize:CGSizeMake(200, 0)
                                    withHorizontalFittingPriority:UILayoutPriorityRequired
                                          verticalFittingPriority:UILayoutPriorityFittingSizeLevel]
                              .height;
  [cell.get() setAccessoryType:UITableViewCellAccessoryDetailDisclosureButton];
  const CGSize with = [cell.get() systemLayoutSizeFittingSize:CGSizeMake(200, 0)
                                withHorizontalFittingPriority:UILayoutPriorityRequired
                                      verticalFittingPriority:UILayoutPriorityFittingSizeLevel];
  EXPECT_EQ(with.width, 200);
  EXPECT_GT(with.height, without);
}

}  // namespace
