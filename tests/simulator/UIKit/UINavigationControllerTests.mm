#import "RecordingController.h"

#import <UIKit/UINavigationController+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::takeEvents;
using testing_support::windowShowing;

@interface StackDelegate : NSObject <UINavigationControllerDelegate> {
 @public
  std::vector<std::string> *events;
}
@end

@implementation StackDelegate
- (void)navigationController:(UINavigationController *)stack
      willShowViewController:(UIViewController *)page
                    animated:(BOOL)animated {
  events->push_back(std::string("will show ") + [[page title] UTF8String]);
}
- (void)navigationController:(UINavigationController *)stack
       didShowViewController:(UIViewController *)page
                    animated:(BOOL)animated {
  events->push_back(std::string("did show ") + [[page title] UTF8String]);
}
@end

@interface RecordingController (Stack)
- (void)popNow;
- (void)pushNext;
- (void)noteMoves;
@end

static UIViewController *nextPage = nil;  // not owned

@implementation RecordingController (Stack)
- (void)popNow {
  [[self navigationController] popViewControllerAnimated:NO];
}
- (void)pushNext {
  [[self navigationController] pushViewController:nextPage animated:NO];
}
- (void)noteMoves {
  const char *move = "stays";
  if ([self isMovingToParentViewController]) move = "comes";
  if ([self isMovingFromParentViewController]) move = "goes";
  [self note:move animated:NO];
}
@end

namespace {

class UINavigationControllerTest : public ObjCTest {
 protected:
  objcxx::Retained<RecordingController> page(const char *name) {
    auto made = adopt([[RecordingController alloc] initWithName:name events:&events_]);
    [made.get() setTitle:[NSString stringWithUTF8String:name]];
    return made;
  }
  void show() {
    stack_ = adopt([[UINavigationController alloc] initWithRootViewController:a_.get()]);
    window_ = windowShowing(stack_.get());
    events();
  }
  std::string events() { return takeEvents(events_); }

  std::vector<std::string> events_;
  objcxx::Retained<RecordingController> a_ = page("A");
  objcxx::Retained<RecordingController> b_ = page("B");
  objcxx::Retained<RecordingController> c_ = page("C");
  objcxx::Retained<UINavigationController> stack_;
  objcxx::Retained<UIWindow> window_;
};

}  // namespace

TEST_F(UINavigationControllerTest, TheRootAppearsWithTheStack) {
  stack_ = adopt([[UINavigationController alloc] initWithRootViewController:a_.get()]);
  EXPECT_EQ(events(), "");
  window_ = windowShowing(stack_.get());
  EXPECT_EQ(events(), "A loads, A willAppear, A didAppear");
  EXPECT_EQ([a_.get() navigationController], stack_.get());
  EXPECT_EQ([stack_.get() navigationController], nil);
  EXPECT_EQ([[a_.get() view] window], window_.get());
}

TEST_F(UINavigationControllerTest, PushAndPopCallInOrder) {
  show();
  [stack_.get() pushViewController:b_.get() animated:YES];
  EXPECT_EQ(events(),
            "B loads, A willDisappear animated, B willAppear animated, A didDisappear animated, B didAppear animated");
  EXPECT_EQ([stack_.get() topViewController], b_.get());
  EXPECT_OBJC_EQ([stack_.get() viewControllers], (@[ a_.get(), b_.get() ]));
  EXPECT_EQ([[a_.get() view] superview], nil);

  EXPECT_EQ([stack_.get() popViewControllerAnimated:NO], b_.get());
  EXPECT_EQ(events(), "B willDisappear, A willAppear, B didDisappear, A didAppear");
  EXPECT_EQ([b_.get() navigationController], nil);
  EXPECT_EQ([b_.get() parentViewController], nil);
}

TEST_F(UINavigationControllerTest, TheRootStays) {
  show();
  EXPECT_EQ([stack_.get() popViewControllerAnimated:NO], nil);
  EXPECT_EQ([stack_.get() popToRootViewControllerAnimated:NO], nil);
  EXPECT_EQ([stack_.get() popToViewController:a_.get() animated:NO], nil);
  EXPECT_EQ(events(), "");
}

TEST_F(UINavigationControllerTest, PopsSeveralAtOnce) {
  show();
  [stack_.get() pushViewController:b_.get() animated:NO];
  [stack_.get() pushViewController:c_.get() animated:NO];
  events();
  EXPECT_OBJC_EQ([stack_.get() popToRootViewControllerAnimated:NO], (@[ b_.get(), c_.get() ]));
  EXPECT_EQ(events(), "C willDisappear, A willAppear, C didDisappear, A didAppear");
  EXPECT_OBJC_EQ([stack_.get() viewControllers], @[ a_.get() ]);
}

TEST_F(UINavigationControllerTest, WrongStacksRaise) {
  show();
  [stack_.get() pushViewController:b_.get() animated:NO];
  const auto other = adopt([[UINavigationController alloc] init]);
  const auto push = [&](UIViewController *page) {
    return raisedBy([&] { [stack_.get() pushViewController:page animated:NO]; });
  };
  EXPECT_EQ(push(b_.get()), "NSInvalidArgumentException");
  EXPECT_EQ(push(a_.get()), "NSInvalidArgumentException");
  EXPECT_EQ(push(nil), "NSInvalidArgumentException");
  EXPECT_EQ(push(other.get()), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [stack_.get() popToViewController:c_.get() animated:NO]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [stack_.get() setViewControllers:@[ c_.get(), c_.get() ]]; }), "NSInvalidArgumentException");
  EXPECT_OBJC_EQ([stack_.get() viewControllers], (@[ a_.get(), b_.get() ]));
}

TEST_F(UINavigationControllerTest, AWholeStackIsExchanged) {
  show();
  [stack_.get() setViewControllers:@[ b_.get(), c_.get() ] animated:NO];
  EXPECT_EQ(events(), "C loads, A willDisappear, C willAppear, A didDisappear, C didAppear");
  EXPECT_EQ([a_.get() parentViewController], nil);
  EXPECT_EQ([b_.get() navigationController], stack_.get());
  [stack_.get() setViewControllers:@[ c_.get() ] animated:NO];
  EXPECT_EQ(events(), "");
}

TEST_F(UINavigationControllerTest, AStackOffScreenLoadsNothing) {
  stack_ = adopt([[UINavigationController alloc] initWithRootViewController:a_.get()]);
  [stack_.get() pushViewController:b_.get() animated:YES];
  EXPECT_EQ(events(), "");
  EXPECT_EQ([stack_.get() topViewController], b_.get());
  window_ = windowShowing(stack_.get());
  EXPECT_EQ(events(), "B loads, B willAppear, B didAppear");
}

TEST_F(UINavigationControllerTest, APageMayLeaveWhileItAppears) {
  show();
  for (SEL moment : { @selector(viewDidLoad), @selector(viewWillAppear:), @selector(viewDidAppear:) }) {
    const auto page = adopt([[RecordingController alloc] initWithName:"P" events:&events_]);
    [page.get() when:moment send:@selector(popNow) to:page.get()];
    [stack_.get() pushViewController:page.get() animated:NO];
    EXPECT_EQ([stack_.get() topViewController], a_.get());
    EXPECT_EQ([page.get() parentViewController], nil);
    EXPECT_EQ([[a_.get() view] window], window_.get());
    EXPECT_EQ([[page.get() view] superview], nil);
  }
  const std::string all = events();
  EXPECT_TRUE(all.ends_with("P willDisappear, A willAppear, P didDisappear, A didAppear")) << all;
}

TEST_F(UINavigationControllerTest, APageMayPushTheNextWhileItAppears) {
  nextPage = c_.get();
  [a_.get() when:@selector(viewWillAppear:) send:@selector(pushNext) to:a_.get()];
  stack_ = adopt([[UINavigationController alloc] initWithRootViewController:a_.get()]);
  window_ = windowShowing(stack_.get());
  EXPECT_EQ([stack_.get() topViewController], c_.get());
  EXPECT_EQ(events(), "A loads, A willAppear, C loads, A willDisappear, C willAppear, A didDisappear, C didAppear");
}

TEST_F(UINavigationControllerTest, TheDelegateIsTold) {
  const auto delegate = adopt([[StackDelegate alloc] init]);
  delegate.get()->events = &events_;
  show();
  [stack_.get() setDelegate:delegate.get()];
  [stack_.get() pushViewController:b_.get() animated:NO];
  EXPECT_EQ(events(), "B loads, A willDisappear, will show B, B willAppear, A didDisappear, B didAppear, did show B");
}

TEST_F(UINavigationControllerTest, PagesKnowWhetherTheyComeOrGo) {
  show();
  const auto note = [](RecordingController *page, SEL moment) { [page when:moment send:@selector(noteMoves) to:page]; };
  note(a_.get(), @selector(viewWillDisappear:));
  note(b_.get(), @selector(viewWillAppear:));
  [stack_.get() pushViewController:b_.get() animated:NO];
  EXPECT_EQ(events(), "B loads, A willDisappear, A stays, B willAppear, B comes, A didDisappear, B didAppear");
  note(a_.get(), @selector(viewWillAppear:));
  note(b_.get(), @selector(viewWillDisappear:));
  [stack_.get() popViewControllerAnimated:NO];
  EXPECT_EQ(events(), "B willDisappear, B goes, A willAppear, A stays, B didDisappear, A didAppear");
}

TEST_F(UINavigationControllerTest, AlertsAreInFrontOfTheTop) {
  show();
  const auto sheet = page("S");
  EXPECT_EQ([stack_.get() visibleViewController], a_.get());
  [a_.get() presentViewController:sheet.get() animated:NO completion:nil];
  EXPECT_EQ([stack_.get() visibleViewController], sheet.get());
  EXPECT_EQ([stack_.get() topViewController], a_.get());
}

TEST_F(UINavigationControllerTest, TheBarHasTheItemsOfTheStack) {
  show();
  EXPECT_OBJC_EQ([[[stack_.get() navigationBar] topItem] title], @"A");
  EXPECT_EQ([[stack_.get() navigationBar] backItem], nil);
  [stack_.get() pushViewController:b_.get() animated:NO];
  EXPECT_EQ([[stack_.get() navigationBar] topItem], [b_.get() navigationItem]);
  EXPECT_EQ([[stack_.get() navigationBar] backItem], [a_.get() navigationItem]);
}

TEST_F(UINavigationControllerTest, TheBackButtonNamesThePageBelow) {
  show();
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], nil);
  EXPECT_FALSE([stack_.get() sim_tapBack]);
  [stack_.get() pushViewController:b_.get() animated:NO];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], @"A");
  [[a_.get() navigationItem] setBackButtonTitle:@"Home"];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], @"Home");
  [a_.get() setTitle:nil];
  [[a_.get() navigationItem] setBackButtonTitle:nil];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], @"Back");
  const auto item = adopt([[UIBarButtonItem alloc] initWithTitle:@"Up"
                                                           style:UIBarButtonItemStylePlain
                                                          target:nil
                                                          action:nullptr]);
  [[a_.get() navigationItem] setBackBarButtonItem:item.get()];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], @"Up");
  EXPECT_TRUE([stack_.get() sim_tapBack]);
  EXPECT_EQ([stack_.get() topViewController], a_.get());
}

TEST_F(UINavigationControllerTest, TheBackButtonCanBeHidden) {
  show();
  [stack_.get() pushViewController:b_.get() animated:NO];
  UINavigationItem *item = [b_.get() navigationItem];
  [item setHidesBackButton:YES];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], nil);
  EXPECT_FALSE([stack_.get() sim_tapBack]);
  EXPECT_EQ([stack_.get() topViewController], b_.get());
  [item setHidesBackButton:NO];
  const auto cancel = adopt([[UIBarButtonItem alloc] initWithBarButtonSystemItem:UIBarButtonSystemItemCancel
                                                                          target:nil
                                                                          action:nullptr]);
  [item setLeftBarButtonItem:cancel.get()];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], nil);
  [item setLeftItemsSupplementBackButton:YES];
  EXPECT_OBJC_EQ([stack_.get() sim_backTitle], @"A");
}

TEST_F(UINavigationControllerTest, PoppedPagesAreDeallocated) {
  int deaths = 0;
  show();
  for (int round = 0; round < 3; ++round) {
    const auto page = adopt([[RecordingController alloc] initWithName:"P" events:&events_]);
    [page.get() countDeathIn:&deaths];
    [stack_.get() pushViewController:page.get() animated:YES];
    [page.get() navigationItem];
    [stack_.get() popViewControllerAnimated:YES];
  }
  SIMDrainMainQueue();
  drainPool();
  EXPECT_EQ(deaths, 3);
}

TEST_F(UINavigationControllerTest, PoppedPagesAreDeallocatedOffScreenToo) {
  int deaths = 0;
  show();
  {
    const auto page = adopt([[RecordingController alloc] initWithName:"P" events:&events_]);
    [page.get() countDeathIn:&deaths];
    [stack_.get() pushViewController:page.get() animated:NO];
  }
  [window_.get() setHidden:YES];
  [stack_.get() popViewControllerAnimated:NO];
  drainPool();
  EXPECT_EQ(deaths, 1);
  [window_.get() setHidden:NO];
  EXPECT_EQ([[a_.get() view] window], window_.get());
}

TEST_F(UINavigationControllerTest, AStackGoesWithItsPages) {
  int deaths = 0;
  {
    const auto page = adopt([[RecordingController alloc] initWithName:"P" events:&events_]);
    [page.get() countDeathIn:&deaths];
    const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
    const auto window = windowShowing(stack.get());
    drainPool();
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}
