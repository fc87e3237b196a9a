#import <UIKit/UIApplication+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIPasteboard+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

#include <string>

namespace {

void noteURL(NSURL *url, void *context) {
  *static_cast<std::string *>(context) += std::string([[url absoluteString] UTF8String]) + " ";
}

void noteString(NSString *string, void *context) {
  *static_cast<std::string *>(context) += std::string(string ? [string UTF8String] : "(nil)") + " ";
}

class UIApplicationTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    SIMSetOpenURLHandler(noteURL, &opened_);
  }
  void TearDown() override {
    SIMSetOpenURLHandler(nullptr, nullptr);
    ObjCTest::TearDown();
  }
  UIApplication *application_ = [UIApplication sharedApplication];
  std::string opened_;
};

class UIPasteboardTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    [board_ sim_setStringFromOutside:nil];
    SIMSetPasteboardHandler(noteString, &changes_);
  }
  void TearDown() override {
    SIMSetPasteboardHandler(nullptr, nullptr);
    ObjCTest::TearDown();
  }
  UIPasteboard *board_ = [UIPasteboard generalPasteboard];
  std::string changes_;
};

}  // namespace

TEST_F(UIApplicationTest, OpensWhatTheDeviceCanOpen) {
  EXPECT_TRUE([application_ canOpenURL:[NSURL URLWithString:@"https://example.org/a"]]);
  EXPECT_TRUE([application_ openURL:[NSURL URLWithString:@"https://example.org/a"]]);
  EXPECT_TRUE([application_ canOpenURL:[NSURL URLWithString:@"HTTPS://example.org"]]);
  EXPECT_TRUE([application_ openURL:[NSURL URLWithString:@"mailto:someone@example.org"]]);
  EXPECT_EQ(opened_, "https://example.org/a mailto:someone@example.org ");
}

TEST_F(UIApplicationTest, RefusesOtherSchemes) {
  EXPECT_FALSE([application_ canOpenURL:[NSURL URLWithString:@"unknown-app://x"]]);
  EXPECT_FALSE([application_ openURL:[NSURL URLWithString:@"unknown-app://x"]]);
  EXPECT_FALSE([application_ openURL:[NSURL URLWithString:@"/relative"]]);
  EXPECT_FALSE([application_ openURL:nil]);
  EXPECT_EQ(opened_, "");
}

TEST_F(UIApplicationTest, TellsTheOutcomeFromTheMainQueue) {
  __block std::string outcome;
  [application_ openURL:[NSURL URLWithString:@"http://example.org"]
      options:@{}
      completionHandler:^(BOOL success) {
        outcome += success ? "yes " : "no ";
      }];
  [application_ openURL:[NSURL URLWithString:@"unknown-app:x"]
      options:@{}
      completionHandler:^(BOOL success) {
        outcome += success ? "yes " : "no ";
      }];
  [application_ openURL:[NSURL URLWithString:@"http://example.org"] options:@{} completionHandler:nil];
  EXPECT_EQ(outcome, "");
  SIMDrainMainQueue();
  EXPECT_EQ(outcome, "yes no ");
}

TEST_F(UIPasteboardTest, HoldsAString) {
  EXPECT_OBJC_EQ([board_ string], nil);
  EXPECT_OBJC_EQ([board_ strings], nil);
  EXPECT_FALSE([board_ hasStrings]);
  const NSInteger count = [board_ changeCount];
  NSMutableString *text = [NSMutableString stringWithString:@"text"];
  [board_ setString:text];
  [text appendString:@" changed"];
  EXPECT_OBJC_EQ([board_ string], @"text");
  EXPECT_OBJC_EQ([board_ strings], @[ @"text" ]);
  EXPECT_TRUE([board_ hasStrings]);
  EXPECT_EQ([board_ numberOfItems], 1);
  EXPECT_EQ([board_ changeCount], count + 1);
  [board_ setStrings:@[ @"a", @"b" ]];
  EXPECT_OBJC_EQ([board_ string], @"a");
  EXPECT_EQ([board_ numberOfItems], 2);
  [board_ setString:nil];
  EXPECT_FALSE([board_ hasStrings]);
  EXPECT_EQ(changes_, "text a (nil) ");
}

TEST_F(UIPasteboardTest, ChangesFromOutsideAreNotEchoed) {
  [board_ sim_setStringFromOutside:@"outside"];
  EXPECT_OBJC_EQ([board_ string], @"outside");
  [board_ sim_setStringFromOutside:nil];
  EXPECT_OBJC_EQ([board_ string], nil);
  EXPECT_EQ(changes_, "");
}
