#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class UIScreenTests : public ObjCTest {
 protected:
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }
};

TEST_F(UIScreenTests, IsAPhoneAtFirst) {
  EXPECT_TRUE(CGRectEqualToRect([[UIScreen mainScreen] bounds], CGRectMake(0, 0, 390, 844)));
  EXPECT_EQ([[UIScreen mainScreen] scale], 3);
  EXPECT_TRUE(CGRectEqualToRect([[UIScreen mainScreen] nativeBounds], CGRectMake(0, 0, 1170, 2532)));
  EXPECT_EQ(UI_USER_INTERFACE_IDIOM(), UIUserInterfaceIdiomPhone);
  EXPECT_OBJC_EQ([[UIDevice currentDevice] model], @"iPhone");
  EXPECT_OBJC_EQ([[UIDevice currentDevice] systemVersion], @"16.5");
}

TEST_F(UIScreenTests, BecomesATablet) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  EXPECT_EQ([[UIScreen mainScreen] scale], 2);
  EXPECT_EQ(UI_USER_INTERFACE_IDIOM(), UIUserInterfaceIdiomPad);
  EXPECT_OBJC_EQ([[UIDevice currentDevice] model], @"iPad");
  EXPECT_EQ([[UITraitCollection currentTraitCollection] horizontalSizeClass], UIUserInterfaceSizeClassRegular);
}

TEST_F(UIScreenTests, TurnsOnItsSide) {
  const auto vertical = [] { return [[UITraitCollection currentTraitCollection] verticalSizeClass]; };
  EXPECT_EQ(vertical(), UIUserInterfaceSizeClassRegular);
  SIMSetMainScreen(CGSizeMake(844, 390), 3, UIEdgeInsetsMake(0, 47, 21, 47));
  EXPECT_EQ(UI_USER_INTERFACE_IDIOM(), UIUserInterfaceIdiomPhone);
  EXPECT_EQ(vertical(), UIUserInterfaceSizeClassCompact);
  EXPECT_EQ([[UIScreen mainScreen] sim_safeArea].left, 47);
  SIMSetMainScreen(CGSizeMake(1180, 820), 2);
  EXPECT_EQ(UI_USER_INTERFACE_IDIOM(), UIUserInterfaceIdiomPad);
  EXPECT_EQ(vertical(), UIUserInterfaceSizeClassRegular) << "a tablet has room either way";
  EXPECT_EQ([[UIScreen mainScreen] sim_safeArea].left, 0);
}

TEST_F(UIScreenTests, RefusesWhatIsNoScreen) {
  SIMSetMainScreen(CGSizeMake(0, 100), 3);
  SIMSetMainScreen(CGSizeMake(100, NAN), 3);
  SIMSetMainScreen(CGSizeMake(100, 100), 0);
  SIMSetMainScreen(CGSizeMake(100, INFINITY), 1);
  SIMSetMainScreen(CGSizeMake(100, 100), 1, UIEdgeInsetsMake(-1, 0, 0, 0));
  SIMSetMainScreen(CGSizeMake(100, 100), 1, UIEdgeInsetsMake(0, 60, 0, 40));
  SIMSetMainScreen(CGSizeMake(100, 100), 1, UIEdgeInsetsMake(0, 0, NAN, 0));
  EXPECT_EQ([[UIScreen mainScreen] bounds].size.width, 390);
}

class UIGeometryTests : public ObjCTest {};

TEST_F(UIGeometryTests, StringsGoBothWays) {
  EXPECT_OBJC_EQ(NSStringFromCGRect(CGRectMake(1, 2.5, -3, 4)), @"{{1, 2.5}, {-3, 4}}");
  EXPECT_OBJC_EQ(NSStringFromCGSize(CGSizeMake(1, 2)), @"{1, 2}");
  EXPECT_OBJC_EQ(NSStringFromUIEdgeInsets(UIEdgeInsetsMake(1, 2, 3, 4)), @"{1, 2, 3, 4}");
  EXPECT_TRUE(CGRectEqualToRect(CGRectFromString(@"{{1, 2.5}, {3, 4}}"), CGRectMake(1, 2.5, 3, 4)));
  EXPECT_EQ(CGPointFromString(@"{1,2}").y, 2);
  EXPECT_EQ(CGSizeFromString(@"{5, 6}").width, 5);
  for (NSString *bad in @[ @"", @"{1, 2}", @"{{1, 2}, {3, x}}", @"{{1, 2}, {3, 4}, 5}" ]) {
    EXPECT_TRUE(CGRectEqualToRect(CGRectFromString(bad), CGRectZero)) << [bad UTF8String];
  }
  EXPECT_TRUE(CGRectEqualToRect(CGRectFromString(nil), CGRectZero));
}

TEST_F(UIGeometryTests, Values) {
  EXPECT_EQ([[NSValue valueWithCGRect:CGRectMake(1, 2, 3, 4)] CGRectValue].size.height, 4);
  EXPECT_EQ([[NSValue valueWithCGPoint:CGPointMake(1, 2)] CGPointValue].y, 2);
  EXPECT_EQ([[NSValue valueWithCGSize:CGSizeMake(1, 2)] CGSizeValue].width, 1);
  EXPECT_EQ([[NSValue valueWithUIEdgeInsets:UIEdgeInsetsMake(1, 2, 3, 4)] UIEdgeInsetsValue].right, 4);
  EXPECT_TRUE(UIEdgeInsetsEqualToEdgeInsets([[NSValue valueWithCGPoint:CGPointMake(1, 2)] UIEdgeInsetsValue],
                                            UIEdgeInsetsZero));
  EXPECT_TRUE(CGRectEqualToRect([[NSValue valueWithCGPoint:CGPointMake(1, 2)] CGRectValue], CGRectZero));
  const CGRect inset = UIEdgeInsetsInsetRect(CGRectMake(0, 0, 100, 100), UIEdgeInsetsMake(1, 2, 3, 4));
  EXPECT_TRUE(CGRectEqualToRect(inset, CGRectMake(2, 1, 94, 96)));
}

TEST_F(UIGeometryTests, ValuesNameTheirStructure) {
  NSValue *value = [NSValue valueWithCGRect:CGRectMake(1, 2, 3, 4)];
  EXPECT_STREQ([value objCType], "{CGRect={CGPoint=dd}{CGSize=dd}}");
  EXPECT_OBJC_EQ(value, [NSValue valueWithCGRect:CGRectMake(1, 2, 3, 4)]);
  EXPECT_OBJC_NE(value, [NSValue valueWithCGRect:CGRectMake(1, 2, 3, 5)]);
}

TEST_F(UIGeometryTests, KeyValueCodingBoxesStructures) {
  UIView *view = [[[UIView alloc] initWithFrame:CGRectMake(1, 2, 3, 4)] autorelease];
  EXPECT_TRUE(CGRectEqualToRect([[view valueForKey:@"frame"] CGRectValue], CGRectMake(1, 2, 3, 4)));
  [view setValue:[NSValue valueWithCGRect:CGRectMake(5, 6, 7, 8)] forKey:@"frame"];
  EXPECT_TRUE(CGRectEqualToRect([view frame], CGRectMake(5, 6, 7, 8)));
  [view setValue:[NSValue valueWithCGPoint:CGPointMake(50, 60)] forKey:@"center"];
  EXPECT_TRUE(CGPointEqualToPoint([view center], CGPointMake(50, 60)));
}

}  // namespace
