#import <UIKit/UIKit.h>
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIWindow+Sim.h>

#include <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>

using objcxx::adopt;

namespace {

std::string nameOf(UIUserInterfaceStyle style) {
  return style == UIUserInterfaceStyleDark ? "dark" : style == UIUserInterfaceStyleLight ? "light" : "none";
}

std::string styleOf(id<UITraitEnvironment> environment) {
  return nameOf([[environment traitCollection] userInterfaceStyle]);
}

std::string currentStyle() { return nameOf([[UITraitCollection currentTraitCollection] userInterfaceStyle]); }

}  // namespace

/// Writes down what it is told, and the style that is current meanwhile.
@interface TraitView : UIView {
 @public
  std::string heard;
  std::string laidOutIn;
  std::string drawnIn;
}
@end

@implementation TraitView
- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  heard += nameOf([previous userInterfaceStyle]) + ">" + styleOf(self) + "(" + currentStyle() + ") ";
}
- (void)layoutSubviews {
  laidOutIn = currentStyle();
}
- (void)drawRect:(CGRect)rect {
  (void)rect;
  drawnIn = currentStyle();
}
@end

@interface TraitPage : UIViewController {
 @public
  std::string heard;
  std::string laidOutIn;
}
@end

@implementation TraitPage
- (void)loadView {
  [self setView:adopt([[TraitView alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]).get()];
}
- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  heard += nameOf([previous userInterfaceStyle]) + ">" + styleOf(self) + "(" + currentStyle() + ") ";
}
- (void)viewWillLayoutSubviews {
  laidOutIn = currentStyle();
}
@end

namespace {

class UIViewTraitsTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    window_ = adopt([[UIWindow alloc] init]);
  }
  void TearDown() override {
    SIMSetUserInterfaceStyle(UIUserInterfaceStyleLight);
    window_ = nullptr;
    ObjCTest::TearDown();
  }

  UIWindow *window() { return window_.get(); }
  TraitView *viewIn(UIView *superview) {
    TraitView *view = [[[TraitView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
    [superview addSubview:view];
    return view;
  }
  objcxx::Retained<TraitPage> pageInStack() {
    auto page = adopt([[TraitPage alloc] init]);
    stack_ = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
    [window() setRootViewController:stack_.get()];
    [window() makeKeyAndVisible];
    return page;
  }
  UINavigationController *stack() { return stack_.get(); }

 private:
  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UINavigationController> stack_;
};

TEST_F(UIViewTraitsTests, AStyleIsThatOfTheWholeSubtree) {
  TraitView *outer = viewIn(window());
  TraitView *inner = viewIn(outer);
  [outer setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(window()), "light");
  EXPECT_EQ(styleOf(outer), "dark");
  EXPECT_EQ(styleOf(inner), "dark");
  EXPECT_EQ([[inner traitCollection] displayScale], [[UIScreen mainScreen] scale]);
  EXPECT_EQ(outer->heard, "light>dark(dark) ");
  EXPECT_EQ(inner->heard, "light>dark(dark) ");

  [inner setOverrideUserInterfaceStyle:UIUserInterfaceStyleLight];
  EXPECT_EQ(styleOf(inner), "light");
  EXPECT_EQ(inner->heard, "light>dark(dark) dark>light(light) ");
  [outer setOverrideUserInterfaceStyle:UIUserInterfaceStyleUnspecified];
  EXPECT_EQ(outer->heard, "light>dark(dark) dark>light(light) ");
  EXPECT_EQ(inner->heard, "light>dark(dark) dark>light(light) ");
}

TEST_F(UIViewTraitsTests, TheDevicesStyleReachesWhatHasNoneOfItsOwn) {
  TraitView *outer = viewIn(window());
  TraitView *inner = viewIn(outer);
  TraitView *beside = viewIn(window());
  [outer setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  outer->heard.clear();
  inner->heard.clear();
  [window() sim_changeUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(outer->heard, "");
  EXPECT_EQ(inner->heard, "");
  EXPECT_EQ(beside->heard, "light>dark(dark) ");
}

TEST_F(UIViewTraitsTests, AViewIsToldWhenItComesToOtherSurroundings) {
  UIView *dark = viewIn(window());
  [dark setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  TraitView *view = viewIn(window());
  [dark addSubview:view];
  EXPECT_EQ(view->heard, "light>dark(dark) ");
  [window() addSubview:view];
  EXPECT_EQ(view->heard, "light>dark(dark) dark>light(light) ");
}

TEST_F(UIViewTraitsTests, AControllersStyleIsThatOfItsChildrenAndViews) {
  const auto page = pageInStack();
  TraitView *label = viewIn([page.get() view]);
  [page.get() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(page.get()), "dark");
  EXPECT_EQ(styleOf(label), "dark");
  EXPECT_EQ(styleOf(stack()), "light");
  EXPECT_EQ(styleOf([stack() navigationBar]), "light");
  EXPECT_EQ(page.get()->heard, "light>dark(dark) ");
  EXPECT_EQ(label->heard, "light>dark(dark) ");

  [page.get() setOverrideUserInterfaceStyle:UIUserInterfaceStyleUnspecified];
  page.get()->heard.clear();
  label->heard.clear();
  [stack() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(page.get()), "dark");
  EXPECT_EQ(styleOf([stack() navigationBar]), "dark");
  EXPECT_EQ(page.get()->heard, "light>dark(dark) ");
  EXPECT_EQ(label->heard, "light>dark(dark) ");
}

TEST_F(UIViewTraitsTests, AViewsOwnStyleGoesBeforeThatOfItsController) {
  const auto page = adopt([[UIViewController alloc] init]);
  [page.get() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf([page.get() view]), "dark");
  [[page.get() view] setOverrideUserInterfaceStyle:UIUserInterfaceStyleLight];
  EXPECT_EQ(styleOf([page.get() view]), "light");
  EXPECT_EQ(styleOf(page.get()), "dark");
}

TEST_F(UIViewTraitsTests, AWindowsStyleIsThatOfItsPages) {
  const auto page = pageInStack();
  [window() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(page.get()), "dark");
  EXPECT_EQ(styleOf(stack()), "dark");
  EXPECT_EQ(page.get()->heard, "light>dark(dark) ");
}

TEST_F(UIViewTraitsTests, WhatIsPresentedHasTheStyleOfTheWindowOrItsOwn) {
  const auto page = pageInStack();
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Alert"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [page.get() presentViewController:alert animated:NO completion:nil];
  EXPECT_EQ(styleOf(alert), "light");
  [page.get() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(alert), "light");
  [window() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(styleOf(alert), "dark");
  [alert setOverrideUserInterfaceStyle:UIUserInterfaceStyleLight];
  EXPECT_EQ(styleOf(alert), "light");
  [page.get() dismissViewControllerAnimated:NO completion:nil];
}

TEST_F(UIViewTraitsTests, LayoutAndDrawingHaveTheViewsTraits) {
  const auto page = pageInStack();
  auto *view = (TraitView *)[page.get() view];
  [view setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  [view setNeedsLayout];
  [window() layoutIfNeeded];
  EXPECT_EQ(view->laidOutIn, "dark");
  EXPECT_EQ(page.get()->laidOutIn, "dark");
  const auto renderer = adopt([[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(4, 4)]);
  [renderer.get() imageWithActions:^(UIGraphicsImageRendererContext *) {
    [view drawViewHierarchyInRect:CGRectMake(0, 0, 4, 4) afterScreenUpdates:YES];
  }];
  EXPECT_EQ(view->drawnIn, "dark");
  EXPECT_EQ(currentStyle(), "light");
}

TEST_F(UIViewTraitsTests, AViewThatDrawsItselfDrawsAgain) {
  TraitView *view = viewIn(window());
  [[view layer] displayIfNeeded];
  EXPECT_EQ(view->drawnIn, "light");
  [window() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  [[view layer] displayIfNeeded];
  EXPECT_EQ(view->drawnIn, "dark");
}

TEST_F(UIViewTraitsTests, ADynamicColorIsResolvedForTheViewsTraits) {
  UIColor *color = [UIColor colorWithDynamicProvider:^UIColor *(UITraitCollection *traits) {
    return [traits userInterfaceStyle] == UIUserInterfaceStyleDark ? [UIColor blueColor] : [UIColor redColor];
  }];
  TraitView *view = viewIn(window());
  [view setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_TRUE([[color resolvedColorWithTraitCollection:[view traitCollection]] isEqual:[UIColor blueColor]]);
  __block CGFloat blue = 0;
  [[view traitCollection] performAsCurrentTraitCollection:^{
    [color getRed:nullptr green:nullptr blue:&blue alpha:nullptr];
  }];
  EXPECT_EQ(blue, 1);
}

TEST_F(UIViewTraitsTests, TraitsAreCombinedAndContained) {
  UITraitCollection *dark = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleDark];
  UITraitCollection *light = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleLight];
  UITraitCollection *pad = [UITraitCollection traitCollectionWithUserInterfaceIdiom:UIUserInterfaceIdiomPad];
  UITraitCollection *wide = [UITraitCollection traitCollectionWithHorizontalSizeClass:UIUserInterfaceSizeClassRegular];
  UITraitCollection *low = [UITraitCollection traitCollectionWithVerticalSizeClass:UIUserInterfaceSizeClassCompact];
  UITraitCollection *fine = [UITraitCollection traitCollectionWithDisplayScale:3];
  UITraitCollection *all =
      [UITraitCollection traitCollectionWithTraitsFromCollections:@[ light, pad, wide, low, fine, dark ]];
  EXPECT_EQ([all userInterfaceStyle], UIUserInterfaceStyleDark);
  EXPECT_EQ([all userInterfaceIdiom], UIUserInterfaceIdiomPad);
  EXPECT_EQ([all horizontalSizeClass], UIUserInterfaceSizeClassRegular);
  EXPECT_EQ([all verticalSizeClass], UIUserInterfaceSizeClassCompact);
  EXPECT_EQ([all displayScale], 3);
  for (UITraitCollection *each in @[ dark, pad, wide, low, fine ]) EXPECT_TRUE([all containsTraitsInCollection:each]);
  EXPECT_FALSE([all containsTraitsInCollection:light]);
  EXPECT_TRUE([all containsTraitsInCollection:nil]);
  EXPECT_FALSE([dark containsTraitsInCollection:all]);
}

TEST_F(UIViewTraitsTests, TheCurrentTraitsCanBeSetForAWhile) {
  UITraitCollection *dark = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleDark];
  UITraitCollection *light = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleLight];
  [light performAsCurrentTraitCollection:^{
    [UITraitCollection setCurrentTraitCollection:dark];
    EXPECT_EQ(currentStyle(), "dark");
  }];
  EXPECT_EQ(currentStyle(), "light");
}

}  // namespace
