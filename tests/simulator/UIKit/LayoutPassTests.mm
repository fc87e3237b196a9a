// One layout pass: what moves in it and bears on what is laid out later, and what need not be looked at again.
#import "AutoLayoutSupport.h"

using objcxx::Retained;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

namespace {

class LayoutPassTests : public AutoLayoutTest {
 protected:
  /// In `host`, 10 points from all sides and placed by constraints, so that it moves when the host is resized.
  static UIView *addPlaced(UIView *host) {
    UIView *placed = addView(host);
    pin(placed, 10);
    return placed;
  }
  /// As wide as the guide, 20 points high at its top.
  static void span(UIView *view, UILayoutGuide *guide) {
    activate(@[
      [[view leadingAnchor] constraintEqualToAnchor:[guide leadingAnchor]],
      [[view trailingAnchor] constraintEqualToAnchor:[guide trailingAnchor]],
      [[view topAnchor] constraintEqualToAnchor:[guide topAnchor]],
      [[view heightAnchor] constraintEqualToConstant:20],
    ]);
  }
  static void resize(UIView *host, CGFloat width, CGFloat height = 400) {
    [host setFrame:CGRectMake(0, 0, width, height)];
    [host layoutIfNeeded];
  }
};

}  // namespace

TEST_F(LayoutPassTests, AReadableGuideFollowsAViewThatMovesInTheSamePass) {
  const auto host = makeHost();
  UIView *placed = addPlaced(host.get());
  UIView *text = addView(placed);
  span(text, [placed readableContentGuide]);
  resize(host.get(), 300);
  EXPECT_EQ(frameOf(text), "8 8 264 20");
  resize(host.get(), 1000);
  EXPECT_EQ(frameOf(text), "154 8 672 20");
  resize(host.get(), 500);
  EXPECT_EQ(frameOf(text), "8 8 464 20");
}

TEST_F(LayoutPassTests, MarginsOfTheSuperviewReachIntoAViewThatMovesInTheSamePass) {
  const auto host = makeHost();
  [host.get() setLayoutMargins:UIEdgeInsetsMake(0, 40, 0, 40)];
  UIView *placed = addView(host.get());
  [placed setPreservesSuperviewLayoutMargins:YES];
  NSLayoutConstraint *start = [[placed leadingAnchor] constraintEqualToAnchor:[host.get() leadingAnchor] constant:10];
  activate(@[
    start, [[placed trailingAnchor] constraintEqualToAnchor:[host.get() trailingAnchor]],
    [[placed topAnchor] constraintEqualToAnchor:[host.get() topAnchor]],
    [[placed heightAnchor] constraintEqualToConstant:100]
  ]);
  UIView *text = addView(placed);
  span(text, [placed layoutMarginsGuide]);
  resize(host.get(), 300);
  EXPECT_EQ(frameOf(text), "30 8 220 20");
  [start setConstant:25];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(text), "15 8 220 20");
}

TEST_F(LayoutPassTests, AMarginAttributeFollowsAViewThatMovesInTheSamePass) {
  const auto host = makeHost();
  [host.get() setLayoutMargins:UIEdgeInsetsMake(0, 40, 0, 40)];
  UIView *placed = addView(host.get());
  [placed setPreservesSuperviewLayoutMargins:YES];
  NSLayoutConstraint *start = [[placed leadingAnchor] constraintEqualToAnchor:[host.get() leadingAnchor]];
  activate(@[
    start, [[placed trailingAnchor] constraintEqualToAnchor:[host.get() trailingAnchor]],
    [[placed topAnchor] constraintEqualToAnchor:[host.get() topAnchor]],
    [[placed heightAnchor] constraintEqualToConstant:100]
  ]);
  UIView *mark = addView(placed);
  activate(@[
    [NSLayoutConstraint constraintWithItem:mark
                                 attribute:NSLayoutAttributeLeading
                                 relatedBy:NSLayoutRelationEqual
                                    toItem:placed
                                 attribute:NSLayoutAttributeLeadingMargin
                                multiplier:1
                                  constant:0],
    [[mark topAnchor] constraintEqualToAnchor:[placed topAnchor]], [[mark widthAnchor] constraintEqualToConstant:5],
    [[mark heightAnchor] constraintEqualToConstant:5]
  ]);
  resize(host.get(), 300);
  EXPECT_EQ(frameOf(mark), "40 0 5 5");
  [start setConstant:12];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(mark), "28 0 5 5");
}

TEST_F(LayoutPassTests, TheSafeAreaOfAViewFollowsWhereItMovesInTheSamePass) {
  constexpr CGFloat covered = 47;
  SIMSetMainScreen(CGSizeMake(390, 844), 3, UIEdgeInsetsMake(covered, 0, 0, 0));
  const auto window = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
  UIView *placed = addView(window.get());
  NSLayoutConstraint *top = [[placed topAnchor] constraintEqualToAnchor:[window.get() topAnchor]];
  activate(@[
    top, [[placed leadingAnchor] constraintEqualToAnchor:[window.get() leadingAnchor]],
    [[placed trailingAnchor] constraintEqualToAnchor:[window.get() trailingAnchor]],
    [[placed heightAnchor] constraintEqualToConstant:200]
  ]);
  // Views between them have frames, so that no constraint says where the text lies in the window.
  UIView *middle = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 390, 200)] autorelease];
  [placed addSubview:middle];
  UIView *inner = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 390, 200)] autorelease];
  [middle addSubview:inner];
  UIView *text = addView(inner);
  span(text, [inner safeAreaLayoutGuide]);
  [window.get() layoutIfNeeded];
  EXPECT_EQ([text frame].origin.y, covered);
  [top setConstant:30];
  [window.get() layoutIfNeeded];
  EXPECT_EQ([text frame].origin.y, covered - 30);
}

TEST_F(LayoutPassTests, AViewWithAFrameThatFollowsItsSuperviewBearsOnWhatIsBesideIt) {
  const auto host = makeHost();
  UIView *placed = addPlaced(host.get());
  [host.get() layoutIfNeeded];
  UIView *stretched = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 20)] autorelease];
  [stretched setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
  [placed addSubview:stretched];
  UIView *below = addView(placed);
  activate(@[
    [[below widthAnchor] constraintEqualToAnchor:[stretched widthAnchor] multiplier:0.5],
    [[below leadingAnchor] constraintEqualToAnchor:[placed leadingAnchor]],
    [[below topAnchor] constraintEqualToAnchor:[stretched bottomAnchor] constant:4],
    [[below heightAnchor] constraintEqualToConstant:10]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(below), "0 24 50 10");
  resize(host.get(), 340);
  EXPECT_EQ(frameOf(stretched), "0 0 140 20");
  EXPECT_EQ(frameOf(below), "0 24 70 10");
}

TEST_F(LayoutPassTests, AViewThatItsSuperviewLaysOutByHandBearsOnWhatIsBesideIt) {
  const auto host = makeHost();
  UITextField *field = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 80, 30)] autorelease];
  [host.get() addSubview:field];
  UIView *mark = addView(host.get());
  activate(@[
    [[mark leadingAnchor] constraintEqualToAnchor:[field trailingAnchor] constant:5],
    [[mark centerYAnchor] constraintEqualToAnchor:[field centerYAnchor]],
    [[mark widthAnchor] constraintEqualToConstant:10], [[mark heightAnchor] constraintEqualToConstant:10]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(mark), "85 10 10 10");
  [field setFrame:CGRectMake(0, 20, 120, 30)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(mark), "125 30 10 10");
}

TEST_F(LayoutPassTests, RowsThatAreAsHighAsTheirTextsFollowEachOther) {
  constexpr int kRows = 120;
  const auto host = makeHost();
  UIStackView *stack = [[[UIStackView alloc] initWithFrame:CGRectZero] autorelease];
  [stack setTranslatesAutoresizingMaskIntoConstraints:NO];
  [stack setAxis:UILayoutConstraintAxisVertical];
  [stack setSpacing:3];
  [host.get() addSubview:stack];
  activate(@[
    [[stack leadingAnchor] constraintEqualToAnchor:[host.get() leadingAnchor]],
    [[stack trailingAnchor] constraintEqualToAnchor:[host.get() trailingAnchor]],
    [[stack topAnchor] constraintEqualToAnchor:[host.get() topAnchor]]
  ]);
  CGFloat line = 0;
  for (int row = 0; row < kRows; ++row) {
    UIView *cell = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
    UILabel *text = addLabel(cell, [@"One" stringByPaddingToLength:row % 3 == 0 ? 3 : 60
                                                        withString:@" word"
                                                   startingAtIndex:0]);
    [text setNumberOfLines:0];
    pin(text, 2);
    line = [[text font] lineHeight];
    [stack addArrangedSubview:cell];
  }
  [host.get() layoutIfNeeded];
  CGFloat next = 0;
  for (UIView *cell in [stack arrangedSubviews]) {
    EXPECT_NEAR([cell frame].origin.y, next, 0.5);
    next = CGRectGetMaxY([cell frame]) + 3;
    EXPECT_EQ([cell frame].size.width, 300);
  }
  UIView *first = [[stack arrangedSubviews] objectAtIndex:0];
  UIView *second = [[stack arrangedSubviews] objectAtIndex:1];
  EXPECT_NEAR([first frame].size.height, line + 4, 1);
  EXPECT_GT([second frame].size.height, 2 * line);
  EXPECT_NEAR([stack frame].size.height, next - 3, 0.5);
  // Narrower, the long texts take more lines, and all that is below them moves.
  const CGFloat before = [second frame].size.height;
  resize(host.get(), 150);
  EXPECT_GT([second frame].size.height, before);
  EXPECT_NEAR([[[stack arrangedSubviews] objectAtIndex:2] frame].origin.y, CGRectGetMaxY([second frame]) + 3, 0.5);
}

TEST_F(LayoutPassTests, WhatFollowsATextThroughOtherViewsIsLaidOutWithItWhereverItLies) {
  const auto host = makeHost();
  UIView *early = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 400)] autorelease];
  UIView *late = [[[UIView alloc] initWithFrame:CGRectMake(100, 0, 100, 400)] autorelease];
  [host.get() addSubview:early];
  [host.get() addSubview:late];
  UILabel *text = addLabel(late, @"one");
  [text setNumberOfLines:0];
  UIView *between = addView(late);
  UIView *mark = addView(early);
  activate(@[
    [[text topAnchor] constraintEqualToAnchor:[late topAnchor]],
    [[text leadingAnchor] constraintEqualToAnchor:[late leadingAnchor]],
    [[text widthAnchor] constraintEqualToConstant:100],
    [[between topAnchor] constraintEqualToAnchor:[text bottomAnchor]],
    [[between leadingAnchor] constraintEqualToAnchor:[late leadingAnchor]],
    [[between widthAnchor] constraintEqualToConstant:10], [[between heightAnchor] constraintEqualToConstant:10],
    [[mark topAnchor] constraintEqualToAnchor:[between bottomAnchor]],
    [[mark leadingAnchor] constraintEqualToAnchor:[early leadingAnchor]],
    [[mark widthAnchor] constraintEqualToConstant:10], [[mark heightAnchor] constraintEqualToConstant:10]
  ]);
  [host.get() layoutIfNeeded];
  const CGFloat before = [mark frame].origin.y;
  EXPECT_NEAR(before, CGRectGetMaxY([text frame]) + 10, 0.01);
  [text setText:@"one\ntwo\nthree"];
  [host.get() layoutIfNeeded];
  EXPECT_GT([mark frame].origin.y, before + 20);
  EXPECT_NEAR([mark frame].origin.y, CGRectGetMaxY([text frame]) + 10, 0.01);
}

TEST_F(LayoutPassTests, TheContentOfAScrollViewFollowsATextThroughOtherViews) {
  const auto host = makeHost();
  UIScrollView *scroll = [[[UIScrollView alloc] initWithFrame:CGRectMake(0, 0, 300, 400)] autorelease];
  [host.get() addSubview:scroll];
  UIView *holder = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 300, 400)] autorelease];
  [scroll addSubview:holder];
  UILabel *text = addLabel(holder, @"one");
  [text setNumberOfLines:0];
  UIView *below = addView(holder);
  activate(@[
    [[text topAnchor] constraintEqualToAnchor:[holder topAnchor]],
    [[text leadingAnchor] constraintEqualToAnchor:[holder leadingAnchor]],
    [[text widthAnchor] constraintEqualToConstant:100], [[below topAnchor] constraintEqualToAnchor:[text bottomAnchor]],
    [[below leadingAnchor] constraintEqualToAnchor:[holder leadingAnchor]],
    [[below widthAnchor] constraintEqualToConstant:10], [[below heightAnchor] constraintEqualToConstant:20],
    [[[scroll contentLayoutGuide] bottomAnchor] constraintEqualToAnchor:[below bottomAnchor]],
    [[[scroll contentLayoutGuide] widthAnchor] constraintEqualToConstant:300]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_NEAR([scroll contentSize].height, CGRectGetMaxY([text frame]) + 20, 0.01);
  [text setText:@"one\ntwo\nthree"];
  [host.get() layoutIfNeeded];
  EXPECT_GT([text frame].size.height, 50);
  EXPECT_NEAR([scroll contentSize].height, CGRectGetMaxY([text frame]) + 20, 0.01);
}

/// Makes its first subview as wide as it is told, when it is laid out.
@interface WidthSetter : UIView {
 @public
  CGFloat width;
}
@end

@implementation WidthSetter
- (void)layoutSubviews {
  [super layoutSubviews];
  [[[self subviews] objectAtIndex:0] setFrame:CGRectMake(0, 0, width, 10)];
}
@end

TEST_F(LayoutPassTests, WhatIsPlacedBesideAViewThatALaterOneLaysOutByHandFollowsInTheSamePass) {
  const auto host = makeHost();
  UIView *early = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 300, 100)] autorelease];
  WidthSetter *late = [[[WidthSetter alloc] initWithFrame:CGRectMake(0, 100, 300, 100)] autorelease];
  [host.get() addSubview:early];
  [host.get() addSubview:late];
  late->width = 50;
  UIView *byHand = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [late addSubview:byHand];
  UIView *mark = addView(early);
  activate(@[
    [[mark widthAnchor] constraintEqualToAnchor:[byHand widthAnchor]],
    [[mark leadingAnchor] constraintEqualToAnchor:[early leadingAnchor]],
    [[mark topAnchor] constraintEqualToAnchor:[early topAnchor]], [[mark heightAnchor] constraintEqualToConstant:5]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(mark), "0 0 50 5");
  late->width = 80;
  [late setNeedsLayout];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(mark), "0 0 80 5");
}
