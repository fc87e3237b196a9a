// The old alerts and action sheets.
#import <UIKit/UIActionSheet.h>
#import <UIKit/UIAlertController+Sim.h>
#import <UIKit/UIAlertView.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#include <string>
#include <utility>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

@interface OldAlertListener : NSObject <UIAlertViewDelegate, UIActionSheetDelegate> {
 @public
  std::string heard;
  objcxx::Retained<UIAlertView> next;
}
@end

@implementation OldAlertListener
- (void)note:(const char *)what index:(NSInteger)index {
  heard += (heard.empty() ? "" : " ") + std::string(what) + (index >= 0 ? std::to_string(index) : "");
}
- (void)willPresentAlertView:(UIAlertView *)alert {
  [self note:[alert isVisible] ? "wrong" : "will-present" index:-1];
}
- (void)didPresentAlertView:(UIAlertView *)alert {
  [self note:[alert isVisible] ? "did-present" : "wrong" index:-1];
}
- (void)alertView:(UIAlertView *)alert clickedButtonAtIndex:(NSInteger)index {
  (void)alert;
  [self note:"clicked" index:index];
  [next.get() show];
}
- (void)alertView:(UIAlertView *)alert willDismissWithButtonIndex:(NSInteger)index {
  (void)alert;
  [self note:"will-dismiss" index:index];
}
- (void)alertView:(UIAlertView *)alert didDismissWithButtonIndex:(NSInteger)index {
  (void)alert;
  [self note:"did-dismiss" index:index];
}
- (void)actionSheet:(UIActionSheet *)sheet clickedButtonAtIndex:(NSInteger)index {
  (void)sheet;
  [self note:"sheet-clicked" index:index];
}
- (void)actionSheet:(UIActionSheet *)sheet willDismissWithButtonIndex:(NSInteger)index {
  (void)sheet;
  [self note:"sheet-goes" index:index];
}
- (void)actionSheet:(UIActionSheet *)sheet didDismissWithButtonIndex:(NSInteger)index {
  (void)sheet;
  [self note:"sheet-dismissed" index:index];
}
@end

namespace {

class OldAlertTest : public testing_support::ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
    root_ = objcxx::adopt([[UIViewController alloc] init]);
    listener_ = objcxx::adopt([[OldAlertListener alloc] init]);
    [window_.get() setRootViewController:root_.get()];
    [window_.get() makeKeyAndVisible];
  }
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    [root_.get() dismissViewControllerAnimated:NO completion:nil];
    [window_.get() setHidden:YES];
    window_ = nullptr;
    root_ = nullptr;
    listener_ = nullptr;
    SIMDrainMainQueue();
    ObjCTest::TearDown();
  }
  UIAlertController *shown() {
    UIViewController *front = [root_.get() presentedViewController];
    return [front isKindOfClass:[UIAlertController class]] ? (UIAlertController *)front : nil;
  }
  std::string buttons() {
    std::string all;
    for (UIAlertAction *action in [shown() actions]) {
      all += (all.empty() ? "" : ",") + std::string([[action title] UTF8String]) + std::to_string([action style]);
    }
    return all;
  }
  bool click(NSUInteger index) { return [shown() sim_tapAction:[[shown() actions] objectAtIndex:index]]; }
  std::string heard() { return std::exchange(listener_.get()->heard, std::string()); }
  UIAlertView *makeAlert() {
    return [[[UIAlertView alloc] initWithTitle:@"Reset?"
                                       message:@"All of it"
                                      delegate:listener_.get()
                             cancelButtonTitle:@"Keep"
                             otherButtonTitles:@"Reset", @"More", nil] autorelease];
  }

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UIViewController> root_;
  objcxx::Retained<OldAlertListener> listener_;
};

TEST_F(OldAlertTest, AnAlertIsShownAndClicked) {
  UIAlertView *alert = makeAlert();
  EXPECT_EQ([alert numberOfButtons], 3);
  EXPECT_EQ([alert cancelButtonIndex], 0);
  EXPECT_EQ([alert firstOtherButtonIndex], 1);
  EXPECT_OBJC_EQ([alert buttonTitleAtIndex:2], @"More");
  EXPECT_EQ([alert buttonTitleAtIndex:3], nil);
  EXPECT_EQ([alert addButtonWithTitle:@"Last"], 3);
  [alert show];
  [alert show];
  EXPECT_EQ(heard(), "will-present did-present");
  EXPECT_EQ(buttons(), "Keep1,Reset0,More0,Last0");
  EXPECT_OBJC_EQ([shown() message], @"All of it");
  EXPECT_TRUE(click(1));
  EXPECT_EQ(heard(), "clicked1 will-dismiss1 did-dismiss1");
  EXPECT_FALSE([alert isVisible]);
  EXPECT_EQ(shown(), nil);
}

TEST_F(OldAlertTest, AnAlertIsDismissedByCodeWithoutAClick) {
  UIAlertView *alert = makeAlert();
  [alert dismissWithClickedButtonIndex:0 animated:NO];
  EXPECT_EQ(heard(), "");
  [alert show];
  heard();
  [alert dismissWithClickedButtonIndex:2 animated:NO];
  EXPECT_EQ(heard(), "will-dismiss2 did-dismiss2");
  EXPECT_EQ(shown(), nil);
}

TEST_F(OldAlertTest, AnAlertFollowsAnother) {
  UIAlertView *second = [[[UIAlertView alloc] initWithTitle:@"Second"
                                                    message:nil
                                                   delegate:nil
                                          cancelButtonTitle:@"OK"
                                          otherButtonTitles:nil] autorelease];
  EXPECT_EQ([second firstOtherButtonIndex], -1);
  listener_.get()->next = objcxx::share(second);
  [makeAlert() show];
  EXPECT_TRUE(click(0));
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([shown() title], @"Second");
  listener_.get()->next = nullptr;
  EXPECT_TRUE(click(0));
}

TEST_F(OldAlertTest, FieldsAreReadBeforeAndAfterTheAlert) {
  UIAlertView *alert = makeAlert();
  EXPECT_EQ(raisedBy([&] { (void)[alert textFieldAtIndex:0]; }), "NSRangeException");
  [alert setAlertViewStyle:UIAlertViewStyleLoginAndPasswordInput];
  [[alert textFieldAtIndex:0] setText:@"before"];
  EXPECT_TRUE([[alert textFieldAtIndex:1] isSecureTextEntry]);
  [alert show];
  ASSERT_EQ([[shown() textFields] count], 2u);
  EXPECT_OBJC_EQ([[[shown() textFields] firstObject] text], @"before");
  [[[shown() textFields] firstObject] setText:@"typed"];
  EXPECT_OBJC_EQ([[alert textFieldAtIndex:0] text], @"typed");
  EXPECT_TRUE(click(1));
  EXPECT_OBJC_EQ([[alert textFieldAtIndex:0] text], @"typed") << "for the delegate, which asks now";
  [alert setAlertViewStyle:UIAlertViewStyleSecureTextInput];
  EXPECT_TRUE([[alert textFieldAtIndex:0] isSecureTextEntry]);
}

TEST_F(OldAlertTest, TheKeyboardOfAFieldIsThatOfItsStandIn) {
  UIAlertView *alert = makeAlert();
  [alert setAlertViewStyle:UIAlertViewStylePlainTextInput];
  [[alert textFieldAtIndex:0] setKeyboardType:UIKeyboardTypeNumberPad];
  [alert show];
  EXPECT_EQ([[[shown() textFields] objectAtIndex:0] keyboardType], UIKeyboardTypeNumberPad);
}

TEST_F(OldAlertTest, ASheetHasItsButtonsInTheOldOrder) {
  UIActionSheet *sheet = [[[UIActionSheet alloc] initWithTitle:@"Which?"
                                                      delegate:listener_.get()
                                             cancelButtonTitle:@"Cancel"
                                        destructiveButtonTitle:@"Erase"
                                             otherButtonTitles:@"One", @"Two", nil] autorelease];
  EXPECT_EQ([sheet destructiveButtonIndex], 0);
  EXPECT_EQ([sheet firstOtherButtonIndex], 1);
  EXPECT_EQ([sheet cancelButtonIndex], 3);
  [sheet showInView:[root_.get() view]];
  EXPECT_EQ(buttons(), "Erase2,One0,Two0,Cancel1");
  EXPECT_EQ([shown() preferredStyle], UIAlertControllerStyleActionSheet);
  EXPECT_TRUE([shown() sim_tapOutside]);
  EXPECT_EQ(heard(), "sheet-clicked3 sheet-goes3 sheet-dismissed3");
  [sheet showInView:[root_.get() view]];
  [sheet dismissWithClickedButtonIndex:1 animated:NO];
  EXPECT_EQ(heard(), "sheet-goes1 sheet-dismissed1");
}

TEST_F(OldAlertTest, ASheetSaysWhereItIsShownFromOnALargeScreen) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  UIActionSheet *sheet = [[[UIActionSheet alloc] initWithTitle:nil
                                                      delegate:listener_.get()
                                             cancelButtonTitle:@"Cancel"
                                        destructiveButtonTitle:nil
                                             otherButtonTitles:nil] autorelease];
  UIView *view = [root_.get() view];
  [view setFrame:CGRectMake(0, 0, 820, 1180)];
  const auto popover = [&] { return [shown() popoverPresentationController]; };
  [sheet showInView:view];
  EXPECT_EQ([popover() sourceView], view);
  EXPECT_TRUE(CGRectEqualToRect([popover() sourceRect], CGRectMake(410, 590, 0, 0)));
  [sheet dismissWithClickedButtonIndex:0 animated:NO];
  [sheet showFromRect:CGRectMake(1, 2, 3, 4) inView:view animated:NO];
  EXPECT_TRUE(CGRectEqualToRect([popover() sourceRect], CGRectMake(1, 2, 3, 4)));
  [sheet dismissWithClickedButtonIndex:0 animated:NO];
  UIBarButtonItem *item = [[[UIBarButtonItem alloc] initWithTitle:@"More"
                                                            style:UIBarButtonItemStylePlain
                                                           target:nil
                                                           action:NULL] autorelease];
  [sheet showFromBarButtonItem:item animated:NO];
  EXPECT_EQ([popover() barButtonItem], item);
  EXPECT_EQ(heard(), "sheet-goes0 sheet-dismissed0 sheet-goes0 sheet-dismissed0");
}

}  // namespace
