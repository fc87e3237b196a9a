// Turning the device and changing its appearance, as the pages of a window hear of it.
#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIWindow+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import <UIKit/TransitionCoordinator.h>

#import "RecordingController.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::takeEvents;
using testing_support::windowShowing;

/// Notes, in a list that all pages of a test share, what it hears of turns, and its width at that moment.
@interface TurningPage : UIViewController {
 @public
  std::vector<std::string> *events;
  std::string name;
  BOOL raises;
  objcxx::Retained<SIMTransitionCoordinator> coordinator;
}
@end

@implementation TurningPage
- (void)note:(const char *)event {
  events->push_back(name + " " + event + " at " + std::to_string((int)[[self view] bounds].size.width));
}
- (void)viewWillTransitionToSize:(CGSize)size
       withTransitionCoordinator:(id<UIViewControllerTransitionCoordinator>)given {
  [super viewWillTransitionToSize:size withTransitionCoordinator:given];
  [self note:("goes to " + std::to_string((int)size.width)).c_str()];
  coordinator = objcxx::share((SIMTransitionCoordinator *)given);
  if (raises) [NSException raise:@"TestException" format:@"on purpose"];
  [given
      animateAlongsideTransition:^(id<UIViewControllerTransitionCoordinatorContext> context) {
        [self note:[context isAnimated] && ![context isCancelled] ? "animates" : "is broken"];
      }
      completion:^(id<UIViewControllerTransitionCoordinatorContext>) {
        [self note:"ends"];
      }];
}
- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  [super traitCollectionDidChange:previous];
  const bool turned = [previous verticalSizeClass] != [[self traitCollection] verticalSizeClass];
  const bool recoloured = [previous userInterfaceStyle] != [[self traitCollection] userInterfaceStyle];
  [self note:turned ? "turned" : recoloured ? "recoloured" : "has other traits"];
}
@end

namespace {

constexpr UIEdgeInsets kSides{0, 47, 21, 47};

class UIWindowScreenTest : public ObjCTest {
 protected:
  void TearDown() override {
    SIMDrainMainQueue();  // What goes along with a turn notes its end there.
    window_ = nullptr;
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    SIMSetUserInterfaceStyle(UIUserInterfaceStyleLight);
    ObjCTest::TearDown();
  }
  objcxx::Retained<TurningPage> page(const char *name) {
    auto made = adopt([[TurningPage alloc] init]);
    made.get()->events = &events_;
    made.get()->name = name;
    return made;
  }
  void lay() { [window_.get() sim_changeScreenToSize:CGSizeMake(844, 390) scale:3 safeArea:kSides]; }

  std::vector<std::string> events_;
  objcxx::Retained<UIWindow> window_;
};

TEST_F(UIWindowScreenTest, APageHearsOfATurnBeforeAndAfterIt) {
  const auto root = page("A");
  window_ = windowShowing(root.get());
  lay();
  EXPECT_EQ(takeEvents(events_), "A goes to 844 at 390, A turned at 844, A animates at 844");
  SIMDrainMainQueue();
  EXPECT_EQ(takeEvents(events_), "A ends at 844");
  EXPECT_EQ([window_.get() safeAreaInsets].left, 47);
}

TEST_F(UIWindowScreenTest, SoDoPagesBelowOthersAndPresentedOnes) {
  const auto below = page("A"), above = page("B"), over = page("C");
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:below.get()]);
  window_ = windowShowing(stack.get());
  [stack.get() pushViewController:above.get() animated:NO];
  [stack.get() presentViewController:over.get() animated:NO completion:nil];
  lay();
  const std::string heard = takeEvents(events_);
  for (const char *part : {"A goes to 844 at 390", "B goes to 844 at 390", "C goes to 844 at 390", "A turned at 390",
                           "B turned at 844", "C turned at 844"}) {
    EXPECT_NE(heard.find(part), std::string::npos) << part << " in " << heard;
  }
}

TEST_F(UIWindowScreenTest, TheSameSizeIsNoTurn) {
  const auto root = page("A");
  window_ = windowShowing(root.get());
  [window_.get() sim_changeScreenToSize:CGSizeMake(390, 844) scale:3 safeArea:UIEdgeInsetsZero];
  EXPECT_EQ(takeEvents(events_), "");
  [window_.get() sim_changeScreenToSize:CGSizeMake(390, 844) scale:2 safeArea:UIEdgeInsetsZero];
  EXPECT_EQ(takeEvents(events_), "A has other traits at 390");
}

TEST_F(UIWindowScreenTest, NoScreenIsNoTurn) {
  const auto root = page("A");
  window_ = windowShowing(root.get());
  [window_.get() sim_changeScreenToSize:CGSizeMake(0, 390) scale:3 safeArea:kSides];
  [window_.get() sim_changeScreenToSize:CGSizeMake(844, 390) scale:3 safeArea:UIEdgeInsetsMake(0, 800, 0, 800)];
  EXPECT_EQ(takeEvents(events_), "");
  EXPECT_EQ([window_.get() bounds].size.width, 390);
}

TEST_F(UIWindowScreenTest, AnExceptionDoesNotHoldTheTurnUp) {
  const auto root = page("A");
  root.get()->raises = YES;
  window_ = windowShowing(root.get());
  EXPECT_EQ(raisedBy([&] { lay(); }), "TestException");
  EXPECT_EQ([[root.get() view] bounds].size.width, 844);
  EXPECT_EQ([[UIScreen mainScreen] bounds].size.width, 844);
}

TEST_F(UIWindowScreenTest, NothingGoesAlongWithATurnThatIsOver) {
  const auto root = page("A");
  window_ = windowShowing(root.get());
  lay();
  takeEvents(events_);
  const auto fail = ^(id<UIViewControllerTransitionCoordinatorContext>) {
    ADD_FAILURE();
  };
  EXPECT_FALSE([root.get()->coordinator.get() animateAlongsideTransition:fail completion:fail]);
  SIMDrainMainQueue();
  EXPECT_EQ(takeEvents(events_), "A ends at 844");
}

TEST_F(UIWindowScreenTest, AnotherAppearanceIsToldWithTheFormerOne) {
  const auto below = page("A"), above = page("B");
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:below.get()]);
  window_ = windowShowing(stack.get());
  [stack.get() pushViewController:above.get() animated:NO];
  [window_.get() sim_changeUserInterfaceStyle:UIUserInterfaceStyleLight];
  EXPECT_EQ(takeEvents(events_), "");
  [window_.get() sim_changeUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(takeEvents(events_), "B recoloured at 390, A recoloured at 390");
  EXPECT_EQ([[UITraitCollection currentTraitCollection] userInterfaceStyle], UIUserInterfaceStyleDark);
}

}  // namespace
