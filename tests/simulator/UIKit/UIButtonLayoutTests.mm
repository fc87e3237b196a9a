#import "simulator/UIKit/AutoLayoutSupport.h"

#import <support/objc/ObjCMatchers.h>

using testing_support::AutoLayoutTest;
using testing_support::frameOf;

/// Puts its picture behind its title.
@interface TurnedButton : UIButton
@end

@implementation TurnedButton
- (CGRect)titleRectForContentRect:(CGRect)content {
  return CGRectMake(content.origin.x, content.origin.y, 50, content.size.height);
}
- (CGRect)imageRectForContentRect:(CGRect)content {
  return CGRectMake(content.origin.x + 50, content.origin.y, 10, content.size.height);
}
@end

namespace {

class UIButtonLayoutTests : public AutoLayoutTest {
 protected:
  static UIButton *button(UIButtonType type = UIButtonTypeCustom) {
    UIButton *button = [UIButton buttonWithType:type];
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(20, 10), NO, 1);
    [button setImage:UIGraphicsGetImageFromCurrentImageContext() forState:UIControlStateNormal];
    UIGraphicsEndImageContext();
    [button setTitle:@"Go" forState:UIControlStateNormal];
    [button setFrame:CGRectMake(0, 0, 200, 60)];
    return button;
  }
  static CGRect titleOf(UIButton *button) {
    [button layoutIfNeeded];
    return [[button titleLabel] frame];
  }
  static CGRect imageOf(UIButton *button) {
    [button layoutIfNeeded];
    return [[button imageView] frame];
  }
};

TEST_F(UIButtonLayoutTests, InsetsOfTheContentCountInTheSizeThatFits) {
  UIButton *plain = button();
  const CGSize natural = [plain sizeThatFits:CGSizeZero];
  [plain setContentEdgeInsets:UIEdgeInsetsMake(1, 2, 4, 8)];
  EXPECT_EQ([plain sizeThatFits:CGSizeZero].width, natural.width + 10);
  EXPECT_EQ([plain sizeThatFits:CGSizeZero].height, natural.height + 5);
  EXPECT_EQ([plain intrinsicContentSize].width, natural.width + 10);
  [plain setTitleEdgeInsets:UIEdgeInsetsMake(9, 9, 9, 9)];
  [plain setImageEdgeInsets:UIEdgeInsetsMake(9, 9, 9, 9)];
  EXPECT_EQ([plain sizeThatFits:CGSizeZero].width, natural.width + 10) << "which these do not";
  UIButton *system = button(UIButtonTypeSystem);
  const CGFloat height = [system sizeThatFits:CGSizeZero].height;
  [system setContentEdgeInsets:UIEdgeInsetsMake(0, 3, 0, 3)];
  EXPECT_EQ([system sizeThatFits:CGSizeZero].height, height);
  [system setContentEdgeInsets:UIEdgeInsetsMake(1, 0, 0, 0)];
  EXPECT_EQ([system sizeThatFits:CGSizeZero].height, height - 11) << "in place of the system's own";
}

TEST_F(UIButtonLayoutTests, InsetsMoveThePartsByHalfTheirDifferenceInTheMiddle) {
  UIButton *plain = button();
  const CGRect title = titleOf(plain);
  const CGRect image = imageOf(plain);
  EXPECT_NEAR(CGRectGetMaxX(image), title.origin.x, 1e-9);
  EXPECT_NEAR(image.origin.x + CGRectGetMaxX(title), 200, 1e-9);
  EXPECT_NEAR(CGRectGetMidY(image), 30, 1e-9);
  [plain setTitleEdgeInsets:UIEdgeInsetsMake(2, 10, 8, 4)];
  EXPECT_NEAR(titleOf(plain).origin.x, title.origin.x + 3, 1e-9);
  EXPECT_NEAR(titleOf(plain).origin.y, title.origin.y - 3, 1e-9);
  EXPECT_NEAR(imageOf(plain).origin.x, image.origin.x, 1e-9);
  [plain setImageEdgeInsets:UIEdgeInsetsMake(0, 0, 0, 12)];
  EXPECT_NEAR(imageOf(plain).origin.x, image.origin.x - 6, 1e-9);
  [plain setTitleEdgeInsets:UIEdgeInsetsZero];
  [plain setImageEdgeInsets:UIEdgeInsetsZero];
  [plain setContentEdgeInsets:UIEdgeInsetsMake(0, 20, 10, 0)];
  EXPECT_NEAR(titleOf(plain).origin.x, title.origin.x + 10, 1e-9);
  EXPECT_NEAR(imageOf(plain).origin.y, image.origin.y - 5, 1e-9);
}

TEST_F(UIButtonLayoutTests, AtAnEdgeInsetsMoveThePartsAsTheyAre) {
  UIButton *plain = button();
  const CGFloat width = titleOf(plain).size.width;
  [plain setContentHorizontalAlignment:UIControlContentHorizontalAlignmentLeading];
  EXPECT_EQ(imageOf(plain).origin.x, 0);
  EXPECT_EQ(titleOf(plain).origin.x, 20);
  [plain setTitleEdgeInsets:UIEdgeInsetsMake(0, 10, 0, 0)];
  [plain setImageEdgeInsets:UIEdgeInsetsMake(0, 5, 0, 0)];
  EXPECT_EQ(imageOf(plain).origin.x, 5);
  EXPECT_EQ(titleOf(plain).origin.x, 30);
  [plain setContentHorizontalAlignment:UIControlContentHorizontalAlignmentTrailing];
  EXPECT_NEAR(CGRectGetMaxX(titleOf(plain)), 200, 1e-9);
  EXPECT_NEAR(CGRectGetMaxX(imageOf(plain)), 200 - width, 1e-9);
  [plain setContentVerticalAlignment:UIControlContentVerticalAlignmentTop];
  EXPECT_EQ(imageOf(plain).origin.y, 0);
  [plain setContentVerticalAlignment:UIControlContentVerticalAlignmentBottom];
  EXPECT_EQ(CGRectGetMaxY(imageOf(plain)), 60);
}

TEST_F(UIButtonLayoutTests, ATitleThatHasNoRoomIsShortened) {
  UIButton *plain = button();
  [plain setTitle:@"A title that is much longer than the button is" forState:UIControlStateNormal];
  [plain setTitleEdgeInsets:UIEdgeInsetsMake(0, 30, 0, 10)];
  EXPECT_EQ(titleOf(plain).size.width, 200 - 20 - 40);
  EXPECT_EQ(titleOf(plain).origin.x, 50);
}

TEST_F(UIButtonLayoutTests, ItsBaselinesAreThoseOfItsTitle) {
  const auto host = makeHost();
  UIButton *plain = button();
  [plain setContentEdgeInsets:UIEdgeInsetsMake(30, 0, 6, 0)];
  [plain setTranslatesAutoresizingMaskIntoConstraints:NO];
  [host.get() addSubview:plain];
  UILabel *first = addLabel(host.get(), @"One");
  UILabel *last = addLabel(host.get(), @"Two");
  for (UILabel *label in @[ first, last ]) [label setFont:[[plain titleLabel] font]];
  activate(@[
    [[plain topAnchor] constraintEqualToAnchor:[host.get() topAnchor]],
    [[plain leadingAnchor] constraintEqualToAnchor:[host.get() leadingAnchor]],
    [[first firstBaselineAnchor] constraintEqualToAnchor:[plain firstBaselineAnchor]],
    [[last lastBaselineAnchor] constraintEqualToAnchor:[plain lastBaselineAnchor]]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_NEAR([first frame].origin.y, titleOf(plain).origin.y, 0.5);
  EXPECT_NEAR([last frame].origin.y, titleOf(plain).origin.y, 0.5);
  EXPECT_GT([first frame].origin.y, 25);
}

TEST_F(UIButtonLayoutTests, SubclassesSayWhereThePartsLie) {
  TurnedButton *turned = [[[TurnedButton alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [turned setTitle:@"Go" forState:UIControlStateNormal];
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(20, 10), NO, 1);
  [turned setImage:UIGraphicsGetImageFromCurrentImageContext() forState:UIControlStateNormal];
  UIGraphicsEndImageContext();
  [turned setContentEdgeInsets:UIEdgeInsetsMake(1, 2, 3, 4)];
  [turned layoutIfNeeded];
  EXPECT_EQ(frameOf([turned titleLabel]), "2 1 50 26");
  EXPECT_EQ(frameOf([turned imageView]), "52 1 10 26");
}

}  // namespace
