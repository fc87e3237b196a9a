#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>
#import <UIKit/UINavigationBar+Sim.h>

#include <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/LeaksIgnored.h"
#import "support/objc/ObjCTest.h"

using objcxx::adopt;

// Proxies live as long as the process, so that each test has a class of its own.
#define CLASS_OF_A_TEST(Name, Super) \
  @interface Name : Super            \
  @end                               \
  @implementation Name               \
  @end

/// A view with setters of many kinds.
@interface ManySettersView : UIView {
  BOOL _flag;
  NSInteger _number;
  CGFloat _fraction;
  CGSize _size;
  CGRect _rect;
  UIEdgeInsets _insets;
  NSString *_text;
  NSMutableDictionary *_byState;

 @public
  int calls;
}
@property(nonatomic) BOOL flag;
@property(nonatomic) NSInteger number;
@property(nonatomic) CGFloat fraction;
@property(nonatomic) CGSize size;
@property(nonatomic) CGRect rect;
@property(nonatomic) UIEdgeInsets insets;
@property(nonatomic, copy) NSString *text;
- (void)setText:(NSString *)text forState:(UIControlState)state andSide:(NSInteger)side;
- (NSString *)textForState:(UIControlState)state andSide:(NSInteger)side;
@end

@implementation ManySettersView
@synthesize flag = _flag;
@synthesize number = _number;
@synthesize fraction = _fraction;
@synthesize size = _size;
@synthesize rect = _rect;
@synthesize insets = _insets;
@synthesize text = _text;
- (instancetype)initWithFrame:(CGRect)frame {
  self = [super initWithFrame:frame];
  _byState = [[NSMutableDictionary alloc] init];
  return self;
}
- (void)dealloc {
  [_text release];
  [_byState release];
  [super dealloc];
}
- (void)setText:(NSString *)text {
  ++calls;
  [_text autorelease];
  _text = [text copy];
}
- (void)setText:(NSString *)text forState:(UIControlState)state andSide:(NSInteger)side {
  [_byState setObject:text forKey:[NSString stringWithFormat:@"%lu/%ld", (unsigned long)state, (long)side]];
}
- (NSString *)textForState:(UIControlState)state andSide:(NSInteger)side {
  return [_byState objectForKey:[NSString stringWithFormat:@"%lu/%ld", (unsigned long)state, (long)side]];
}
@end

/// Overrides a setter and calls the one of its superclass.
@interface OverridingView : ManySettersView
@end
@implementation OverridingView
- (void)setText:(NSString *)text {
  [super setText:[text stringByAppendingString:@"!"]];
}
@end

CLASS_OF_A_TEST(PlainLabel, UILabel)
CLASS_OF_A_TEST(LateLabel, UILabel)
CLASS_OF_A_TEST(DirectLabel, UILabel)
CLASS_OF_A_TEST(EarlierLabel, UILabel)
CLASS_OF_A_TEST(ContainedLabel, UILabel)
CLASS_OF_A_TEST(OuterView, UIView)
CLASS_OF_A_TEST(InnerView, UIView)
CLASS_OF_A_TEST(OtherView, UIView)
CLASS_OF_A_TEST(ContainingPage, UIViewController)
CLASS_OF_A_TEST(PageLabel, UILabel)
CLASS_OF_A_TEST(BaseLabel, UILabel)
CLASS_OF_A_TEST(DerivedLabel, BaseLabel)
CLASS_OF_A_TEST(TraitLabel, UILabel)
CLASS_OF_A_TEST(SystemLabel, UILabel)
CLASS_OF_A_TEST(TestSwitch, UISwitch)
CLASS_OF_A_TEST(TestBar, UINavigationBar)
CLASS_OF_A_TEST(TestButton, UIBarButtonItem)
CLASS_OF_A_TEST(TestCell, UITableViewCell)

namespace {

class UIAppearanceTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    window_ = adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
  }
  void TearDown() override {
    window_ = nullptr;
    ObjCTest::TearDown();
  }

  UIWindow *window() { return window_.get(); }

  template <typename View>
  View *make() {
    return [[[View alloc] initWithFrame:CGRectZero] autorelease];
  }
  template <typename View>
  View *shown() {
    View *view = make<View>();
    [window() addSubview:view];
    return view;
  }

 private:
  objcxx::Retained<UIWindow> window_;
};

TEST_F(UIAppearanceTests, AViewTakesTheValuesWhenItComesIntoAWindow) {
  [[PlainLabel appearance] setTextColor:[UIColor redColor]];
  PlainLabel *label = make<PlainLabel>();
  UIView *around = make<UIView>();
  [around addSubview:label];
  EXPECT_FALSE([[label textColor] isEqual:[UIColor redColor]]);
  [window() addSubview:around];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor redColor]]);
  EXPECT_FALSE([[shown<UILabel>() textColor] isEqual:[UIColor redColor]]);
}

TEST_F(UIAppearanceTests, AViewThatIsInAWindowStaysAsItIs) {
  LateLabel *label = shown<LateLabel>();
  [[LateLabel appearance] setTextColor:[UIColor redColor]];
  EXPECT_FALSE([[label textColor] isEqual:[UIColor redColor]]);
  [label removeFromSuperview];
  [window() addSubview:label];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor redColor]]);
}

TEST_F(UIAppearanceTests, WhatIsSetOfTheViewItselfStays) {
  [[DirectLabel appearance] setTextColor:[UIColor redColor]];
  [[DirectLabel appearance] setNumberOfLines:3];
  DirectLabel *label = make<DirectLabel>();
  [label setTextColor:[UIColor blueColor]];
  [window() addSubview:label];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor blueColor]]);
  EXPECT_EQ([label numberOfLines], 3);

  // Also what is set after the proxy's value.
  DirectLabel *other = shown<DirectLabel>();
  [other setTextColor:[UIColor greenColor]];
  [other removeFromSuperview];
  [window() addSubview:other];
  EXPECT_TRUE([[other textColor] isEqual:[UIColor greenColor]]);
}

TEST_F(UIAppearanceTests, TheProxyMindsOnlyWhatIsSetAfterIt) {
  EarlierLabel *label = make<EarlierLabel>();
  [label setHighlightedTextColor:[UIColor blueColor]];
  [[EarlierLabel appearance] setHighlightedTextColor:[UIColor redColor]];
  [window() addSubview:label];
  EXPECT_TRUE([[label highlightedTextColor] isEqual:[UIColor redColor]]);
}

TEST_F(UIAppearanceTests, TheLastValueOfAProxyCounts) {
  [[TestSwitch appearance] setOnTintColor:[UIColor redColor]];
  [[TestSwitch appearance] setOnTintColor:[UIColor blueColor]];
  EXPECT_TRUE([[shown<TestSwitch>() onTintColor] isEqual:[UIColor blueColor]]);
  [[TestSwitch appearance] setOnTintColor:nil];
  EXPECT_EQ([shown<TestSwitch>() onTintColor], nil);
}

TEST_F(UIAppearanceTests, ContainersHaveToBeAroundTheViewInOrder) {
  [[ContainedLabel appearanceWhenContainedInInstancesOfClasses:@[ [InnerView class], [OuterView class] ]]
      setTextColor:[UIColor redColor]];
  const auto colorIn = [&](Class outermost, Class inner) {
    UIView *outer = [[[outermost alloc] init] autorelease];
    UIView *within = [[[inner alloc] init] autorelease];
    ContainedLabel *label = make<ContainedLabel>();
    [within addSubview:label];
    [outer addSubview:within];
    [window() addSubview:outer];
    return [label textColor];
  };
  EXPECT_TRUE([colorIn([OuterView class], [InnerView class]) isEqual:[UIColor redColor]]);
  EXPECT_FALSE([colorIn([InnerView class], [OuterView class]) isEqual:[UIColor redColor]]);
  EXPECT_FALSE([colorIn([OuterView class], [OtherView class]) isEqual:[UIColor redColor]]);

  // The first match from the window down wins; then the longer one.
  [[ContainedLabel appearance] setTextColor:[UIColor blackColor]];
  [[ContainedLabel appearanceWhenContainedIn:[InnerView class], nil] setTextColor:[UIColor greenColor]];
  EXPECT_TRUE([colorIn([OtherView class], [InnerView class]) isEqual:[UIColor greenColor]]);
  EXPECT_TRUE([colorIn([OuterView class], [InnerView class]) isEqual:[UIColor redColor]]);
  EXPECT_TRUE([colorIn([OtherView class], [OtherView class]) isEqual:[UIColor blackColor]]);
  [[ContainedLabel appearanceWhenContainedIn:[OuterView class], nil] setTextColor:[UIColor yellowColor]];
  EXPECT_TRUE([colorIn([OuterView class], [OtherView class]) isEqual:[UIColor yellowColor]]);
  EXPECT_TRUE([colorIn([OuterView class], [InnerView class]) isEqual:[UIColor redColor]]);
  EXPECT_TRUE([colorIn([InnerView class], [OuterView class]) isEqual:[UIColor greenColor]]);
}

TEST_F(UIAppearanceTests, ControllersContainTheirViews) {
  [[PageLabel appearanceWhenContainedInInstancesOfClasses:@[ [ContainingPage class] ]] setTextColor:[UIColor redColor]];
  const auto page = adopt([[ContainingPage alloc] init]);
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
  PageLabel *label = make<PageLabel>();
  [[page.get() view] addSubview:label];
  [window() setRootViewController:stack.get()];
  [window() makeKeyAndVisible];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor redColor]]);
  EXPECT_FALSE([[shown<PageLabel>() textColor] isEqual:[UIColor redColor]]);
  [window() setRootViewController:nil];
}

TEST_F(UIAppearanceTests, ASubclassHasTheValuesOfItsSuperclassAndItsOwn) {
  [[DerivedLabel appearance] setTextColor:[UIColor blueColor]];
  [[BaseLabel appearance] setTextColor:[UIColor redColor]];
  [[BaseLabel appearance] setNumberOfLines:4];
  DerivedLabel *label = shown<DerivedLabel>();
  EXPECT_TRUE([[label textColor] isEqual:[UIColor blueColor]]);
  EXPECT_EQ([label numberOfLines], 4);
}

TEST_F(UIAppearanceTests, TraitsDecideToo) {
  UITraitCollection *pad = [UITraitCollection traitCollectionWithUserInterfaceIdiom:UIUserInterfaceIdiomPad];
  UITraitCollection *phone = [UITraitCollection traitCollectionWithUserInterfaceIdiom:UIUserInterfaceIdiomPhone];
  [[TraitLabel appearanceForTraitCollection:pad] setTextColor:[UIColor redColor]];
  [[TraitLabel appearanceForTraitCollection:phone] setTextColor:[UIColor blueColor]];
  [[TraitLabel appearance] setTextColor:[UIColor blackColor]];
  EXPECT_TRUE([[shown<TraitLabel>() textColor] isEqual:[UIColor blueColor]]);
  [[TraitLabel appearanceForTraitCollection:phone
          whenContainedInInstancesOfClasses:@[ [OuterView class] ]] setTextColor:[UIColor greenColor]];
  [[TraitLabel appearanceForTraitCollection:pad
                            whenContainedIn:[OuterView class], nil] setTextColor:[UIColor redColor]];
  OuterView *outer = shown<OuterView>();
  TraitLabel *label = make<TraitLabel>();
  [outer addSubview:label];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor greenColor]]);
}

TEST_F(UIAppearanceTests, SettersOfEveryKindAreTakenAndMinded) {
  const testing_support::LeaksIgnored foundations;  // NSInvocation keeps the types of structures.
  ManySettersView *proxy = [ManySettersView appearance];
  [proxy setFlag:YES];
  [proxy setNumber:-7];
  [proxy setFraction:1.5];
  [proxy setSize:CGSizeMake(1, 2)];
  [proxy setRect:CGRectMake(1, 2, 3, 4)];
  [proxy setInsets:UIEdgeInsetsMake(5, 6, 7, 8)];
  ManySettersView *view = shown<ManySettersView>();
  EXPECT_TRUE([view flag]);
  EXPECT_EQ([view number], -7);
  EXPECT_EQ([view fraction], 1.5);
  EXPECT_TRUE(CGSizeEqualToSize([view size], CGSizeMake(1, 2)));
  EXPECT_TRUE(CGRectEqualToRect([view rect], CGRectMake(1, 2, 3, 4)));
  EXPECT_EQ([view insets].right, 8);
  EXPECT_EQ([shown<ManySettersView>() insets].right, 8);
  EXPECT_TRUE(CGRectEqualToRect([shown<ManySettersView>() rect], CGRectMake(1, 2, 3, 4)));
  EXPECT_TRUE(CGSizeEqualToSize([shown<ManySettersView>() size], CGSizeMake(1, 2)));

  ManySettersView *own = make<ManySettersView>();
  [own setFlag:NO];
  [own setNumber:9];
  [own setFraction:2.5];
  [own setSize:CGSizeMake(3, 4)];
  [own setRect:CGRectMake(9, 8, 7, 6)];
  [window() addSubview:own];
  EXPECT_FALSE([own flag]);
  EXPECT_EQ([own number], 9);
  EXPECT_EQ([own fraction], 2.5);
  EXPECT_TRUE(CGSizeEqualToSize([own size], CGSizeMake(3, 4)));
  EXPECT_TRUE(CGRectEqualToRect([own rect], CGRectMake(9, 8, 7, 6)));
  EXPECT_EQ([own insets].right, 8);
}

TEST_F(UIAppearanceTests, AValueOfAStateIsItsOwn) {
  ManySettersView *proxy = [ManySettersView appearance];
  [proxy setText:@"normal" forState:UIControlStateNormal andSide:-1];
  [proxy setText:@"disabled" forState:UIControlStateDisabled andSide:-1];
  ManySettersView *view = make<ManySettersView>();
  [view setText:@"own" forState:UIControlStateDisabled andSide:-1];
  [window() addSubview:view];
  EXPECT_TRUE([[view textForState:UIControlStateNormal andSide:-1] isEqual:@"normal"]);
  EXPECT_TRUE([[view textForState:UIControlStateDisabled andSide:-1] isEqual:@"own"]);
  EXPECT_EQ([view textForState:UIControlStateDisabled andSide:1], nil);
}

TEST_F(UIAppearanceTests, AnOverrideThatCallsItsSuperclassRunsOnce) {
  [[ManySettersView appearance] setText:@"base"];
  [[OverridingView appearance] setText:@"own"];
  OverridingView *view = shown<OverridingView>();
  EXPECT_TRUE([[view text] isEqual:@"own!"]);
  EXPECT_EQ(view->calls, 2);
  [view setText:@"direct"];
  EXPECT_EQ(view->calls, 3);
  [view removeFromSuperview];
  [window() addSubview:view];
  EXPECT_TRUE([[view text] isEqual:@"direct!"]);
}

TEST_F(UIAppearanceTests, GettersAnswerWhatWasSet) {
  UINavigationBar *proxy = [TestBar appearance];
  EXPECT_EQ([proxy barTintColor], nil);
  EXPECT_FALSE([proxy isTranslucent]);
  [proxy setBarTintColor:[UIColor redColor]];
  [proxy setTranslucent:YES];
  [proxy setBarStyle:UIBarStyleBlack];
  UIImage *image = adopt([[UIImage alloc] init]).autoreleased();
  [proxy setBackgroundImage:image forBarMetrics:UIBarMetricsCompact];
  EXPECT_TRUE([[proxy barTintColor] isEqual:[UIColor redColor]]);
  EXPECT_TRUE([proxy isTranslucent]);
  EXPECT_EQ([proxy barStyle], UIBarStyleBlack);
  EXPECT_EQ([proxy backgroundImageForBarMetrics:UIBarMetricsCompact], image);
  EXPECT_EQ([proxy backgroundImageForBarMetrics:UIBarMetricsDefault], nil);
  EXPECT_EQ([TestBar appearance], proxy);
  EXPECT_TRUE([proxy respondsToSelector:@selector(setShadowImage:)]);

  TestBar *bar = shown<TestBar>();
  EXPECT_TRUE([[bar barTintColor] isEqual:[UIColor redColor]]);
  EXPECT_EQ([bar barStyle], UIBarStyleBlack);
}

TEST_F(UIAppearanceTests, AProxyIsNoViewAndRaisesForWhatItsClassLacks) {
  EXPECT_EQ(raisedBy([] { [(id)[OtherView appearance] setTextColor:[UIColor redColor]]; }),
            std::string("NSInvalidArgumentException"));
  [[OtherView appearance] setNeedsLayout];
}

TEST_F(UIAppearanceTests, TheSystemsOwnValuesGiveWay) {
  [[SystemLabel appearance] setTextColor:[UIColor redColor]];
  SystemLabel *label = make<SystemLabel>();
  {
    const sim::SystemSets system;
    [label setTextColor:[UIColor labelColor]];
  }
  [window() addSubview:label];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor redColor]]);
  {
    const sim::SystemSets system;
    [label setTextColor:[UIColor labelColor]];
  }
  EXPECT_TRUE([[label textColor] isEqual:[UIColor redColor]]);
  [label setTextColor:[UIColor blueColor]];
  EXPECT_TRUE([[label textColor] isEqual:[UIColor blueColor]]);
}

TEST_F(UIAppearanceTests, ButtonsOfABarTakeTheirValues) {
  [[TestButton appearanceWhenContainedInInstancesOfClasses:@[ [TestBar class] ]] setTintColor:[UIColor redColor]];
  NSDictionary *attributes = @{NSForegroundColorAttributeName : [UIColor blueColor]};
  [[TestButton appearance] setTitleTextAttributes:attributes forState:UIControlStateNormal];
  const auto button = adopt([[TestButton alloc] init]);
  TestBar *bar = make<TestBar>();
  [bar sim_applyAppearanceToItems:@[ button.get() ]];
  EXPECT_EQ([button.get() tintColor], nil);
  [window() addSubview:bar];
  [bar sim_applyAppearanceToItems:@[ button.get() ]];
  EXPECT_TRUE([[button.get() tintColor] isEqual:[UIColor redColor]]);
  EXPECT_TRUE([[button.get() titleTextAttributesForState:UIControlStateNormal] isEqual:attributes]);
  [button.get() setTintColor:[UIColor greenColor]];
  [bar sim_applyAppearanceToItems:@[ button.get() ]];
  EXPECT_TRUE([[button.get() tintColor] isEqual:[UIColor greenColor]]);
}

TEST_F(UIAppearanceTests, TheLabelsOfACellTakeThem) {
  [[UILabel appearanceWhenContainedInInstancesOfClasses:@[ [TestCell class] ]] setTextColor:[UIColor redColor]];
  TestCell *cell = [[[TestCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil] autorelease];
  [[cell textLabel] setText:@"Row"];
  [window() addSubview:cell];
  EXPECT_TRUE([[[cell textLabel] textColor] isEqual:[UIColor redColor]]);
}

}  // namespace
