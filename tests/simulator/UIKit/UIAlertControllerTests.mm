#import "AlertSupport.h"

#import <UIKit/UIAlertController+Sim.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using testing_support::Stage;

namespace {

class UIAlertControllerTest : public ObjCTest {
 protected:
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    ObjCTest::TearDown();
  }
  UIAlertController *alert(UIAlertControllerStyle style = UIAlertControllerStyleAlert) {
    return [UIAlertController alertControllerWithTitle:@"Title" message:@"Message" preferredStyle:style];
  }
  UIAlertAction *action(NSString *title, UIAlertActionStyle style, void (^handler)(UIAlertAction *) = nil) {
    return [UIAlertAction actionWithTitle:title style:style handler:handler];
  }
  Stage stage_;
};

}  // namespace

TEST_F(UIAlertControllerTest, KeepsItsTextsAndActionsInOrder) {
  UIAlertController *shown = alert();
  UIAlertAction *yes = action(@"Yes", UIAlertActionStyleDestructive);
  UIAlertAction *no = action(@"No", UIAlertActionStyleCancel);
  [shown addAction:yes];
  [shown addAction:no];
  EXPECT_OBJC_EQ([shown title], @"Title");
  EXPECT_OBJC_EQ([shown message], @"Message");
  EXPECT_EQ([shown preferredStyle], UIAlertControllerStyleAlert);
  EXPECT_OBJC_EQ([shown actions], (@[ yes, no ]));
  EXPECT_OBJC_EQ([yes title], @"Yes");
  EXPECT_EQ([yes style], UIAlertActionStyleDestructive);
  EXPECT_TRUE([yes isEnabled]);
  EXPECT_OBJC_EQ([shown textFields], nil);
  [shown setPreferredAction:yes];
  EXPECT_EQ([shown preferredAction], yes);
}

TEST_F(UIAlertControllerTest, MisuseRaises) {
  UIAlertController *shown = alert();
  [shown addAction:action(@"No", UIAlertActionStyleCancel)];
  EXPECT_EQ(raisedBy([&] { [shown addAction:action(@"Never", UIAlertActionStyleCancel)]; }),
            "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [shown setPreferredAction:action(@"Other", UIAlertActionStyleDefault)]; }),
            "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [alert(UIAlertControllerStyleActionSheet) addTextFieldWithConfigurationHandler:nil]; }),
            "NSInternalInconsistencyException");
}

TEST_F(UIAlertControllerTest, TheAlertHasGoneWhenTheHandlerRuns) {
  UIAlertController *shown = alert();
  __block int runs = 0;
  __block BOOL gone = NO;
  __block UIAlertAction *given = nil;
  UIAlertAction *ok = action(@"OK", UIAlertActionStyleDefault, ^(UIAlertAction *tapped) {
    ++runs;
    gone = stage_.presented() == nil;
    given = tapped;
  });
  [shown addAction:ok];
  EXPECT_FALSE([shown sim_tapAction:ok]);
  stage_.present(shown);
  EXPECT_EQ(stage_.presented(), shown);
  EXPECT_TRUE([shown sim_tapAction:ok]);
  EXPECT_TRUE(gone);
  EXPECT_EQ(given, ok);
  EXPECT_FALSE([shown sim_tapAction:ok]);
  EXPECT_EQ(runs, 1);
}

TEST_F(UIAlertControllerTest, AHandlerMayPresentTheNextAlert) {
  UIAlertController *first = alert();
  UIAlertController *second = alert();
  UIAlertAction *next = action(@"Next", UIAlertActionStyleDefault, ^(UIAlertAction *) {
    stage_.present(second);
  });
  [first addAction:next];
  stage_.present(first);
  [first sim_tapAction:next];
  EXPECT_EQ(stage_.presented(), second);
}

TEST_F(UIAlertControllerTest, ThePageBelowKeepsItsPlaceOnScreen) {
  testing_support::takeEvents(stage_.events);
  UIAlertController *shown = alert();
  UIAlertAction *ok = action(@"OK", UIAlertActionStyleDefault);
  [shown addAction:ok];
  stage_.present(shown);
  [shown sim_tapAction:ok];
  EXPECT_EQ(testing_support::takeEvents(stage_.events), "");
}

TEST_F(UIAlertControllerTest, DisabledAndForeignActionsDoNothing) {
  UIAlertController *shown = alert();
  UIAlertAction *off = action(@"Off", UIAlertActionStyleDefault);
  [off setEnabled:NO];
  [shown addAction:off];
  stage_.present(shown);
  EXPECT_FALSE([shown sim_tapAction:off]);
  EXPECT_FALSE([shown sim_tapAction:action(@"Off", UIAlertActionStyleDefault)]);
  EXPECT_FALSE([shown sim_tapAction:nil]);
  EXPECT_EQ(stage_.presented(), shown);
  [off setEnabled:YES];
  EXPECT_TRUE([shown sim_tapAction:off]);
}

TEST_F(UIAlertControllerTest, FieldsAreConfiguredAndRead) {
  UIAlertController *shown = alert();
  [shown addTextFieldWithConfigurationHandler:^(UITextField *field) {
    [field setPlaceholder:@"Name"];
  }];
  [shown addTextFieldWithConfigurationHandler:nil];
  EXPECT_EQ([[shown textFields] count], 2u);
  EXPECT_OBJC_EQ([[[shown textFields] objectAtIndex:0] placeholder], @"Name");
  __block objcxx::Retained<NSString> name;
  // A handler that reads the alert's own fields holds the alert: nothing may leak for it.
  UIAlertAction *save = action(@"Save", UIAlertActionStyleDefault, ^(UIAlertAction *) {
    name = objcxx::share([(UITextField *)[[shown textFields] firstObject] text]);
  });
  [shown addAction:save];
  stage_.present(shown);
  [[[shown textFields] objectAtIndex:0] sim_enterText:@"Dark"];
  EXPECT_TRUE([shown sim_tapAction:save]);
  EXPECT_OBJC_EQ(name.get(), @"Dark");
}

TEST_F(UIAlertControllerTest, FieldsLieInTheAlert) {
  UIAlertController *shown = alert();
  [shown addTextFieldWithConfigurationHandler:nil];
  stage_.present(shown);
  [shown addTextFieldWithConfigurationHandler:nil];
  for (UITextField *field in [shown textFields]) EXPECT_EQ([field superview], [shown view]);
}

TEST_F(UIAlertControllerTest, AlertsAreDeallocatedHoweverTheyGo) {
  int deaths = 0;
  for (BOOL tapped : {YES, NO}) {
    UIAlertController *shown = alert();
    const auto token = objcxx::adopt([[Lifetime alloc] initWithCounter:&deaths]);
    UIAlertAction *ok = action(@"OK", UIAlertActionStyleDefault, ^(UIAlertAction *) {
      [shown title];
      [token.get() self];
    });
    [shown addAction:ok];
    stage_.present(shown);
    if (tapped) {
      [shown sim_tapAction:ok];
    } else {
      [stage_.page.get() dismissViewControllerAnimated:NO completion:nil];
    }
  }
  SIMDrainMainQueue();
  drainPool();
  EXPECT_EQ(deaths, 2);
}

TEST_F(UIAlertControllerTest, OnALargeScreenASheetNeedsAPlace) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  UIAlertController *sheet = alert(UIAlertControllerStyleActionSheet);
  EXPECT_EQ(raisedBy([&] { stage_.present(sheet); }), "NSGenericException");
  EXPECT_EQ(stage_.presented(), nil);
  [[sheet popoverPresentationController] setSourceView:[stage_.page.get() view]];
  EXPECT_EQ(raisedBy([&] { stage_.present(sheet); }), "");
  EXPECT_EQ(stage_.presented(), sheet);
}

TEST_F(UIAlertControllerTest, OnALargeScreenAnAlertNeedsNone) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  UIAlertController *shown = alert();
  EXPECT_OBJC_EQ([shown popoverPresentationController], nil);
  stage_.present(shown);
  EXPECT_EQ(stage_.presented(), shown);
}

TEST_F(UIAlertControllerTest, ATapBesideASheetCancels) {
  UIAlertController *sheet = alert(UIAlertControllerStyleActionSheet);
  __block int cancelled = 0;
  stage_.present(sheet);
  EXPECT_FALSE([sheet sim_tapOutside]);
  [sheet addAction:action(@"Cancel", UIAlertActionStyleCancel, ^(UIAlertAction *) {
           ++cancelled;
         })];
  EXPECT_TRUE([sheet sim_tapOutside]);
  EXPECT_EQ(cancelled, 1);
  EXPECT_EQ(stage_.presented(), nil);

  UIAlertController *shown = alert();
  [shown addAction:action(@"Cancel", UIAlertActionStyleCancel)];
  stage_.present(shown);
  EXPECT_FALSE([shown sim_tapOutside]);
  EXPECT_EQ(stage_.presented(), shown);
}

TEST_F(UIAlertControllerTest, ATapBesideAPopoverDismissesIt) {
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  UIAlertController *sheet = alert(UIAlertControllerStyleActionSheet);
  [[sheet popoverPresentationController] setSourceView:[stage_.page.get() view]];
  stage_.present(sheet);
  EXPECT_TRUE([sheet sim_tapOutside]);
  EXPECT_EQ(stage_.presented(), nil);
}
