#import "cells/ZunoBannerCell.h"
#import "cells/ZunoFooterCell.h"

#import <CoreGraphics/CoreGraphics.h>
#import <Preferences/Preferences.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITableView+Sim.h>

#include "ZunoPrefs/support/BundleTest.h"
#include "ZunoPrefs/support/Replaced.h"
#include "support/objc/MethodSpy.h"

namespace {

class CreditCellTest : public BundleTest {
 protected:
  template <typename Cell>
  Cell *cell(const char *name) {
    return [[(Cell *)[classNamed(name) alloc] initWithSpecifier:nil] autorelease];
  }
  ZunoBannerCell *banner() { return cell<ZunoBannerCell>("ZunoBannerCell"); }
  ZunoFooterCell *footer() { return cell<ZunoFooterCell>("ZunoFooterCell"); }

  static UIView *parent(CGFloat width) {
    return [[[UIView alloc] initWithFrame:CGRectMake(0, 0, width, 500)] autorelease];
  }
  static NSArray *labels(UIView *view) {
    NSMutableArray *labels = [NSMutableArray array];
    for (UIView *child in [view subviews]) {
      if ([child isKindOfClass:[UILabel class]]) [labels addObject:child];
    }
    return labels;
  }
  static void expectFrame(CGRect frame, double x, double y, double width, double height) {
    EXPECT_EQ(frame.origin.x, x);
    EXPECT_EQ(frame.origin.y, y);
    EXPECT_EQ(frame.size.width, width);
    EXPECT_EQ(frame.size.height, height);
  }
  static UIImage *filled(CGFloat side) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(side, side), NO, 1);
    [[UIColor redColor] setFill];
    [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, side, side)] fill];
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
  }
};

TEST_F(CreditCellTest, PreferredHeightsDoNotDependOnTheWidth) {
  for (CGFloat width : {0.0, 1.0, 390.0, 10000.0}) {
    EXPECT_EQ([banner() preferredHeightForWidth:width], 150.0);
    EXPECT_EQ([footer() preferredHeightForWidth:width], 25.0);
  }
}

TEST_F(CreditCellTest, BothUseTheReuseIdentifierCell) {
  EXPECT_OBJC_EQ([banner() reuseIdentifier], @"Cell");
  EXPECT_OBJC_EQ([footer() reuseIdentifier], @"Cell");
}

TEST_F(CreditCellTest, TheBannerIsPinnedToItsSuperview) {
  ZunoBannerCell *cell = banner();
  UIView *view = parent(414);
  [view addSubview:cell];
  expectFrame([cell frame], 0, 0, 414, 195);
  [cell setFrame:CGRectMake(7, 8, 9, 10)];
  expectFrame([cell frame], 0, 0, 414, 195);
  expectFrame([cell bounds], 0, 0, 414, 195);
  [cell removeFromSuperview];
  [cell setFrame:CGRectMake(7, 8, 9, 10)];
  expectFrame([cell frame], 0, 0, 0, 195);
}

TEST_F(CreditCellTest, TheFooterKeepsOnlyTheTopThatItIsGiven) {
  ZunoFooterCell *cell = footer();
  UIView *view = parent(414);
  [view addSubview:cell];
  [cell setFrame:CGRectMake(7, 88, 9, 10)];
  expectFrame([cell frame], 0, 88, 414, 15);
  [cell removeFromSuperview];
  [cell setFrame:CGRectMake(7, 99, 9, 10)];
  expectFrame([cell frame], 0, 99, 0, 15);
}

TEST_F(CreditCellTest, WithoutASuperviewTheFrameIsTheOneThatTheBaseClassHolds) {
  for (UIView *cell in @[ (UIView *)banner(), (UIView *)footer() ]) {
    IMP base = class_getMethodImplementation(class_getSuperclass([cell class]), @selector(setFrame:));
    reinterpret_cast<void (*)(id, SEL, CGRect)>(reinterpret_cast<void *>(base))(cell, @selector(setFrame:),
                                                                                CGRectMake(3, 4, 50, 60));
    expectFrame([cell frame], 3, 4, 50, 60);
  }
}

TEST_F(CreditCellTest, ABannerThatMovesLaysOutTakesItsFrameAndLaysOutAgain) {
  ZunoBannerCell *cell = banner();
  UIView *view = parent(414);
  std::string events;
  const auto note = [&](id receiver, const std::string &event) {
    if (receiver == cell) events += (events.empty() ? "" : ",") + event;
  };
  MethodSpy<> moved(class_getSuperclass([cell class]), @selector(didMoveToSuperview),
                    [&](id receiver) { note(receiver, "base"); });
  MethodSpy<> layout([cell class], @selector(layoutSubviews), [&](id receiver) { note(receiver, "layout"); });
  MethodSpy<CGRect> frame([cell class], @selector(setFrame:), [&](id receiver, CGRect given) {
    note(receiver, "frame");
    if (receiver == cell) expectFrame(given, 0, 0, 414, 195);
  });
  [view addSubview:cell];
  EXPECT_EQ(events, "base,layout,frame,layout");
}

TEST_F(CreditCellTest, LayoutIsThatOfTheBaseClass) {
  for (UIView *cell in @[ (UIView *)banner(), (UIView *)footer() ]) {
    int layouts = 0;
    MethodSpy<> base(class_getSuperclass([cell class]), @selector(layoutSubviews),
                     [&](id receiver) { layouts += receiver == cell; });
    [cell layoutSubviews];
    EXPECT_EQ(layouts, 1) << class_getName([cell class]);
  }
}

TEST_F(CreditCellTest, TheBannerIsBuiltOfIconNameAndCredit) {
  ZunoBannerCell *cell = banner();
  NSArray *children = [cell subviews];
  NSArray *texts = labels(cell);
  ASSERT_EQ([texts count], 2u);
  UILabel *title = [texts objectAtIndex:0];
  UILabel *credit = [texts objectAtIndex:1];
  EXPECT_LT([children indexOfObject:title], [children indexOfObject:credit]);
  EXPECT_LT([children indexOfObject:credit], [children indexOfObject:[cell bannerView]]);

  EXPECT_OBJC_EQ([title text], @"Zuno");
  EXPECT_EQ([[title font] pointSize], 35.0);
  EXPECT_EQ([title frame].origin.y, 120.0);
  EXPECT_EQ([title textAlignment], NSTextAlignmentCenter);
  EXPECT_EQ([title numberOfLines], 1);
  EXPECT_OBJC_EQ([title backgroundColor], [UIColor clearColor]);
  EXPECT_EQ([[credit font] pointSize], 16.0);
  EXPECT_OBJC_EQ([credit textColor], [UIColor grayColor]);
  EXPECT_EQ([credit frame].origin.y, [title frame].origin.y + [title frame].size.height + 5);
  EXPECT_OBJC_EQ([credit text], @"by Norvik");
  EXPECT_EQ([[cell bannerView] contentMode], UIViewContentModeScaleAspectFit);
  EXPECT_EQ([[cell bannerView] frame].origin.y, 15.0);
  EXPECT_EQ([[cell bannerView] frame].size.height, 100.0);
  for (UIView *view in @[ title, credit, [cell bannerView] ]) {
    EXPECT_EQ([view autoresizingMask], UIViewAutoresizingFlexibleWidth);
  }
}

TEST_F(CreditCellTest, TheBannersLinesAreAsHighAsTheirTextAndAsWideAsTheCell) {
  ZunoBannerCell *cell = banner();
  const CGFloat width = [cell bounds].size.width;
  const auto heightOf = [](UILabel *label) {
    UILabel *alone = [[[UILabel alloc] init] autorelease];
    [alone setFont:[label font]];
    [alone setText:[label text]];
    [alone sizeToFit];
    return [alone frame].size.height;
  };
  UILabel *title = [labels(cell) objectAtIndex:0];
  UILabel *credit = [labels(cell) objectAtIndex:1];
  const CGFloat titleHeight = heightOf(title);
  EXPECT_LT(heightOf(credit), titleHeight);
  EXPECT_LT(titleHeight, 50);
  expectFrame([title frame], 0, 120, width, titleHeight);
  expectFrame([credit frame], 0, 120 + titleHeight + 5, width, heightOf(credit));
  expectFrame([[cell bannerView] frame], 0, 15, width, 100);
}

TEST_F(CreditCellTest, TheTitleHasTheColourThatLabelsHave) {
  UILabel *title = [labels(banner()) objectAtIndex:0];
  EXPECT_OBJC_EQ([title textColor], [[[[UILabel alloc] init] autorelease] textColor]);
}

TEST_F(CreditCellTest, TheBannersViewsFollowTheWidth) {
  ZunoBannerCell *cell = banner();
  for (CGFloat width : {414.0, 820.0}) {
    [parent(width) addSubview:cell];
    for (UIView *view in @[ [cell bannerView], [labels(cell) objectAtIndex:0], [labels(cell) objectAtIndex:1] ]) {
      EXPECT_EQ([view frame].size.width, width);
    }
  }
}

TEST_F(CreditCellTest, BannerAndFooterFollowTheDeviceWhenItIsTurned) {
  UIViewController *page = [[[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  show(page);
  UIWindow *window = [[page view] window];
  UITableView *table = [(PSListController *)page table];
  const NSInteger last = [table numberOfSections] - 1;
  const auto turnTo = [&](CGSize size, UIEdgeInsets safeArea) {
    SIMSetMainScreen(size, 3, safeArea);
    [window setFrame:[[UIScreen mainScreen] bounds]];
    [window layoutIfNeeded];
  };
  const auto expectAcross = [&](CGFloat width) {
    UIView *banner = [table sim_viewForHeaderInSection:0];
    UIView *footer = [table sim_viewForFooterInSection:last];
    ASSERT_TRUE([banner isKindOfClass:classNamed("ZunoBannerCell")]);
    ASSERT_TRUE([footer isKindOfClass:classNamed("ZunoFooterCell")]);
    expectFrame([banner frame], 0, 0, width, 195);
    EXPECT_EQ([footer frame].origin.x, 0);
    EXPECT_EQ([footer frame].size.width, width);
    EXPECT_EQ([footer frame].size.height, 15);
    EXPECT_GT([footer frame].origin.y, [table rectForSection:last].origin.y);
    for (UIView *view in [labels(banner) arrayByAddingObject:[(ZunoBannerCell *)banner bannerView]]) {
      EXPECT_EQ([view frame].origin.x, 0);
      EXPECT_EQ([view frame].size.width, width);
    }
    EXPECT_EQ([[(ZunoBannerCell *)banner bannerView] frame].size.height, 100);
    EXPECT_EQ([[labels(footer) objectAtIndex:0] frame].size.width, width);
  };
  expectAcross(390);
  for (int turn = 0; turn < 2; ++turn) {
    turnTo(CGSizeMake(844, 390), UIEdgeInsetsMake(0, 47, 21, 47));
    expectAcross(844);
    turnTo(CGSizeMake(390, 844), UIEdgeInsetsMake(47, 0, 34, 0));
    expectAcross(390);
  }
  SIMSetMainScreen(CGSizeMake(390, 844), 3);
}

TEST_F(CreditCellTest, TheIconIsLoadedTwiceFromTheBundle) {
  EXPECT_OBJC_EQ([[banner() bannerView] image], nil) << "a missing icon leaves the view empty";
  write(@"/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle/icon-large.png", UIImagePNGRepresentation(filled(20)));
  ZunoBannerCell *cell = banner();
  UIImage *shown = [[cell bannerView] image];
  UIImage *kept = [cell valueForKey:@"unmaskedImage"];
  ASSERT_TRUE(shown != nil);
  ASSERT_TRUE(kept != nil);
  EXPECT_NE(shown, kept);
  EXPECT_EQ([shown size].width, 20.0);
}

TEST_F(CreditCellTest, ARadiusOfZeroGivesTheVeryImage) {
  UIImage *image = filled(10);
  EXPECT_EQ([banner() roundedRectImageFromImage:image withRadius:0], image);
}

TEST_F(CreditCellTest, APositiveRadiusCutsTheCorners) {
  UIImage *image = filled(40);
  UIImage *rounded = [banner() roundedRectImageFromImage:image withRadius:12];
  ASSERT_TRUE(rounded != nil);
  EXPECT_NE(rounded, image);
  EXPECT_EQ([rounded size].width, 40.0);
  EXPECT_EQ([rounded size].height, 40.0);
  EXPECT_EQ([rounded scale], [[UIScreen mainScreen] scale]);

  CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider([rounded CGImage]));
  const UInt8 *bytes = CFDataGetBytePtr(data);
  const size_t side = CGImageGetWidth([rounded CGImage]);
  const auto alpha = [&](size_t x, size_t y) { return bytes[(y * side + x) * 4 + 3]; };
  for (size_t x : {size_t{0}, side - 1}) {
    for (size_t y : {size_t{0}, side - 1}) EXPECT_EQ(alpha(x, y), 0) << x << "," << y;
  }
  EXPECT_EQ(alpha(side / 2, side / 2), 255);
  EXPECT_EQ(alpha(0, side / 2), 255);
  // 12 points of radius at 45 degrees cut 12 × (1 − 1/√2) = 3.5 points from each corner.
  const auto inset = [&](double points) { return static_cast<size_t>(points * [rounded scale]); };
  EXPECT_EQ(alpha(inset(3), inset(3)), 0);
  EXPECT_EQ(alpha(inset(4.2), inset(4.2)), 255);
  CFRelease(data);
}

TEST_F(CreditCellTest, RoundingLeavesNoContextBehind) {
  (void)[banner() roundedRectImageFromImage:filled(10) withRadius:3];
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST_F(CreditCellTest, TheCellsAreOfTheDefaultStyleWithoutADetail) {
  for (UITableViewCell *cell in @[ (UITableViewCell *)banner(), (UITableViewCell *)footer() ]) {
    EXPECT_OBJC_EQ([cell detailTextLabel], nil) << class_getName([cell class]);
  }
}

TEST_F(CreditCellTest, TheFooterAsksForTheRootPackageOfItsOwnIdentifier) {
  struct Asked {
    std::string identifier;
    BOOL isRoot = NO;
  };
  static Asked asked;
  const auto answer = +[](id, SEL, NSString *identifier, BOOL isRoot) -> id {
    asked = {[identifier UTF8String], isRoot};
    return nil;
  };
  const Replaced lookup(object_getClass((id)classNamed("NorvikPackage")),
                        @selector(packageWithIdentifier:isRootPackage:), answer);
  (void)footer();
  EXPECT_EQ(asked.identifier, "com.norvik.Zuno");
  EXPECT_TRUE(asked.isRoot);
}

TEST_F(CreditCellTest, TheFooterCarriesYearThenVersion) {
  ZunoFooterCell *cell = footer();
  NSArray *texts = labels(cell);
  ASSERT_EQ([texts count], 1u);
  UILabel *line = [texts objectAtIndex:0];
  expectFrame([line frame], 0, 0, [cell bounds].size.width, 15);
  EXPECT_OBJC_EQ([line text], @"© 2023 Norvik · Zuno 0.1.0-Beta3-rootless");
  EXPECT_EQ([[line font] pointSize], 12.0);
  EXPECT_OBJC_EQ([line textColor], [UIColor grayColor]);
  EXPECT_OBJC_EQ([line backgroundColor], [UIColor clearColor]);
  EXPECT_EQ([line textAlignment], NSTextAlignmentCenter);
  EXPECT_EQ([line numberOfLines], 1);
  EXPECT_EQ([line autoresizingMask], UIViewAutoresizingFlexibleWidth);
}

TEST_F(CreditCellTest, TheCellsGoAwayWithTheirSuperview) {
  int deaths = 0;
  @autoreleasepool {
    UIView *view = parent(390);
    ZunoBannerCell *cell = banner();
    [view addSubview:cell];
    [cell addSubview:(UIView *)[[[NSClassFromString(@"DyingView") alloc] init] autorelease]];
    [[cell viewWithTag:77] setValue:[NSValue valueWithPointer:&deaths] forKey:@"counter"];
  }
  EXPECT_EQ(deaths, 1);
}

}  // namespace

/// Counts its own death.
@interface DyingView : UIView {
  NSValue *_counter;
}
@property(nonatomic, retain) NSValue *counter;
@end

@implementation DyingView
@synthesize counter = _counter;
- (instancetype)init {
  if (!(self = [super initWithFrame:CGRectZero])) return nil;

  [self setTag:77];
  return self;
}
- (void)dealloc {
  ++*static_cast<int *>([_counter pointerValue]);
  [_counter release];
  [super dealloc];
}
@end
