#import "AutoLayoutSupport.h"

#include <gmock/gmock.h>

#include <vector>

using objcxx::adopt;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

/// Makes its one constraint when it is told to update, and counts.
@interface UpdatingView : UIView {
 @public
  int updates;
  NSLayoutConstraint *width;
  UIView *inner;
}
@end

@implementation UpdatingView

- (void)updateConstraints {
  ++updates;
  if (!width) {
    width = [inner.widthAnchor constraintEqualToConstant:33];
    [width setActive:YES];
  }
  [super updateConstraints];
}

@end

/// Of a size that may change.
@interface SizedView : UIView {
 @public
  CGSize size;
}
@end

@implementation SizedView

- (CGSize)intrinsicContentSize {
  return size;
}

@end

/// Notes its first subview's frame when it is told to lay out.
@interface WatchingView : UIView {
 @public
  std::vector<std::string> seen;
}
@end

@implementation WatchingView

- (void)layoutSubviews {
  seen.push_back(testing_support::frameOf([[self subviews] firstObject]));
}

@end

@interface LayoutPage : UIViewController {
 @public
  int updates;
  int safeAreas;
}
@end

@implementation LayoutPage

- (void)updateViewConstraints {
  ++updates;
  [super updateViewConstraints];
}

- (void)viewSafeAreaInsetsDidChange {
  ++safeAreas;
  [super viewSafeAreaInsetsDidChange];
}

@end

namespace {

class UIViewAutoLayoutTests : public AutoLayoutTest {
 protected:
  static SizedView *addSized(UIView *superview, CGSize size) {
    SizedView *view = [[[SizedView alloc] initWithFrame:CGRectZero] autorelease];
    view->size = size;
    [view setTranslatesAutoresizingMaskIntoConstraints:NO];
    [superview addSubview:view];
    return view;
  }
};

TEST_F(UIViewAutoLayoutTests, AViewFollowsItsSuperview) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  pin(view, 10);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "10 10 280 380");
  [host.get() setFrame:CGRectMake(50, 60, 200, 100)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "10 10 180 80");
}

TEST_F(UIViewAutoLayoutTests, WithItsMaskAViewLiesWhereItsFrameSays) {
  const auto host = makeHost();
  UIView *fixed = [[[UIView alloc] initWithFrame:CGRectMake(20, 30, 40, 50)] autorelease];
  [host.get() addSubview:fixed];
  UIView *beside = addView(host.get());
  EXPECT_TRUE([fixed translatesAutoresizingMaskIntoConstraints]);
  activate(@[
    [beside.leadingAnchor constraintEqualToAnchor:fixed.trailingAnchor constant:8],
    [beside.topAnchor constraintEqualToAnchor:fixed.topAnchor],
    [beside.widthAnchor constraintEqualToAnchor:fixed.widthAnchor],
    [beside.heightAnchor constraintEqualToAnchor:fixed.heightAnchor],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(fixed), "20 30 40 50");
  EXPECT_EQ(frameOf(beside), "68 30 40 50");
  [fixed setFrame:CGRectMake(0, 0, 10, 10)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(beside), "18 0 10 10");
}

TEST_F(UIViewAutoLayoutTests, AViewThatNoConstraintPlacesKeepsItsFrame) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  [view setFrame:CGRectMake(1, 2, 3, 4)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "1 2 3 4");
}

TEST_F(UIViewAutoLayoutTests, AViewThatOnlyItsContentBearsOnIsAsLargeAsThat) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  [view setFrame:CGRectMake(1, 2, 3, 4)];
  UIView *inner = addSized(view, CGSizeMake(20, 30));
  pin(inner, 5);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "0 0 30 40");
  const auto page = adopt([[UIViewController alloc] init]);
  [[page.get() view] setTranslatesAutoresizingMaskIntoConstraints:NO];
  [[page.get() view] setFrame:CGRectMake(0, 0, 100, 100)];
  pin(addView([page.get() view]), 5);
  [host.get() addSubview:[page.get() view]];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf([page.get() view]), "0 0 100 100") << "A controller's view lies where its container puts it.";
}

TEST_F(UIViewAutoLayoutTests, ChangesTakeEffectAtTheNextLayout) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  NSLayoutConstraint *left = [view.leftAnchor constraintEqualToAnchor:host.get().leftAnchor constant:5];
  NSLayoutConstraint *width = [view.widthAnchor constraintEqualToConstant:50];
  activate(@[ left, width, [view.heightAnchor constraintEqualToConstant:10] ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "5 0 50 10");
  [left setConstant:9];
  EXPECT_EQ(frameOf(view), "5 0 50 10");
  [UIView animateWithDuration:1
                   animations:^{
                     [host.get() layoutIfNeeded];
                   }];
  EXPECT_EQ(frameOf(view), "9 0 50 10");
  [left setActive:NO];
  [[view.rightAnchor constraintEqualToAnchor:host.get().rightAnchor] setActive:YES];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "250 0 50 10");
  [host.get() removeConstraint:left];
  [view removeConstraint:width];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view bounds].size.width, 0);
}

TEST_F(UIViewAutoLayoutTests, AViewIsAsLargeAsItsContentWithinItsPriorities) {
  const auto host = makeHost();
  UIView *first = addSized(host.get(), CGSizeMake(100, 20));
  UIView *second = addSized(host.get(), CGSizeMake(120, 30));
  activate(@[
    [first.leadingAnchor constraintEqualToAnchor:host.get().leadingAnchor],
    [second.leadingAnchor constraintEqualToAnchor:first.trailingAnchor],
    [second.trailingAnchor constraintEqualToAnchor:host.get().trailingAnchor],
  ]);
  [first setContentHuggingPriority:251 forAxis:UILayoutConstraintAxisHorizontal];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(first), "0 0 100 20");
  EXPECT_EQ(frameOf(second), "100 0 200 30");
  [first setContentHuggingPriority:249 forAxis:UILayoutConstraintAxisHorizontal];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(first), "0 0 180 20");

  [host.get() setFrame:CGRectMake(0, 0, 150, 400)];
  [second setContentCompressionResistancePriority:751 forAxis:UILayoutConstraintAxisHorizontal];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(first), "0 0 30 20");
  EXPECT_EQ(frameOf(second), "30 0 120 30");
  EXPECT_EQ([second contentCompressionResistancePriorityForAxis:UILayoutConstraintAxisVertical], 750);
}

TEST_F(UIViewAutoLayoutTests, ContentThatChangesHasToSaySo) {
  const auto host = makeHost();
  SizedView *view = addSized(host.get(), CGSizeMake(10, 20));
  [[view.leftAnchor constraintEqualToAnchor:host.get().leftAnchor] setActive:YES];
  [host.get() layoutIfNeeded];
  view->size = CGSizeMake(30, 40);
  [host.get() setNeedsLayout];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "0 0 10 20");
  [view invalidateIntrinsicContentSize];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "0 0 30 40");
}

TEST_F(UIViewAutoLayoutTests, StandardViewsHaveTheSizesOfADevice) {
  const auto expectSize = [](UIView *view, CGFloat width, CGFloat height) {
    EXPECT_EQ([view intrinsicContentSize].width, width) << [[[view class] description] UTF8String];
    EXPECT_EQ([view intrinsicContentSize].height, height) << [[[view class] description] UTF8String];
  };
  expectSize([[[UIView alloc] init] autorelease], -1, -1);
  expectSize([[[UISwitch alloc] init] autorelease], 51, 31);
  expectSize([[[UISlider alloc] init] autorelease], -1, 34);
  expectSize([[[UIActivityIndicatorView alloc] init] autorelease], 20, 20);
  expectSize([[[UIImageView alloc] init] autorelease], -1, -1);
  UISegmentedControl *segments = [[[UISegmentedControl alloc] initWithItems:@[ @"A", @"Long one" ]] autorelease];
  EXPECT_EQ([segments intrinsicContentSize].height, 32);
  const CGFloat two = [segments intrinsicContentSize].width;
  [segments insertSegmentWithTitle:@"B" atIndex:0 animated:NO];
  EXPECT_DOUBLE_EQ([segments intrinsicContentSize].width, two * 1.5);
  UITextField *field = [[[UITextField alloc] init] autorelease];
  [field setBorderStyle:UITextBorderStyleRoundedRect];
  const CGFloat empty = [field intrinsicContentSize].width;
  [field setPlaceholder:@"Name"];
  EXPECT_GT([field intrinsicContentSize].width, empty);
  EXPECT_EQ([field intrinsicContentSize].height, 34);
  UITextView *text = [[[UITextView alloc] init] autorelease];
  [text setText:@"One\nTwo"];
  expectSize(text, -1, -1);
  [text setScrollEnabled:NO];
  EXPECT_GT([text intrinsicContentSize].height, 2 * 12);
  EXPECT_EQ([[[[UILabel alloc] init] autorelease] contentHuggingPriorityForAxis:UILayoutConstraintAxisHorizontal], 251);
  EXPECT_EQ([[[[UISwitch alloc] init] autorelease] contentHuggingPriorityForAxis:UILayoutConstraintAxisHorizontal],
            750);
}

TEST_F(UIViewAutoLayoutTests, ATextWrapsInTheWidthThatItGets) {
  const auto host = makeHost();
  UILabel *label = addLabel(host.get(), @"A text that is a good deal too long for a single line of this narrow view");
  UIView *below = addView(host.get());
  activate(@[
    [label.topAnchor constraintEqualToAnchor:host.get().topAnchor],
    [label.leadingAnchor constraintEqualToAnchor:host.get().leadingAnchor constant:10],
    [label.trailingAnchor constraintEqualToAnchor:host.get().trailingAnchor constant:-10],
    [below.topAnchor constraintEqualToAnchor:label.bottomAnchor],
  ]);
  const CGFloat line = [label intrinsicContentSize].height;
  [host.get() layoutIfNeeded];
  EXPECT_EQ([below frame].origin.y, line);
  [label setNumberOfLines:0];
  [host.get() layoutIfNeeded];
  const CGFloat wrapped = [label sizeThatFits:CGSizeMake(280, 0)].height;
  EXPECT_GT(wrapped, 2 * line - 1);
  EXPECT_EQ([below frame].origin.y, wrapped);
  [host.get() setFrame:CGRectMake(0, 0, 150, 400)];
  [host.get() layoutIfNeeded];
  EXPECT_GT([below frame].origin.y, wrapped);
  [label setText:@"Short"];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([below frame].origin.y, line);
  [label setText:@"Again a text that is too long"];
  [label setPreferredMaxLayoutWidth:60];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([below frame].origin.y, [label sizeThatFits:CGSizeMake(60, 0)].height) << "The owner's word on the width.";
}

TEST_F(UIViewAutoLayoutTests, TheSizeThatFitsFollowsFromTheConstraintsInside) {
  const auto host = makeHost();
  UIView *inner = addSized(host.get(), CGSizeMake(80, 25));
  pin(inner, 10);
  EXPECT_EQ([host.get() systemLayoutSizeFittingSize:UILayoutFittingCompressedSize].width, 100);
  EXPECT_EQ([host.get() systemLayoutSizeFittingSize:UILayoutFittingCompressedSize].height, 45);
  [inner setContentHuggingPriority:20 forAxis:UILayoutConstraintAxisHorizontal];
  EXPECT_EQ([host.get() systemLayoutSizeFittingSize:CGSizeMake(500, 0)].width, 500);
  const CGSize size = [host.get() systemLayoutSizeFittingSize:CGSizeMake(200, 0)
                                withHorizontalFittingPriority:UILayoutPriorityRequired
                                      verticalFittingPriority:UILayoutPriorityFittingSizeLevel];
  EXPECT_EQ(size.width, 200);
  EXPECT_EQ(size.height, 45);
  EXPECT_EQ(frameOf(host.get()), "0 0 300 400");
  const auto empty = makeHost();
  EXPECT_EQ([empty.get() systemLayoutSizeFittingSize:UILayoutFittingCompressedSize].height, 0);
  UILabel *label = addLabel(empty.get(), @"Text");
  EXPECT_EQ([label systemLayoutSizeFittingSize:UILayoutFittingCompressedSize].width,
            [label intrinsicContentSize].width);
}

TEST_F(UIViewAutoLayoutTests, AWrappedTextFitsTheWidthThatIsAskedFor) {
  const auto host = makeHost();
  UILabel *label = addLabel(host.get(), @"A text that is a good deal too long for a single line of this narrow view");
  [label setNumberOfLines:0];
  pin(label, 8);
  const CGSize size = [host.get() systemLayoutSizeFittingSize:CGSizeMake(116, 0)
                                withHorizontalFittingPriority:UILayoutPriorityRequired
                                      verticalFittingPriority:UILayoutPriorityFittingSizeLevel];
  EXPECT_NEAR(size.height, [label sizeThatFits:CGSizeMake(100, 0)].height + 16, 0.34);
}

TEST_F(UIViewAutoLayoutTests, ResultsAreInWholePixels) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  activate(@[
    [view.widthAnchor constraintEqualToAnchor:host.get().widthAnchor multiplier:1 / 7.0],
    [view.heightAnchor constraintEqualToConstant:10.1],
    [view.centerXAnchor constraintEqualToAnchor:host.get().centerXAnchor],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_NEAR([view frame].origin.x, 386 / 3.0, 1e-9);
  EXPECT_NEAR([view frame].size.width, 128 / 3.0, 1e-9);
  EXPECT_NEAR([view frame].size.height, 10, 1e-9);
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  [host.get() setNeedsLayout];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view frame].origin.x, 128.5);
}

TEST_F(UIViewAutoLayoutTests, NothingIsLessThanNothingWide) {
  const auto host = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 0, 0)]);
  UIView *view = addView(host.get());
  pin(view, 16);
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view bounds].size.width, 0);
  EXPECT_EQ(takeLog(), "");
}

TEST_F(UIViewAutoLayoutTests, SubviewsArePlacedBeforeTheirSuperviewLaysThemOut) {
  const auto host = adopt([[WatchingView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)]);
  pin(addView(host.get()), 1);
  [host.get() layoutIfNeeded];
  EXPECT_THAT(host.get()->seen, testing::ElementsAre("1 1 98 98"));
}

TEST_F(UIViewAutoLayoutTests, ConstraintsReachThroughViewsWithFramesAndWithConstraints) {
  const auto host = makeHost();
  UIView *fixed = [[[UIView alloc] initWithFrame:CGRectMake(30, 40, 100, 100)] autorelease];
  [fixed setBounds:CGRectMake(5, 6, 100, 100)];
  [host.get() addSubview:fixed];
  UIView *inFixed = addView(fixed);
  UIView *card = addView(host.get());
  UIView *inCard = addView(card);
  pin(inCard, 3);
  activate(@[
    [inFixed.leftAnchor constraintEqualToAnchor:host.get().leftAnchor constant:50],
    [inFixed.topAnchor constraintEqualToAnchor:fixed.topAnchor],
    [inFixed.rightAnchor constraintEqualToAnchor:inCard.leftAnchor],
    [inFixed.widthAnchor constraintEqualToConstant:25],
    [inCard.widthAnchor constraintEqualToConstant:60],
    [inCard.heightAnchor constraintEqualToAnchor:inFixed.heightAnchor],
    [inFixed.heightAnchor constraintEqualToConstant:14],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(inFixed), "25 6 25 14");
  EXPECT_EQ(frameOf(card), "72 0 66 20");
  EXPECT_EQ(frameOf(inCard), "3 3 60 14");
}

// The card is laid out before the label that decides how wide it is.
TEST_F(UIViewAutoLayoutTests, WhatLiesDeepInOneViewMovesAnother) {
  const auto host = makeHost();
  UIView *early = addView(host.get());
  UIView *card = addView(host.get());
  SizedView *deep = addSized(addView(card), CGSizeMake(10, 10));
  pin([deep superview]);
  pin(deep);
  [[early.leftAnchor constraintEqualToAnchor:deep.rightAnchor] setActive:YES];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([early frame].origin.x, 10);
  deep->size = CGSizeMake(44, 10);
  [deep invalidateIntrinsicContentSize];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([early frame].origin.x, 44);
  EXPECT_EQ(frameOf(card), "0 0 44 10");
}

TEST_F(UIViewAutoLayoutTests, LayoutGuidesTakePart) {
  const auto host = makeHost();
  const auto guide = adopt([[UILayoutGuide alloc] init]);
  [host.get() addLayoutGuide:guide.get()];
  EXPECT_EQ([guide.get() owningView], host.get());
  UIView *view = addView(host.get());
  activate(@[
    [guide.get().leadingAnchor constraintEqualToAnchor:host.get().leadingAnchor constant:20],
    [guide.get().widthAnchor constraintEqualToConstant:30],
    [guide.get().topAnchor constraintEqualToAnchor:host.get().topAnchor constant:7],
    [guide.get().heightAnchor constraintEqualToConstant:9],
    [view.leadingAnchor constraintEqualToAnchor:guide.get().trailingAnchor],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view frame].origin.x, 50);
  EXPECT_TRUE(CGRectEqualToRect([guide.get() layoutFrame], CGRectMake(20, 7, 30, 9)));
  [host.get() removeLayoutGuide:guide.get()];
  EXPECT_EQ([[host.get() layoutGuides] count], 0u);
  EXPECT_EQ([[host.get() constraints] count], 0u);
}

TEST_F(UIViewAutoLayoutTests, GuidesOfMarginsAndOfWhatIsReadable) {
  const auto host = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 1000, 100)]);
  UIView *inMargins = addView(host.get());
  UIView *readable = addView(host.get());
  const auto fill = [](UIView *view, UILayoutGuide *guide) {
    activate(@[
      [view.leadingAnchor constraintEqualToAnchor:guide.leadingAnchor],
      [view.trailingAnchor constraintEqualToAnchor:guide.trailingAnchor],
      [view.topAnchor constraintEqualToAnchor:guide.topAnchor],
      [view.bottomAnchor constraintEqualToAnchor:guide.bottomAnchor]
    ]);
  };
  fill(inMargins, host.get().layoutMarginsGuide);
  fill(readable, host.get().readableContentGuide);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(inMargins), "8 8 984 84");
  EXPECT_EQ(frameOf(readable), "164 8 672 84");
  [host.get() setDirectionalLayoutMargins:NSDirectionalEdgeInsetsMake(1, 2, 3, 4)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(inMargins), "2 1 994 96");
  [inMargins setPreservesSuperviewLayoutMargins:YES];
  [inMargins setLayoutMargins:UIEdgeInsetsMake(0, 0, 0, 9)];
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets([inMargins layoutMargins], UIEdgeInsetsMake(0, 0, 0, 9)));
  [readable setFrame:CGRectMake(0, 0, 1000, 100)];
  [readable setPreservesSuperviewLayoutMargins:YES];
  [readable setLayoutMargins:UIEdgeInsetsZero];
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets([readable layoutMargins], UIEdgeInsetsMake(1, 2, 3, 4)));
}

TEST_F(UIViewAutoLayoutTests, ConstraintsAreUpdatedBeforeLayoutFromTheInsideOut) {
  const auto host = makeHost();
  const auto view = adopt([[UpdatingView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  view.get()->inner = addView(view.get());
  [host.get() addSubview:view.get()];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(view.get()->updates, 1);
  EXPECT_EQ([view.get()->inner bounds].size.width, 33);
  [host.get() setNeedsLayout];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(view.get()->updates, 1);
  [view.get() setNeedsUpdateConstraints];
  EXPECT_TRUE([view.get() needsUpdateConstraints]);
  [host.get() updateConstraintsIfNeeded];
  EXPECT_EQ(view.get()->updates, 2);
  EXPECT_FALSE([view.get() needsUpdateConstraints]);
}

TEST_F(UIViewAutoLayoutTests, AScrollViewIsAsLargeInsideAsItsConstraintsSay) {
  const auto host = makeHost();
  UIScrollView *scroll = [[[UIScrollView alloc] initWithFrame:CGRectZero] autorelease];
  [scroll setTranslatesAutoresizingMaskIntoConstraints:NO];
  [host.get() addSubview:scroll];
  pin(scroll, 20);
  UIView *content = addView(scroll);
  pin(content, 5);
  UIView *floating = addView(scroll);
  activate(@[
    [content.widthAnchor constraintEqualToAnchor:scroll.widthAnchor constant:-10],
    [content.heightAnchor constraintEqualToConstant:900],
    [floating.topAnchor constraintEqualToAnchor:scroll.frameLayoutGuide.topAnchor],
    [floating.rightAnchor constraintEqualToAnchor:scroll.contentLayoutGuide.rightAnchor],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(scroll), "20 20 260 360");
  EXPECT_EQ(frameOf(content), "5 5 250 900");
  EXPECT_EQ([scroll contentSize].width, 260);
  EXPECT_EQ([scroll contentSize].height, 910);
  [scroll setContentOffset:CGPointMake(0, 100)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(floating), "260 100 0 0");
  EXPECT_EQ(frameOf(content), "5 5 250 900");
}

TEST_F(UIViewAutoLayoutTests, APageKeepsClearOfBarsAndCorners) {
  SIMSetMainScreen(CGSizeMake(390, 844), 3, UIEdgeInsetsMake(47, 0, 34, 0));
  const auto window = adopt([[UIWindow alloc] init]);
  const auto page = adopt([[LayoutPage alloc] init]);
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
  UIView *root = [page.get() view];
  UIView *safe = addView(root);
  UIView *legacy = addView(root);
  UIView *inMargins = addView(root);
  activate(@[
    [safe.topAnchor constraintEqualToAnchor:root.safeAreaLayoutGuide.topAnchor],
    [safe.bottomAnchor constraintEqualToAnchor:root.safeAreaLayoutGuide.bottomAnchor],
    [safe.leadingAnchor constraintEqualToAnchor:root.safeAreaLayoutGuide.leadingAnchor],
    [safe.trailingAnchor constraintEqualToAnchor:root.safeAreaLayoutGuide.trailingAnchor],
    [legacy.topAnchor constraintEqualToAnchor:page.get().topLayoutGuide.bottomAnchor],
    [legacy.bottomAnchor constraintEqualToAnchor:page.get().bottomLayoutGuide.topAnchor],
    [inMargins.leadingAnchor constraintEqualToAnchor:root.layoutMarginsGuide.leadingAnchor],
    [inMargins.trailingAnchor constraintEqualToAnchor:root.layoutMarginsGuide.trailingAnchor],
  ]);
  [window.get() setRootViewController:stack.get()];
  [window.get() makeKeyAndVisible];
  [window.get() layoutIfNeeded];
  const CGFloat top = [root safeAreaInsets].top;
  EXPECT_GT(top, 47);
  EXPECT_EQ([safe frame].origin.y, top);
  EXPECT_EQ(CGRectGetMaxY([safe frame]), 844 - 34);
  EXPECT_EQ([legacy frame].origin.y, top);
  EXPECT_EQ(CGRectGetMaxY([legacy frame]), 844 - 34);
  EXPECT_EQ([page.get().bottomLayoutGuide length], 34);
  EXPECT_EQ([inMargins frame].origin.x, 16);
  EXPECT_EQ(page.get()->updates, 1);
  EXPECT_GE(page.get()->safeAreas, 1);

  const int told = page.get()->safeAreas;
  SIMSetMainScreen(CGSizeMake(844, 390), 3, UIEdgeInsetsMake(0, 47, 21, 47));
  [window.get() setFrame:[[UIScreen mainScreen] bounds]];
  [window.get() layoutIfNeeded];
  EXPECT_EQ([safe frame].origin.x, 47);
  EXPECT_EQ([safe frame].size.width, 844 - 94);
  EXPECT_EQ([inMargins frame].origin.x, 47 + 20);
  EXPECT_GT(page.get()->safeAreas, told);
}

}  // namespace
