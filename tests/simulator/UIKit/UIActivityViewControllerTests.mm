#import "AlertSupport.h"

#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>
#import <UIKit/UIScreen+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

namespace {

class UIActivityViewControllerTest : public ObjCTest {
 protected:
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }
  static objcxx::Retained<UIActivityViewController> sheet(NSArray *items) {
    return objcxx::adopt([[UIActivityViewController alloc] initWithActivityItems:items applicationActivities:nil]);
  }
  Stage stage_;
};

}  // namespace

TEST_F(UIActivityViewControllerTest, DescribesItsItems) {
  UIGraphicsBeginImageContext(CGSizeMake(1, 1));
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  NSURL *file = [NSURL fileURLWithPath:@"/folder/Dark.plist"];
  NSArray *items = @[ file, [NSURL URLWithString:@"https://example.org/a"], @"text", image ];
  const auto made = sheet(items);
  EXPECT_OBJC_EQ([made.get() sim_activityItems], items);
  EXPECT_OBJC_EQ([made.get() sim_itemTitles], (@[ @"Dark.plist", @"https://example.org/a", @"text", @"Image" ]));
}

TEST_F(UIActivityViewControllerTest, OffersWhatFitsTheItems) {
  NSURL *file = [NSURL fileURLWithPath:@"/folder/Dark.plist"];
  EXPECT_FALSE([[sheet(@[ file ]).get() sim_activityTypes] containsObject:UIActivityTypeCopyToPasteboard]);
  EXPECT_TRUE([[sheet(@[ file ]).get() sim_activityTypes] containsObject:UIActivityTypeAirDrop]);
  const auto text = sheet(@[ @"text" ]);
  EXPECT_TRUE([[text.get() sim_activityTypes] containsObject:UIActivityTypeCopyToPasteboard]);
  [text.get() setExcludedActivityTypes:@[ UIActivityTypeCopyToPasteboard ]];
  EXPECT_FALSE([[text.get() sim_activityTypes] containsObject:UIActivityTypeCopyToPasteboard]);
}

TEST_F(UIActivityViewControllerTest, MisuseRaises) {
  EXPECT_EQ(raisedBy([] { sheet(@[]).get(); }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] { sheet(nil).get(); }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([] {
              [[UIActivityViewController alloc] initWithActivityItems:@[ @"a" ] applicationActivities:@[ @"b" ]];
            }),
            "NSInvalidArgumentException");
}

TEST_F(UIActivityViewControllerTest, TheSheetHasGoneWhenTheHandlerRuns) {
  const auto made = sheet(@[ @"text" ]);
  __block int runs = 0;
  __block BOOL gone = NO;
  __block objcxx::Retained<NSString> type;
  [made.get() setCompletionWithItemsHandler:^(UIActivityType given, BOOL completed, NSArray *, NSError *) {
    runs += completed ? 1 : 100;
    gone = stage_.presented() == nil;
    type = objcxx::share(given);
  }];
  stage_.present(made.get());
  EXPECT_FALSE([made.get() sim_finishWithActivityType:@"unknown" completed:YES]);
  EXPECT_EQ(stage_.presented(), made.get());
  EXPECT_TRUE([made.get() sim_finishWithActivityType:UIActivityTypeMail completed:YES]);
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(gone);
  EXPECT_OBJC_EQ(type.get(), UIActivityTypeMail);
}

TEST_F(UIActivityViewControllerTest, ACancelledSheetCompletedNothing) {
  const auto made = sheet(@[ @"text" ]);
  __block int runs = 0;
  [made.get() setCompletionWithItemsHandler:^(UIActivityType given, BOOL completed, NSArray *, NSError *) {
    runs += given || completed ? 100 : 1;
  }];
  stage_.present(made.get());
  EXPECT_TRUE([made.get() sim_finishWithActivityType:nil completed:NO]);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIActivityViewControllerTest, CopyReallyCopies) {
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:nil];
  const auto made = sheet(@[ @"text", [NSURL URLWithString:@"https://example.org/"] ]);
  stage_.present(made.get());
  EXPECT_TRUE([made.get() sim_finishWithActivityType:UIActivityTypeCopyToPasteboard completed:YES]);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] strings], (@[ @"text", @"https://example.org/" ]));
}

TEST_F(UIActivityViewControllerTest, OnALargeScreenTheSheetNeedsAPlace) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  const auto made = sheet(@[ @"text" ]);
  EXPECT_EQ(raisedBy([&] { stage_.present(made.get()); }), "NSGenericException");
  const auto item = objcxx::adopt([[UIBarButtonItem alloc] initWithBarButtonSystemItem:UIBarButtonSystemItemAction
                                                                                target:nil
                                                                                action:nullptr]);
  [[made.get() popoverPresentationController] setBarButtonItem:item.get()];
  EXPECT_EQ(raisedBy([&] { stage_.present(made.get()); }), "");
  EXPECT_EQ(stage_.presented(), made.get());
}

TEST_F(UIActivityViewControllerTest, AHandlerThatHoldsTheSheetDoesNotKeepIt) {
  int deaths = 0;
  {
    const auto made = sheet(@[ @"text" ]);
    const auto token = objcxx::adopt([[Lifetime alloc] initWithCounter:&deaths]);
    [made.get() setCompletionWithItemsHandler:^(UIActivityType, BOOL, NSArray *, NSError *) {
      [made.get() title];
      [token.get() self];
    }];
    stage_.present(made.get());
    [made.get() sim_finishWithActivityType:nil completed:NO];
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}
