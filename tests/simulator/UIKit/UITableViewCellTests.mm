#import <UIKit/UIKit.h>
#import <UIKit/UITableViewCell+Sim.h>
#include <objcxx/Retained.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;

namespace {

class UITableViewCellTest : public ObjCTest {
 protected:
  static objcxx::Retained<UITableViewCell> cell(UITableViewCellStyle style) {
    auto made = adopt([[UITableViewCell alloc] initWithStyle:style reuseIdentifier:@"Cell"]);
    [made.get() setFrame:CGRectMake(0, 0, 390, 44)];
    return made;
  }
  static CGRect laidOut(UITableViewCell *cell, UIView *view) {
    [cell setNeedsLayout];
    [cell layoutIfNeeded];
    return [view frame];
  }
};

}  // namespace

TEST_F(UITableViewCellTest, EachStyleHasItsViews) {
  EXPECT_OBJC_EQ([cell(UITableViewCellStyleDefault).get() detailTextLabel], nil);
  EXPECT_OBJC_EQ([cell(UITableViewCellStyleValue2).get() imageView], nil);
  for (UITableViewCellStyle style :
       {UITableViewCellStyleValue1, UITableViewCellStyleValue2, UITableViewCellStyleSubtitle}) {
    const auto made = cell(style);
    EXPECT_NE([made.get() textLabel], nil);
    EXPECT_NE([made.get() detailTextLabel], nil);
    EXPECT_EQ([made.get() textLabel], [made.get() textLabel]);
    EXPECT_EQ([[made.get() textLabel] superview], [made.get() contentView]);
    EXPECT_EQ([made.get() sim_style], style);
  }
  EXPECT_NE([cell(UITableViewCellStyleDefault).get() imageView], nil);
}

TEST_F(UITableViewCellTest, ViewsAreMadeWhenTheyAreAskedFor) {
  const auto made = cell(UITableViewCellStyleSubtitle);
  EXPECT_OBJC_EQ([made.get() sim_textLabelIfMade], nil);
  EXPECT_OBJC_EQ([made.get() sim_detailTextLabelIfMade], nil);
  EXPECT_OBJC_EQ([made.get() sim_imageViewIfMade], nil);
  EXPECT_EQ([[[made.get() contentView] subviews] count], 0u);
  [[made.get() textLabel] setText:@"text"];
  EXPECT_EQ([made.get() sim_textLabelIfMade], [made.get() textLabel]);
  EXPECT_OBJC_EQ([made.get() sim_imageViewIfMade], nil);
}

TEST_F(UITableViewCellTest, PlainInitialisersWork) {
  const auto made = adopt([[UITableViewCell alloc] init]);
  EXPECT_OBJC_EQ([made.get() reuseIdentifier], nil);
  EXPECT_EQ([made.get() sim_style], UITableViewCellStyleDefault);
  const auto framed = adopt([[UITableViewCell alloc] initWithFrame:CGRectMake(1, 2, 3, 4)]);
  EXPECT_TRUE(CGRectEqualToRect([framed.get() frame], CGRectMake(1, 2, 3, 4)));
  EXPECT_OBJC_EQ([cell(UITableViewCellStyleDefault).get() reuseIdentifier], @"Cell");
}

TEST_F(UITableViewCellTest, TextFillsTheRowBetweenTheMargins) {
  const auto made = cell(UITableViewCellStyleDefault);
  [[made.get() textLabel] setText:@"text"];
  EXPECT_TRUE(CGRectEqualToRect(laidOut(made.get(), [made.get() textLabel]), CGRectMake(16, 0, 390 - 32, 44)));
  [made.get() sim_setMargin:20 coveredSides:UIEdgeInsetsZero];
  EXPECT_EQ(laidOut(made.get(), [made.get() textLabel]).origin.x, 20);
  [made.get() setIndentationLevel:2];
  EXPECT_EQ(laidOut(made.get(), [made.get() textLabel]).origin.x, 40);
}

TEST_F(UITableViewCellTest, TheImageStandsBeforeTheText) {
  const auto made = cell(UITableViewCellStyleDefault);
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(29, 29), NO, 1);
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  [[made.get() imageView] setImage:image];
  [[made.get() textLabel] setText:@"text"];
  EXPECT_TRUE(CGRectEqualToRect(laidOut(made.get(), [made.get() imageView]), CGRectMake(16, 7.5, 29, 29)));
  EXPECT_EQ([[made.get() textLabel] frame].origin.x, 16 + 29 + 15);
}

TEST_F(UITableViewCellTest, TheValueStandsAtTheEnd) {
  const auto made = cell(UITableViewCellStyleValue1);
  [[made.get() textLabel] setText:@"Name"];
  [[made.get() detailTextLabel] setText:@"Value"];
  const CGRect value = laidOut(made.get(), [made.get() detailTextLabel]);
  EXPECT_NEAR(value.origin.x + value.size.width, 390 - 16, 0.01);
  const CGRect name = [[made.get() textLabel] frame];
  EXPECT_GT(value.origin.x, name.origin.x + name.size.width);
}

TEST_F(UITableViewCellTest, TheSubtitleStandsBelow) {
  const auto made = cell(UITableViewCellStyleSubtitle);
  [[made.get() textLabel] setText:@"Title"];
  [[made.get() detailTextLabel] setText:@"Subtitle"];
  const CGRect below = laidOut(made.get(), [made.get() detailTextLabel]);
  const CGRect above = [[made.get() textLabel] frame];
  EXPECT_NEAR(below.origin.y, above.origin.y + above.size.height, 0.01);
  EXPECT_NEAR(above.origin.y, 44 - below.origin.y - below.size.height, 0.01);
}

TEST_F(UITableViewCellTest, AccessoriesTakeRoomFromTheContent) {
  const auto made = cell(UITableViewCellStyleDefault);
  EXPECT_EQ(laidOut(made.get(), [made.get() contentView]).size.width, 390);
  [made.get() setAccessoryType:UITableViewCellAccessoryDisclosureIndicator];
  EXPECT_LT(laidOut(made.get(), [made.get() contentView]).size.width, 370);
  const auto control = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 51, 31)]);
  [made.get() setAccessoryView:control.get()];
  EXPECT_TRUE(CGRectEqualToRect(laidOut(made.get(), control.get()), CGRectMake(390 - 16 - 51, 6.5, 51, 31)));
  EXPECT_EQ([control.get() superview], made.get());
  [made.get() setAccessoryView:nil];
  EXPECT_EQ([control.get() superview], nil);
}

TEST_F(UITableViewCellTest, TheAccessoryIsThatOfTheMode) {
  const auto made = cell(UITableViewCellStyleDefault);
  const auto view = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  const auto editingView = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  [made.get() setAccessoryType:UITableViewCellAccessoryCheckmark];
  [made.get() setAccessoryView:view.get()];
  [made.get() setEditingAccessoryType:UITableViewCellAccessoryDetailButton];
  [made.get() setEditingAccessoryView:editingView.get()];
  EXPECT_EQ([made.get() sim_shownAccessoryType], UITableViewCellAccessoryCheckmark);
  EXPECT_EQ([made.get() sim_shownAccessoryView], view.get());
  EXPECT_EQ([editingView.get() superview], nil);
  [made.get() setEditing:YES animated:NO];
  EXPECT_EQ([made.get() sim_shownAccessoryType], UITableViewCellAccessoryDetailButton);
  EXPECT_EQ([editingView.get() superview], made.get());
  EXPECT_EQ([view.get() superview], nil);
}

TEST_F(UITableViewCellTest, TheContentIndentsForTheEditControl) {
  const auto made = cell(UITableViewCellStyleDefault);
  [made.get() setEditing:YES];
  EXPECT_EQ(laidOut(made.get(), [made.get() contentView]).origin.x, 0);
  [made.get() sim_setEditingStyle:UITableViewCellEditingStyleDelete];
  EXPECT_GT(laidOut(made.get(), [made.get() contentView]).origin.x, 0);
  [made.get() setShouldIndentWhileEditing:NO];
  EXPECT_EQ(laidOut(made.get(), [made.get() contentView]).origin.x, 0);
  [made.get() setShowsReorderControl:YES];
  EXPECT_LT(laidOut(made.get(), [made.get() contentView]).size.width, 390);
}

TEST_F(UITableViewCellTest, HeightsFitTheText) {
  const auto one = cell(UITableViewCellStyleDefault);
  EXPECT_EQ([one.get() sizeThatFits:CGSizeMake(390, 0)].height, 44);
  [[one.get() textLabel] setText:@"short"];
  EXPECT_EQ([one.get() sizeThatFits:CGSizeMake(390, 0)].height, 44);
  NSString *text = [@"" stringByPaddingToLength:600 withString:@"long text " startingAtIndex:0];
  [[one.get() textLabel] setText:text];
  EXPECT_EQ([one.get() sizeThatFits:CGSizeMake(390, 0)].height, 44);
  [[one.get() textLabel] setNumberOfLines:0];
  const CGFloat narrow = [one.get() sizeThatFits:CGSizeMake(390, 0)].height;
  EXPECT_GT(narrow, 100);
  EXPECT_LT([one.get() sizeThatFits:CGSizeMake(800, 0)].height, narrow);
  const auto two = cell(UITableViewCellStyleSubtitle);
  [[two.get() textLabel] setText:@"Title"];
  [[two.get() detailTextLabel] setText:@"Subtitle"];
  EXPECT_GT([two.get() sizeThatFits:CGSizeMake(390, 0)].height, 44);
}

TEST_F(UITableViewCellTest, ReuseForgetsSelectionAndMode) {
  const auto made = cell(UITableViewCellStyleDefault);
  [[made.get() textLabel] setText:@"kept"];
  [made.get() setSelected:YES];
  [made.get() setHighlighted:YES];
  [made.get() setEditing:YES];
  [made.get() setAccessoryType:UITableViewCellAccessoryCheckmark];
  EXPECT_TRUE([[made.get() textLabel] isHighlighted]);
  [made.get() prepareForReuse];
  EXPECT_FALSE([made.get() isSelected]);
  EXPECT_FALSE([made.get() isHighlighted]);
  EXPECT_FALSE([[made.get() textLabel] isHighlighted]);
  EXPECT_FALSE([made.get() isEditing]);
  EXPECT_OBJC_EQ([[made.get() textLabel] text], @"kept");
  EXPECT_EQ([made.get() accessoryType], UITableViewCellAccessoryCheckmark);
}

TEST_F(UITableViewCellTest, BackgroundsLieBehind) {
  const auto made = cell(UITableViewCellStyleDefault);
  const auto back = adopt([[UIView alloc] init]);
  [made.get() setBackgroundView:back.get()];
  EXPECT_EQ([[made.get() subviews] objectAtIndex:0], back.get());
  EXPECT_TRUE(CGRectEqualToRect(laidOut(made.get(), back.get()), CGRectMake(0, 0, 390, 44)));
  [made.get() setBackgroundView:nil];
  EXPECT_EQ([back.get() superview], nil);
}
