#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UIKit.h>
#include <objcxx/Retained.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

#include <string>

using objcxx::adopt;

@interface BarTarget : NSObject {
 @public
  std::string calls;
}
@end

@implementation BarTarget
- (void)plain {
  calls += "plain ";
}
- (void)withSender:(id)sender {
  calls += sender ? "sender " : "nil ";
}
- (void)withSender:(id)sender event:(UIEvent *)event {
  calls += sender && !event ? "sender+event " : "wrong ";
}
- (void)with:(id)a three:(id)b arguments:(id)c {
  calls += "three ";
}
@end

@interface BarPage : UIViewController {
 @public
  int taps;
}
@end

@implementation BarPage
- (void)tapped {
  ++taps;
}
@end

namespace {

class UIBarButtonItemTest : public ObjCTest {
 protected:
  objcxx::Retained<UIBarButtonItem> item(SEL action) {
    return adopt([[UIBarButtonItem alloc] initWithTitle:@"Go"
                                                  style:UIBarButtonItemStyleBordered
                                                 target:target_.get()
                                                 action:action]);
  }
  objcxx::Retained<BarTarget> target_ = adopt([[BarTarget alloc] init]);
};

}  // namespace

TEST_F(UIBarButtonItemTest, ATapSendsTheActionWithWhatItTakes) {
  EXPECT_TRUE([item(@selector(plain)).get() sim_tap]);
  EXPECT_TRUE([item(@selector(withSender:)).get() sim_tap]);
  EXPECT_TRUE([item(@selector(withSender:event:)).get() sim_tap]);
  EXPECT_FALSE([item(@selector(with:three:arguments:)).get() sim_tap]);
  EXPECT_FALSE([item(nullptr).get() sim_tap]);
  EXPECT_EQ(target_.get()->calls, "plain sender sender+event ");
}

TEST_F(UIBarButtonItemTest, AnActionThatTheTargetLacksRaises) {
  EXPECT_EQ(raisedBy([&] { [item(@selector(popViewControllerAnimated:)).get() sim_tap]; }),
            "NSInvalidArgumentException");
}

TEST_F(UIBarButtonItemTest, ADisabledItemIgnoresTaps) {
  const auto go = item(@selector(plain));
  [go.get() setEnabled:NO];
  EXPECT_FALSE([go.get() sim_tap]);
  EXPECT_EQ(target_.get()->calls, "");
}

TEST_F(UIBarButtonItemTest, WithoutATargetThePageInFrontTakesTheAction) {
  const auto page = adopt([[BarPage alloc] init]);
  const auto stack = adopt([[UINavigationController alloc] initWithRootViewController:page.get()]);
  const auto window = adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
  const auto go = adopt([[UIBarButtonItem alloc] initWithTitle:@"Go"
                                                         style:UIBarButtonItemStylePlain
                                                        target:nil
                                                        action:@selector(tapped)]);
  EXPECT_FALSE([go.get() sim_tap]);
  [window.get() setRootViewController:stack.get()];
  [window.get() makeKeyAndVisible];
  EXPECT_TRUE([go.get() sim_tap]);
  EXPECT_EQ(page.get()->taps, 1);
}

TEST_F(UIBarButtonItemTest, KeepsWhatItWasGiven) {
  const auto go = item(@selector(plain));
  EXPECT_OBJC_EQ([go.get() title], @"Go");
  EXPECT_EQ([go.get() style], UIBarButtonItemStyleBordered);
  EXPECT_EQ([go.get() style], 1);
  EXPECT_EQ([go.get() target], target_.get());
  EXPECT_TRUE(sel_isEqual([go.get() action], @selector(plain)));
  EXPECT_OBJC_EQ([go.get() sim_systemItemName], nil);
  EXPECT_TRUE([go.get() isEnabled]);
}

TEST_F(UIBarButtonItemTest, SystemItemsHaveNames) {
  const auto named = [](UIBarButtonSystemItem which) {
    return [adopt([[UIBarButtonItem alloc] initWithBarButtonSystemItem:which target:nil action:nullptr]).get()
        sim_systemItemName];
  };
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemDone), @"done");
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemAdd), @"add");
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemFixedSpace), @"fixedSpace");
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemTrash), @"trash");
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemUndo), @"undo");
  EXPECT_OBJC_EQ(named(UIBarButtonSystemItemClose), @"close");
  EXPECT_EQ(raisedBy([&] { named((UIBarButtonSystemItem)99); }), "NSInvalidArgumentException");
}

TEST_F(UIBarButtonItemTest, TheFirstOfTheItemsIsTheItem) {
  const auto navigation = adopt([[UINavigationItem alloc] initWithTitle:@"Page"]);
  const auto a = item(nullptr);
  const auto b = item(nullptr);
  EXPECT_OBJC_EQ([navigation.get() rightBarButtonItem], nil);
  [navigation.get() setRightBarButtonItems:@[ a.get(), b.get() ]];
  EXPECT_EQ([navigation.get() rightBarButtonItem], a.get());
  [navigation.get() setRightBarButtonItem:b.get()];
  EXPECT_OBJC_EQ([navigation.get() rightBarButtonItems], @[ b.get() ]);
  [navigation.get() setRightBarButtonItem:nil];
  EXPECT_OBJC_EQ([navigation.get() rightBarButtonItems], nil);
  [navigation.get() setLeftBarButtonItem:a.get() animated:YES];
  EXPECT_OBJC_EQ([navigation.get() leftBarButtonItems], @[ a.get() ]);
  EXPECT_OBJC_EQ([navigation.get() title], @"Page");
}
