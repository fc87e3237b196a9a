#import "RecordingController.h"

#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <Foundation/SIMLog.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::takeEvents;
using testing_support::windowShowing;

namespace {

class UIViewControllerTest : public ObjCTest {
 protected:
  objcxx::Retained<RecordingController> page(const char *name) {
    return adopt([[RecordingController alloc] initWithName:name events:&events_]);
  }
  std::string events() { return takeEvents(events_); }

 private:
  std::vector<std::string> events_;
};

class PadTest : public UIViewControllerTest {
 protected:
  void SetUp() override {
    UIViewControllerTest::SetUp();
    SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  }
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    UIViewControllerTest::TearDown();
  }
};

}  // namespace

TEST_F(UIViewControllerTest, TheViewIsMadeWhenItIsAskedFor) {
  const auto a = page("A");
  EXPECT_FALSE([a.get() isViewLoaded]);
  EXPECT_OBJC_EQ([a.get() viewIfLoaded], nil);
  EXPECT_EQ(events(), "");
  UIView *view = [a.get() view];
  EXPECT_NE(view, nil);
  EXPECT_EQ([a.get() view], view);
  EXPECT_EQ([view nextResponder], a.get());
  EXPECT_EQ(events(), "A loads");
}

TEST_F(UIViewControllerTest, TheTitleIsThatOfTheNavigationItem) {
  const auto a = page("A");
  [a.get() setTitle:@"One"];
  EXPECT_OBJC_EQ([[a.get() navigationItem] title], @"One");
  [a.get() setTitle:@"Two"];
  EXPECT_OBJC_EQ([[a.get() navigationItem] title], @"Two");
  [[a.get() navigationItem] setTitle:@"Three"];
  EXPECT_OBJC_EQ([a.get() title], @"Two");
}

TEST_F(UIViewControllerTest, TheEditButtonTogglesEditing) {
  const auto a = page("A");
  UIBarButtonItem *item = [a.get() editButtonItem];
  EXPECT_OBJC_EQ([item title], @"Edit");
  EXPECT_TRUE([[UIApplication sharedApplication] sendAction:[item action] to:[item target] from:item forEvent:nil]);
  EXPECT_TRUE([a.get() isEditing]);
  EXPECT_OBJC_EQ([item title], @"Done");
  EXPECT_EQ([a.get() editButtonItem], item);
}

#pragma mark - Windows

TEST_F(UIViewControllerTest, TheRootAppearsWithItsWindow) {
  const auto a = page("A");
  auto window = windowShowing(a.get());
  EXPECT_EQ(events(), "A loads, A willAppear, A didAppear");
  EXPECT_EQ([[a.get() view] window], window.get());
  EXPECT_EQ([a.get() sim_appearance], SIMAppearanceAppeared);
  [window.get() makeKeyAndVisible];
  EXPECT_EQ(events(), "");
  [window.get() setHidden:YES];
  EXPECT_EQ(events(), "A willDisappear, A didDisappear");
}

TEST_F(UIViewControllerTest, AnotherRootTakesThePlaceOfTheFormer) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  events();
  [window.get() setRootViewController:b.get()];
  EXPECT_EQ(events(), "A willDisappear, A didDisappear, B loads, B willAppear, B didAppear");
  EXPECT_OBJC_EQ([[a.get() view] superview], nil);
}

TEST_F(UIViewControllerTest, AWindowOwnsItsPageAndGoesWithIt) {
  const auto windows = [] { return [[[UIApplication sharedApplication] windows] count]; };
  const NSUInteger others = windows();
  int deaths = 0;
  {
    const auto a = page("A");
    [a.get() countDeathIn:&deaths];
    const auto window = windowShowing(a.get());
    EXPECT_EQ([[UIApplication sharedApplication] keyWindow], window.get());
    EXPECT_TRUE([[[UIApplication sharedApplication] windows] containsObject:window.get()]);
    drainPool();
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
  EXPECT_EQ([[UIApplication sharedApplication] keyWindow], nil);
  EXPECT_EQ(windows(), others);
}

#pragma mark - Containers

TEST_F(UIViewControllerTest, ChildrenKnowTheirParent) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  [a.get() addChildViewController:b.get()];
  EXPECT_EQ([b.get() parentViewController], a.get());
  EXPECT_OBJC_EQ([a.get() childViewControllers], @[ b.get() ]);
  [c.get() addChildViewController:b.get()];
  EXPECT_EQ([b.get() parentViewController], c.get());
  EXPECT_OBJC_EQ([a.get() childViewControllers], @[]);
  [b.get() removeFromParentViewController];
  EXPECT_EQ([b.get() parentViewController], nil);
  EXPECT_EQ(raisedBy([&] { [a.get() addChildViewController:nil]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [a.get() addChildViewController:a.get()]; }), "NSInvalidArgumentException");
}

TEST_F(UIViewControllerTest, ChildrenAppearWithTheirParent) {
  const auto a = page("A");
  const auto b = page("B");
  [a.get() addChildViewController:b.get()];
  [[a.get() view] addSubview:[b.get() view]];
  [b.get() didMoveToParentViewController:a.get()];
  events();
  const auto window = windowShowing(a.get());
  EXPECT_EQ(events(), "A willAppear, B willAppear, A didAppear, B didAppear");
  [window.get() setHidden:YES];
  EXPECT_EQ(events(), "A willDisappear, B willDisappear, A didDisappear, B didDisappear");
}

TEST_F(UIViewControllerTest, AChildThatJoinsAPageOnScreenAppears) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  events();
  [a.get() addChildViewController:b.get()];
  [[a.get() view] addSubview:[b.get() view]];
  [b.get() didMoveToParentViewController:a.get()];
  EXPECT_EQ(events(), "B loads, B willAppear, B didAppear");
  [b.get() willMoveToParentViewController:nil];
  [[b.get() view] removeFromSuperview];
  [b.get() removeFromParentViewController];
  EXPECT_EQ(events(), "B willDisappear, B didDisappear");
}

TEST_F(UIViewControllerTest, AParentThatGoesLeavesNoTrailBehind) {
  const auto b = page("B");
  {
    const auto a = page("A");
    [a.get() addChildViewController:b.get()];
    drainPool();
  }
  EXPECT_EQ([b.get() parentViewController], nil);
}

#pragma mark - Presentation

TEST_F(UIViewControllerTest, ASheetLeavesThePageBelowOnScreen) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  events();
  [a.get() presentViewController:b.get() animated:YES completion:nil];
  EXPECT_EQ(events(), "B loads, B willAppear animated, B didAppear animated");
  EXPECT_EQ([a.get() presentedViewController], b.get());
  EXPECT_EQ([b.get() presentingViewController], a.get());
  EXPECT_EQ([a.get() sim_frontmostViewController], b.get());
  EXPECT_EQ([[b.get() view] window], window.get());

  [a.get() dismissViewControllerAnimated:NO completion:nil];
  EXPECT_EQ(events(), "B willDisappear, B didDisappear");
  EXPECT_EQ([a.get() presentedViewController], nil);
  EXPECT_EQ([b.get() presentingViewController], nil);
  EXPECT_EQ([[b.get() view] superview], nil);
}

TEST_F(UIViewControllerTest, AFullScreenPageCoversThePageBelow) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  [b.get() setModalPresentationStyle:UIModalPresentationFullScreen];
  events();
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  EXPECT_EQ(events(), "B loads, A willDisappear, B willAppear, B didAppear, A didDisappear");
  [b.get() dismissViewControllerAnimated:NO completion:nil];
  EXPECT_EQ(events(), "B willDisappear, A willAppear, A didAppear, B didDisappear");
}

TEST_F(UIViewControllerTest, CompletionsFollowTheAppearanceCalls) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  events();
  [a.get() presentViewController:b.get()
                        animated:NO
                      completion:^{
                        [a.get() note:"presented" animated:NO];
                      }];
  EXPECT_EQ(events(), "B loads, B willAppear, B didAppear, A presented");
  [a.get() dismissViewControllerAnimated:YES
                              completion:^{
                                [a.get() note:"dismissed" animated:NO];
                              }];
  EXPECT_EQ(events(), "B willDisappear animated");
  SIMDrainMainQueue();
  EXPECT_EQ(events(), "B didDisappear animated, A dismissed");
}

TEST_F(UIViewControllerTest, AnAnimatedDismissalTakesUntilTheNextTurn) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  [a.get() presentViewController:b.get() animated:YES completion:nil];
  EXPECT_OBJC_EQ([b.get() transitionCoordinator], nil);
  [b.get() dismissViewControllerAnimated:YES completion:nil];
  EXPECT_EQ([a.get() presentedViewController], b.get());
  EXPECT_EQ([[b.get() view] window], window.get());
  EXPECT_TRUE([b.get() isBeingDismissed]);
  EXPECT_NE([b.get() transitionCoordinator], nil);
  EXPECT_EQ([b.get() transitionCoordinator], [a.get() transitionCoordinator]);
  EXPECT_TRUE([[a.get() transitionCoordinator]
      animateAlongsideTransition:nil
                      completion:^(id) {
                        [a.get() note:[a.get() presentedViewController] ? "too early" : "free" animated:NO];
                      }]);
  events();
  [a.get() dismissViewControllerAnimated:YES
                              completion:^{
                                [a.get() note:"twice" animated:NO];
                              }];
  SIMDrainMainQueue();
  EXPECT_EQ(events(), "B didDisappear animated, A twice, A free");
  EXPECT_OBJC_EQ([a.get() presentedViewController], nil);
  EXPECT_EQ([[b.get() view] superview], nil);
  EXPECT_FALSE([b.get() isBeingDismissed]);
  EXPECT_OBJC_EQ([a.get() transitionCoordinator], nil);
  EXPECT_OBJC_EQ([b.get() transitionCoordinator], nil);
}

TEST_F(UIViewControllerTest, APageOnItsWayOutTakesThoseAboveItAlong) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  const auto window = windowShowing(a.get());
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  [b.get() presentViewController:c.get() animated:NO completion:nil];
  [b.get() dismissViewControllerAnimated:YES completion:nil];  // C.
  [a.get() dismissViewControllerAnimated:NO completion:nil];   // B, and C with it.
  EXPECT_OBJC_EQ([a.get() presentedViewController], nil);
  EXPECT_OBJC_EQ([c.get() presentingViewController], nil);
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([b.get() presentedViewController], nil);
  EXPECT_FALSE([c.get() isBeingDismissed]);
  EXPECT_EQ([c.get() sim_appearance], SIMAppearanceDisappeared);
}

TEST_F(UIViewControllerTest, APageThatPresentsOrIsOnItsWayPresentsNothingElseAndSaysSo) {
  std::vector<std::string> log;
  SIMSetLogHandler([](NSString *line,
                      void *lines) { static_cast<std::vector<std::string> *>(lines)->emplace_back([line UTF8String]); },
                   &log);
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  const auto said = [&](const char *words) {
    const bool found = log.size() == 1 && log[0].rfind("Attempt to present <RecordingController", 0) == 0 &&
                       log[0].find(words) != std::string::npos;
    log.clear();
    return found;
  };
  [a.get() presentViewController:c.get() animated:YES completion:nil];
  EXPECT_TRUE(said("whose view is not in the window hierarchy"));
  const auto window = windowShowing(a.get());
  [a.get() presentViewController:b.get() animated:YES completion:nil];
  [a.get() presentViewController:c.get() animated:YES completion:nil];
  EXPECT_TRUE(said("which is already presenting <RecordingController"));
  [a.get() dismissViewControllerAnimated:YES completion:nil];
  [a.get() presentViewController:c.get() animated:YES completion:nil];
  EXPECT_TRUE(said("which is already presenting <RecordingController")) << "the dismissal is not over";
  [b.get() presentViewController:c.get() animated:YES completion:nil];
  EXPECT_TRUE(said("while a presentation is in progress!"));
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([a.get() presentedViewController], nil);
  EXPECT_OBJC_EQ([c.get() presentingViewController], nil);

  const auto d = page("D");
  [d.get() presentOnLayout:c.get()];
  [a.get() presentViewController:d.get() animated:YES completion:nil];
  EXPECT_TRUE(said("while a presentation is in progress!")) << "it has not appeared yet";
  [d.get() presentViewController:c.get() animated:YES completion:nil];
  EXPECT_TRUE(log.empty());
  EXPECT_EQ([d.get() presentedViewController], c.get());
  SIMSetLogHandler(nullptr, nullptr);
}

TEST_F(UIViewControllerTest, TheOutermostParentPresents) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  [a.get() addChildViewController:b.get()];
  [[a.get() view] addSubview:[b.get() view]];
  const auto window = windowShowing(a.get());
  [b.get() presentViewController:c.get() animated:NO completion:nil];
  EXPECT_EQ([c.get() presentingViewController], a.get());
  EXPECT_EQ([b.get() presentedViewController], c.get());
  EXPECT_EQ([a.get() sim_ownPresentedViewController], c.get());
  EXPECT_EQ([b.get() sim_ownPresentedViewController], nil);
  [b.get() dismissViewControllerAnimated:NO completion:nil];
  EXPECT_EQ([a.get() presentedViewController], nil);
}

TEST_F(UIViewControllerTest, ASecondPresentationHasNoEffect) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  const auto window = windowShowing(a.get());
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  events();
  [a.get() presentViewController:c.get()
                        animated:NO
                      completion:^{
                        [a.get() note:"presented" animated:NO];
                      }];
  EXPECT_EQ(events(), "");
  EXPECT_EQ([a.get() presentedViewController], b.get());
  EXPECT_EQ([c.get() presentingViewController], nil);
  [b.get() presentViewController:c.get() animated:NO completion:nil];
  EXPECT_EQ([a.get() sim_frontmostViewController], c.get());
}

TEST_F(UIViewControllerTest, DismissingALowerPageTakesAllAboveIt) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  const auto window = windowShowing(a.get());
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  [b.get() presentViewController:c.get() animated:NO completion:nil];
  events();
  [a.get() dismissViewControllerAnimated:NO completion:nil];
  EXPECT_EQ(events(), "C willDisappear, B willDisappear, C didDisappear, B didDisappear");
  EXPECT_EQ([a.get() presentedViewController], nil);
  EXPECT_EQ([b.get() presentedViewController], nil);
  EXPECT_EQ([c.get() presentingViewController], nil);
}

TEST_F(UIViewControllerTest, APageOutsideAWindowPresentsNothing) {
  const auto a = page("A");
  const auto b = page("B");
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  EXPECT_EQ([a.get() presentedViewController], nil);
  EXPECT_EQ([b.get() presentingViewController], nil);
  EXPECT_EQ(events(), "");
}

TEST_F(UIViewControllerTest, WrongPresentationsRaise) {
  const auto a = page("A");
  const auto b = page("B");
  const auto c = page("C");
  const auto window = windowShowing(a.get());
  EXPECT_EQ(raisedBy([&] { [a.get() presentViewController:nil animated:NO completion:nil]; }),
            "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [a.get() presentViewController:a.get() animated:NO completion:nil]; }),
            "NSInvalidArgumentException");
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  [c.get() addChildViewController:page("D").get()];
  EXPECT_EQ(raisedBy([&] {
              [b.get() presentViewController:[[c.get() childViewControllers] firstObject] animated:NO completion:nil];
            }),
            "NSInvalidArgumentException");
}

TEST_F(UIViewControllerTest, DismissingNothingStillCompletes) {
  const auto a = page("A");
  [a.get() dismissViewControllerAnimated:NO
                              completion:^{
                                [a.get() note:"dismissed" animated:NO];
                              }];
  EXPECT_EQ(events(), "A dismissed");
}

TEST_F(UIViewControllerTest, APageThatDismissesItselfWhileItAppearsGoesCleanly) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  events();
  for (SEL moment : { @selector(viewWillAppear:), @selector(viewDidAppear:) }) {
    [b.get() when:moment send:@selector(dismissNow) to:b.get()];
    [a.get() presentViewController:b.get() animated:NO completion:nil];
    EXPECT_EQ([a.get() presentedViewController], nil);
    EXPECT_EQ([[b.get() view] superview], nil);
    EXPECT_EQ([b.get() sim_appearance], SIMAppearanceDisappeared);
  }
}

TEST_F(UIViewControllerTest, DismissedPagesAreDeallocated) {
  int deaths = 0;
  const auto a = page("A");
  const auto window = windowShowing(a.get());
  {
    const auto b = page("B");
    [b.get() countDeathIn:&deaths];
    [a.get() presentViewController:b.get() animated:YES completion:nil];
  }
  drainPool();
  EXPECT_EQ(deaths, 0);
  [a.get() dismissViewControllerAnimated:YES completion:nil];
  SIMDrainMainQueue();
  drainPool();
  EXPECT_EQ(deaths, 1);
}

#pragma mark - Popovers

TEST_F(UIViewControllerTest, APopoverIsMadeForPopoversAndSheetsOnly) {
  const auto a = page("A");
  EXPECT_EQ([a.get() popoverPresentationController], nil);
  [a.get() setModalPresentationStyle:UIModalPresentationPopover];
  UIPopoverPresentationController *popover = [a.get() popoverPresentationController];
  EXPECT_NE(popover, nil);
  EXPECT_TRUE([popover isKindOfClass:[UIPresentationController class]]);
  EXPECT_EQ([popover presentedViewController], a.get());
  EXPECT_EQ([popover presentingViewController], nil);
  EXPECT_EQ([a.get() popoverPresentationController], popover);
}

TEST_F(PadTest, APopoverWithoutAPlaceRaises) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  [b.get() setModalPresentationStyle:UIModalPresentationPopover];
  EXPECT_EQ(raisedBy([&] { [a.get() presentViewController:b.get() animated:YES completion:nil]; }),
            "NSGenericException");
  EXPECT_EQ([a.get() presentedViewController], nil);
  [[b.get() popoverPresentationController] setSourceView:[a.get() view]];
  EXPECT_EQ(raisedBy([&] { [a.get() presentViewController:b.get() animated:YES completion:nil]; }), "");
  EXPECT_EQ([a.get() presentedViewController], b.get());
}

TEST_F(UIViewControllerTest, APhoneShowsAPopoverWithoutAPlace) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  [b.get() setModalPresentationStyle:UIModalPresentationPopover];
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  EXPECT_EQ([a.get() presentedViewController], b.get());
}

TEST_F(PadTest, TheDelegateMayGiveThePopoverItsPlace) {
  const auto a = page("A");
  const auto b = page("B");
  const auto window = windowShowing(a.get());
  [b.get() setModalPresentationStyle:UIModalPresentationPopover];
  [[b.get() popoverPresentationController] setDelegate:(id<UIPopoverPresentationControllerDelegate>)a.get()];
  [a.get() presentViewController:b.get() animated:NO completion:nil];
  EXPECT_EQ([a.get() presentedViewController], b.get());
}

@interface RecordingController (Moments)
- (void)dismissNow;
@end

@implementation RecordingController (Moments)
- (void)dismissNow {
  [self dismissViewControllerAnimated:NO completion:nil];
}
- (void)prepareForPopoverPresentation:(UIPopoverPresentationController *)popover {
  [popover setSourceView:[self view]];
}
@end
