#import "AlertSupport.h"

#import <UIKit/SharedItem.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>
#import <UIKit/UIScreen+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

namespace {

class UIActivityViewControllerTest : public DeviceTest {
 protected:
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    DeviceTest::TearDown();
  }
  static UIImage *picture() {
    UIGraphicsBeginImageContext(CGSizeMake(3, 2));
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
  }
  NSURL *file(NSString *name, NSData *content) {
    return [NSURL fileURLWithPath:write([@"/var/" stringByAppendingString:name], content)];
  }
  NSURL *file(NSString *name, std::string_view content) {
    return [NSURL fileURLWithPath:write([@"/var/" stringByAppendingString:name], content)];
  }
  static objcxx::Retained<UIActivityViewController> sheet(NSArray *items) {
    return objcxx::adopt([[UIActivityViewController alloc] initWithActivityItems:items applicationActivities:nil]);
  }
  Stage stage_;
};

}  // namespace

TEST_F(UIActivityViewControllerTest, KeepsItsItems) {
  NSArray *items = @[ [NSURL fileURLWithPath:@"/folder/Dark.plist"], @"text", picture() ];
  EXPECT_OBJC_EQ([sheet(items).get() sim_activityItems], items);
}

TEST_F(UIActivityViewControllerTest, OffersWhatFitsTheItems) {
  const auto offers = [](NSArray *items, UIActivityType type) {
    return bool([[sheet(items).get() sim_activityTypes] containsObject:type]);
  };
  NSURL *text = file(@"a.txt", "text");
  NSURL *bytes = file(@"a.bin", "\xff");
  EXPECT_TRUE(offers(@[ bytes ], UIActivityTypeAirDrop));
  EXPECT_TRUE(offers(@[ bytes ], SIMActivityTypeSaveToFiles));
  EXPECT_FALSE(offers(@[ bytes ], UIActivityTypeCopyToPasteboard));
  EXPECT_TRUE(offers(@[ text ], UIActivityTypeCopyToPasteboard));
  EXPECT_TRUE(offers(@[ @"text" ], UIActivityTypeCopyToPasteboard));
  EXPECT_FALSE(offers(@[ @"text" ], SIMActivityTypeSaveToFiles));
  EXPECT_TRUE(offers(@[ picture() ], SIMActivityTypeSaveToFiles));
  EXPECT_TRUE(offers(@[ picture() ], UIActivityTypeSaveToCameraRoll));

  const auto excluding = sheet(@[ @"text" ]);
  [excluding.get() setExcludedActivityTypes:@[ UIActivityTypeCopyToPasteboard ]];
  EXPECT_FALSE([[excluding.get() sim_activityTypes] containsObject:UIActivityTypeCopyToPasteboard]);
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
  EXPECT_FALSE([made.get() sim_finishWithActivityType:@"unknown"]);
  EXPECT_EQ(stage_.presented(), made.get());
  EXPECT_TRUE([made.get() sim_finishWithActivityType:UIActivityTypeMail]);
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
  EXPECT_TRUE([made.get() sim_finishWithActivityType:nil]);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(stage_.presented(), nil);
}

TEST_F(UIActivityViewControllerTest, CopyReallyCopiesAndEndsTheSheet) {
  NSArray *items =
      @[ @"text", [NSURL URLWithString:@"https://example.org/"], file(@"a.txt", "gr\u00FC\U0001F600\r\n") ];
  NSArray *copies = @[ @"text", @"https://example.org/", @"gr\u00FC\U0001F600\r\n" ];
  for (NSUInteger index = 0; index < [items count]; ++index) {
    const auto made = sheet(items);
    __block objcxx::Retained<NSString> type;
    [made.get() setCompletionWithItemsHandler:^(UIActivityType given, BOOL completed, NSArray *, NSError *) {
      if (completed) type = objcxx::share(given);
    }];
    stage_.present(made.get());
    EXPECT_TRUE([made.get() sim_copyItemAtIndex:index]);
    EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] strings], @[ [copies objectAtIndex:index] ]);
    EXPECT_OBJC_EQ(type.get(), UIActivityTypeCopyToPasteboard);
    EXPECT_EQ(stage_.presented(), nil);
  }
}

TEST_F(UIActivityViewControllerTest, WhatCannotBeCopiedLeavesSheetAndPasteboard) {
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"before"];
  const auto made = sheet(@[ @"text", picture(), file(@"a.bin", std::string_view("a\0b", 3)), file(@"b.bin", "\xC3") ]);
  stage_.present(made.get());
  for (NSUInteger index : {1u, 2u, 3u, 4u}) EXPECT_FALSE([made.get() sim_copyItemAtIndex:index]) << index;
  [made.get() setExcludedActivityTypes:@[ UIActivityTypeCopyToPasteboard ]];
  EXPECT_FALSE([made.get() sim_copyItemAtIndex:0]);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], @"before");
  EXPECT_EQ(stage_.presented(), made.get());
}

TEST_F(UIActivityViewControllerTest, EachKindOfItemHasItsTitleAndFile) {
  NSURL *dark = file(@"Dark.plist", "content");
  EXPECT_OBJC_EQ(sim::titleOfSharedItem(dark), @"Dark.plist");
  EXPECT_OBJC_EQ(sim::fileNameOfSharedItem(dark), @"Dark.plist");
  EXPECT_OBJC_EQ(sim::contentOfSharedItem(dark, nullptr), [NSData dataWithContentsOfFile:[dark path]]);
  EXPECT_OBJC_EQ(sim::titleOfSharedItem(picture()), @"Image");
  EXPECT_OBJC_EQ(sim::fileNameOfSharedItem(picture()), @"Image.png");
  EXPECT_EQ([[UIImage imageWithData:sim::contentOfSharedItem(picture(), nullptr)] size].width, 3);
  NSURL *address = [NSURL URLWithString:@"https://example.org/a"];
  EXPECT_OBJC_EQ(sim::titleOfSharedItem(address), @"https://example.org/a");
  EXPECT_OBJC_EQ(sim::fileNameOfSharedItem(address), nil);
  EXPECT_OBJC_EQ(sim::titleOfSharedItem(@"text"), @"text");
  EXPECT_OBJC_EQ(sim::fileNameOfSharedItem(@"text"), nil);
  EXPECT_OBJC_EQ(sim::pasteboardTextOfSharedItem(@7), nil);
}

TEST_F(UIActivityViewControllerTest, AFileThatCannotBeReadSaysSo) {
  NSURL *folder = [NSURL fileURLWithPath:makeFolder(@"/var/Folder.plist")];
  NSURL *missing = [NSURL fileURLWithPath:path(@"/var/Missing.plist")];
  for (NSURL *url in @[ folder, missing ]) {
    NSError *error = nil;
    EXPECT_OBJC_EQ(sim::contentOfSharedItem(url, &error), nil);
    EXPECT_OBJC_EQ([error localizedDescription],
                   ([NSString stringWithFormat:@"“%@” cannot be read.", [[url path] lastPathComponent]]));
    EXPECT_FALSE(sim::canCopySharedItem(url));
  }
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
    [made.get() sim_finishWithActivityType:nil];
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}
