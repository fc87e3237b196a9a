#import <UIKit/UIBarAppearance+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UINavigationBar+Sim.h>
#import <UIKit/UIScreen+Sim.h>

#include <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

using objcxx::adopt;

namespace {

UIImage *squareImage() {
  const auto renderer = adopt([[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(4, 4)]);
  return [renderer.get() imageWithActions:^(UIGraphicsImageRendererContext *) {
    [[UIColor redColor] setFill];
    UIRectFill(CGRectMake(0, 0, 4, 4));
  }];
}

NSDictionary *inColor(UIColor *color) { return @{NSForegroundColorAttributeName : color}; }

class UINavigationBarAppearanceTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    bar_ = adopt([[UINavigationBar alloc] initWithFrame:CGRectMake(0, 47, 390, 44)]);
    item_ = adopt([[UINavigationItem alloc] initWithTitle:@"Page"]);
    [bar_.get() setItems:@[ item_.get() ]];
  }
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    bar_ = nullptr;
    item_ = nullptr;
    ObjCTest::TearDown();
  }

  UINavigationBar *bar() { return bar_.get(); }
  UINavigationItem *item() { return item_.get(); }
  UINavigationBarAppearance *shown() { return [bar() sim_appearanceForItem:item() atScrollEdge:NO]; }
  UINavigationBarAppearance *atEdge() { return [bar() sim_appearanceForItem:item() atScrollEdge:YES]; }
  UINavigationBarAppearance *look(UIColor *color) {
    UINavigationBarAppearance *look = [[[UINavigationBarAppearance alloc] init] autorelease];
    [look configureWithOpaqueBackground];
    [look setBackgroundColor:color];
    return look;
  }

 private:
  objcxx::Retained<UINavigationBar> bar_;
  objcxx::Retained<UINavigationItem> item_;
};

TEST_F(UINavigationBarAppearanceTests, BackgroundsAreDefaultOpaqueOrTransparent) {
  UINavigationBarAppearance *look = [[[UINavigationBarAppearance alloc] init] autorelease];
  EXPECT_TRUE([look sim_blurs]);
  EXPECT_TRUE([look sim_hasShadow]);
  EXPECT_FALSE([look sim_isTransparent]);
  EXPECT_EQ([look backgroundColor], nil);
  EXPECT_EQ([look idiom], [[UIDevice currentDevice] userInterfaceIdiom]);

  [look setBackgroundImage:squareImage()];
  [look configureWithOpaqueBackground];
  EXPECT_FALSE([look sim_blurs]);
  EXPECT_EQ([look backgroundImage], nil);
  EXPECT_TRUE([[look backgroundColor] isEqual:[UIColor systemBackgroundColor]]);
  EXPECT_TRUE([look sim_hasShadow]);
  EXPECT_FALSE([look sim_isTransparent]);

  [look configureWithTransparentBackground];
  EXPECT_TRUE([look sim_isTransparent]);
  EXPECT_FALSE([look sim_hasShadow]);
  EXPECT_EQ([look backgroundColor], nil);

  [look setBackgroundImage:squareImage()];
  EXPECT_FALSE([look sim_isTransparent]);
  [look setBackgroundImage:adopt([[UIImage alloc] init]).get()];
  EXPECT_TRUE([look sim_isTransparent]);

  [look configureWithDefaultBackground];
  [look setBackgroundEffect:nil];
  EXPECT_FALSE([look sim_blurs]);
}

TEST_F(UINavigationBarAppearanceTests, AnEmptyShadowImageLeavesTheLineAway) {
  UINavigationBarAppearance *look = [[[UINavigationBarAppearance alloc] init] autorelease];
  [look setShadowImage:adopt([[UIImage alloc] init]).get()];
  EXPECT_FALSE([look sim_hasShadow]);
  [look setShadowImage:squareImage()];
  [look setShadowColor:nil];
  EXPECT_TRUE([look sim_hasShadow]);
  [look setShadowImage:nil];
  EXPECT_FALSE([look sim_hasShadow]);
}

TEST_F(UINavigationBarAppearanceTests, ACopyIsItsOwn) {
  UINavigationBarAppearance *first = look([UIColor redColor]);
  [first setTitleTextAttributes:inColor([UIColor whiteColor])];
  [first setTitlePositionAdjustment:UIOffsetMake(1, 2)];
  [first setLargeTitleTextAttributes:inColor([UIColor yellowColor])];
  [[[first buttonAppearance] normal] setTitleTextAttributes:inColor([UIColor greenColor])];
  [[[first doneButtonAppearance] disabled] setTitleTextAttributes:inColor([UIColor grayColor])];
  [[[first backButtonAppearance] highlighted] setTitlePositionAdjustment:UIOffsetMake(3, 4)];
  UINavigationBarAppearance *second = [[first copy] autorelease];
  [[[first buttonAppearance] normal] setTitleTextAttributes:@{}];
  [first setBackgroundColor:nil];
  [first setTitleTextAttributes:nil];

  EXPECT_TRUE([[first titleTextAttributes] isEqual:@{}]);
  EXPECT_TRUE([[second backgroundColor] isEqual:[UIColor redColor]]);
  EXPECT_TRUE([[second titleTextAttributes] isEqual:inColor([UIColor whiteColor])]);
  EXPECT_EQ([second titlePositionAdjustment].vertical, 2);
  EXPECT_TRUE([[second largeTitleTextAttributes] isEqual:inColor([UIColor yellowColor])]);
  EXPECT_TRUE([[[[second buttonAppearance] normal] titleTextAttributes] isEqual:inColor([UIColor greenColor])]);
  EXPECT_TRUE([[[[second doneButtonAppearance] disabled] titleTextAttributes] isEqual:inColor([UIColor grayColor])]);
  EXPECT_EQ([[[second backButtonAppearance] highlighted] titlePositionAdjustment].horizontal, 3);

  [[second buttonAppearance] configureWithDefaultForStyle:UIBarButtonItemStylePlain];
  EXPECT_TRUE([[[[second buttonAppearance] normal] titleTextAttributes] isEqual:@{}]);
}

TEST_F(UINavigationBarAppearanceTests, AStateOutlivesItsLook) {
  objcxx::Retained<UIBarButtonItemStateAppearance> state;
  @autoreleasepool {
    state = objcxx::share([[look([UIColor redColor]) buttonAppearance] normal]);
  }
  drainPool();
  [state.get() setTitleTextAttributes:inColor([UIColor redColor])];
  EXPECT_TRUE([[state.get() titleTextAttributes] isEqual:inColor([UIColor redColor])]);
}

TEST_F(UINavigationBarAppearanceTests, OlderPropertiesAreTheLookUntilOneIsSet) {
  EXPECT_TRUE([atEdge() sim_isTransparent]);
  EXPECT_TRUE([shown() sim_blurs]);

  [bar() setBarTintColor:[UIColor redColor]];
  [bar() setTitleTextAttributes:inColor([UIColor whiteColor])];
  [bar() setLargeTitleTextAttributes:inColor([UIColor yellowColor])];
  for (UINavigationBarAppearance *each : {shown(), atEdge()}) {
    EXPECT_TRUE([[each backgroundColor] isEqual:[UIColor redColor]]);
    EXPECT_TRUE([[each titleTextAttributes] isEqual:inColor([UIColor whiteColor])]);
    EXPECT_TRUE([[each largeTitleTextAttributes] isEqual:inColor([UIColor yellowColor])]);
  }
  [bar() setStandardAppearance:look([UIColor blueColor])];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor blueColor]]);
  EXPECT_TRUE([[shown() titleTextAttributes] isEqual:@{}]);
  EXPECT_TRUE([atEdge() sim_isTransparent]);
}

TEST_F(UINavigationBarAppearanceTests, ABlackBarHasWhiteTitles) {
  [bar() setBarStyle:UIBarStyleBlack];
  EXPECT_TRUE([[atEdge() backgroundColor] isEqual:[UIColor blackColor]]);
  EXPECT_TRUE([[shown() titleTextAttributes] isEqual:inColor([UIColor whiteColor])]);
  [bar() setLargeTitleTextAttributes:inColor([UIColor redColor])];
  EXPECT_TRUE([[shown() largeTitleTextAttributes] isEqual:inColor([UIColor redColor])]);
}

TEST_F(UINavigationBarAppearanceTests, ABarThatIsNotTranslucentIsSolidAtItsEdge) {
  [bar() setTranslucent:NO];
  EXPECT_FALSE([atEdge() sim_isTransparent]);
}

TEST_F(UINavigationBarAppearanceTests, PicturesAreForTheHeightOfTheBar) {
  UIImage *high = squareImage(), *low = squareImage();
  [bar() setBackgroundImage:high forBarMetrics:UIBarMetricsDefault];
  EXPECT_EQ([bar() backgroundImageForBarMetrics:UIBarMetricsDefault], high);
  EXPECT_EQ([bar() backgroundImageForBarMetrics:UIBarMetricsCompact], nil);
  EXPECT_EQ([shown() backgroundImage], high);
  EXPECT_FALSE([shown() sim_blurs]);
  EXPECT_EQ([atEdge() backgroundImage], high);

  [bar() setBackgroundImage:low forBarMetrics:UIBarMetricsCompact];
  EXPECT_EQ([shown() backgroundImage], high);
  SIMSetMainScreen(CGSizeMake(844, 390), 3);
  EXPECT_EQ([shown() backgroundImage], low);
  [bar() setBackgroundImage:nil forBarMetrics:UIBarMetricsCompact];
  EXPECT_EQ([shown() backgroundImage], high);

  [bar() setBackgroundImage:low forBarPosition:UIBarPositionBottom barMetrics:UIBarMetricsDefault];
  EXPECT_EQ([shown() backgroundImage], high);
  [bar() setBackgroundImage:low forBarPosition:UIBarPositionTopAttached barMetrics:UIBarMetricsDefault];
  EXPECT_EQ([shown() backgroundImage], low);
}

TEST_F(UINavigationBarAppearanceTests, EmptyPicturesMakeABarClear) {
  const auto empty = adopt([[UIImage alloc] init]);
  [bar() setBackgroundImage:empty.get() forBarMetrics:UIBarMetricsDefault];
  [bar() setShadowImage:empty.get()];
  EXPECT_TRUE([shown() sim_isTransparent]);
  EXPECT_FALSE([shown() sim_hasShadow]);
  EXPECT_EQ([bar() shadowImage], empty.get());
}

TEST_F(UINavigationBarAppearanceTests, TheStandardLookIsOfferedAndCountsWhenItIsChanged) {
  [bar() setBarTintColor:[UIColor redColor]];
  const auto saved = adopt((UINavigationBarAppearance *)[[bar() standardAppearance] copy]);
  EXPECT_TRUE([[saved.get() backgroundColor] isEqual:[UIColor redColor]]);

  // What was saved and is put back leaves the older properties in force.
  [bar() setStandardAppearance:look([UIColor blueColor])];
  [bar() setStandardAppearance:saved.get()];
  [bar() setBarTintColor:[UIColor greenColor]];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor greenColor]]);

  [[[[bar() standardAppearance] buttonAppearance] normal] setTitleTextAttributes:inColor([UIColor redColor])];
  [bar() setBarTintColor:nil];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor greenColor]]);
  EXPECT_TRUE([[[[shown() buttonAppearance] normal] titleTextAttributes] isEqual:inColor([UIColor redColor])]);
  [bar() setStandardAppearance:nil];
  EXPECT_EQ([shown() backgroundColor], nil);
  EXPECT_TRUE([[bar() standardAppearance] sim_blurs]);
}

TEST_F(UINavigationBarAppearanceTests, TheMostRelevantLookIsTakenWhole) {
  [bar() setStandardAppearance:look([UIColor redColor])];
  [bar() setCompactAppearance:look([UIColor greenColor])];
  [bar() setScrollEdgeAppearance:look([UIColor blueColor])];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor redColor]]);
  EXPECT_TRUE([[atEdge() backgroundColor] isEqual:[UIColor blueColor]]);

  [item() setStandardAppearance:look([UIColor yellowColor])];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor yellowColor]]);
  EXPECT_TRUE([[atEdge() backgroundColor] isEqual:[UIColor blueColor]]);
  [item() setScrollEdgeAppearance:look([UIColor brownColor])];
  EXPECT_TRUE([[atEdge() backgroundColor] isEqual:[UIColor brownColor]]);

  SIMSetMainScreen(CGSizeMake(844, 390), 3);
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor greenColor]]);
  [item() setCompactAppearance:look([UIColor purpleColor])];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor purpleColor]]);
}

TEST_F(UINavigationBarAppearanceTests, WithoutALookForTheEdgeTheStandardOneIsClearThere) {
  UINavigationBarAppearance *red = look([UIColor redColor]);
  [red setTitleTextAttributes:inColor([UIColor whiteColor])];
  [item() setStandardAppearance:red];
  EXPECT_TRUE([atEdge() sim_isTransparent]);
  EXPECT_TRUE([[atEdge() titleTextAttributes] isEqual:inColor([UIColor whiteColor])]);
  EXPECT_TRUE([[[item() standardAppearance] backgroundColor] isEqual:[UIColor redColor]]);
}

TEST_F(UINavigationBarAppearanceTests, LooksAreCopied) {
  UINavigationBarAppearance *red = look([UIColor redColor]);
  [bar() setStandardAppearance:red];
  [item() setScrollEdgeAppearance:red];
  [red setBackgroundColor:[UIColor blueColor]];
  EXPECT_TRUE([[shown() backgroundColor] isEqual:[UIColor redColor]]);
  EXPECT_TRUE([[atEdge() backgroundColor] isEqual:[UIColor redColor]]);
}

TEST_F(UINavigationBarAppearanceTests, AButtonHasAttributesByState) {
  const auto button = adopt([[UIBarButtonItem alloc] init]);
  EXPECT_EQ([button.get() titleTextAttributesForState:UIControlStateNormal], nil);
  [button.get() setTitleTextAttributes:inColor([UIColor redColor]) forState:UIControlStateNormal];
  [button.get() setTitleTextAttributes:inColor([UIColor blueColor]) forState:UIControlStateDisabled];
  EXPECT_TRUE([[button.get() titleTextAttributesForState:UIControlStateNormal] isEqual:inColor([UIColor redColor])]);
  EXPECT_TRUE([[button.get() titleTextAttributesForState:UIControlStateDisabled] isEqual:inColor([UIColor blueColor])]);
  [button.get() setTitleTextAttributes:nil forState:UIControlStateNormal];
  EXPECT_EQ([button.get() titleTextAttributesForState:UIControlStateNormal], nil);
}

TEST_F(UINavigationBarAppearanceTests, ThereIsNoNavigationControllerAroundTheOutermost) {
  const auto page = adopt([[UIViewController alloc] init]);
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
  EXPECT_EQ([page.get() navigationController], stack.get());
  EXPECT_EQ([[page.get() navigationController] navigationController], nil);
  [[[[page.get() navigationController] navigationController] navigationBar] setBarTintColor:[UIColor redColor]];
  EXPECT_EQ([[stack.get() navigationBar] barTintColor], nil);
}

}  // namespace
