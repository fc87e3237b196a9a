// How the looks of bars, and light and dark, are described.
#import <UIKit/UIBarAppearance+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class BarLookTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    list_ = startList(@[ @[ @"Row" ] ]);
    bar_ = [[list_ navigationController] navigationBar];
  }

  Json standard() {
    session().refresh();
    return page()["bar"]["standard"];
  }
  Json edge() {
    session().refresh();
    return page()["bar"]["scrollEdge"];
  }

  ListPage *list_ = nil;        // Not owned.
  UINavigationBar *bar_ = nil;  // Not owned.
};

NSDictionary *inColor(UIColor *color) { return @{NSForegroundColorAttributeName : color}; }

TEST_F(BarLookTest, theSystemsLookIsBlurredAndClearAtTheEdge) {
  const Json none{{"normal", nullptr}, {"highlighted", nullptr}, {"disabled", nullptr}, {"offset", Json({0, 0})}};
  EXPECT_EQ(standard(), Json({{"color", nullptr},
                              {"blur", true},
                              {"image", nullptr},
                              {"imageMode", "scaleToFill"},
                              {"clear", false},
                              {"shadow", true},
                              {"shadowColor", nullptr},
                              {"shadowImage", nullptr},
                              {"title", nullptr},
                              {"titleOffset", Json({0, 0})},
                              {"largeTitle", nullptr},
                              {"button", none},
                              {"doneButton", none},
                              {"backButton", none}}));
  EXPECT_EQ(edge()["clear"], true);
  EXPECT_EQ(edge()["blur"], false);
  EXPECT_EQ(edge()["shadow"], false);
}

TEST_F(BarLookTest, aLookHasItsColoursFontsPicturesAndOffsets) {
  const auto look = objcxx::adopt([[UINavigationBarAppearance alloc] init]);
  [look.get() configureWithOpaqueBackground];
  [look.get() setBackgroundColor:[UIColor redColor]];
  [look.get() setBackgroundImage:picture(8)];
  [look.get() setBackgroundImageContentMode:UIViewContentModeTop];
  [look.get() setShadowColor:[UIColor greenColor]];
  [look.get() setShadowImage:picture(3)];
  [look.get() setTitleTextAttributes:@{
    NSForegroundColorAttributeName : [UIColor blueColor],
    NSFontAttributeName : [UIFont italicSystemFontOfSize:21]
  }];
  [look.get() setTitlePositionAdjustment:UIOffsetMake(2, 3)];
  [look.get() setLargeTitleTextAttributes:inColor([UIColor blackColor])];
  [[[look.get() buttonAppearance] normal] setTitleTextAttributes:inColor([UIColor redColor])];
  [[[look.get() buttonAppearance] normal] setTitlePositionAdjustment:UIOffsetMake(4, 5)];
  [[[look.get() doneButtonAppearance] disabled] setTitleTextAttributes:inColor([UIColor greenColor])];
  [[[look.get() backButtonAppearance] highlighted] setTitleTextAttributes:inColor([UIColor blueColor])];
  [[list_ navigationItem] setStandardAppearance:look.get()];

  const Json described = standard();
  EXPECT_EQ(described["color"], "#ff0000ff");
  EXPECT_EQ(described["blur"], false);
  EXPECT_EQ(described["image"]["width"], 8);
  EXPECT_EQ(described["imageMode"], "top");
  EXPECT_EQ(described["shadowColor"], "#00ff00ff");
  EXPECT_EQ(described["shadowImage"]["width"], 3);
  EXPECT_EQ(described["title"]["color"], "#0000ffff");
  EXPECT_EQ(described["title"]["fontSize"], 21);
  EXPECT_EQ(described["title"]["fontWeight"], 400);
  EXPECT_EQ(described["title"]["italic"], true);
  EXPECT_EQ(described["titleOffset"], Json({2, 3}));
  EXPECT_EQ(described["largeTitle"], Json({{"color", "#000000ff"}}));
  EXPECT_EQ(described["button"]["normal"]["color"], "#ff0000ff");
  EXPECT_EQ(described["button"]["offset"], Json({4, 5}));
  EXPECT_EQ(described["doneButton"]["disabled"]["color"], "#00ff00ff");
  EXPECT_EQ(described["backButton"]["highlighted"]["color"], "#0000ffff");
  EXPECT_EQ(page()["bar"]["titleColor"], "#0000ffff");
  EXPECT_EQ(edge()["clear"], true);
}

TEST_F(BarLookTest, attributesThatAreNeitherColourNorFontAreLeftOut) {
  [bar_ setTitleTextAttributes:@{NSForegroundColorAttributeName : @"red", NSFontAttributeName : @12}];
  session().refresh();
  EXPECT_EQ(titles(), "/List");
  EXPECT_EQ(page()["bar"]["standard"]["title"], nullptr);
  EXPECT_EQ(page()["bar"]["titleColor"], nullptr);
}

TEST_F(BarLookTest, aButtonHasAttributesOfItsOwn) {
  const auto button = objcxx::adopt([[UIBarButtonItem alloc] initWithTitle:@"Go"
                                                                     style:UIBarButtonItemStylePlain
                                                                    target:nil
                                                                    action:nullptr]);
  [[list_ navigationItem] setRightBarButtonItem:button.get()];
  session().refresh();
  EXPECT_EQ(page()["buttons"][0]["titleLook"], nullptr);
  [button.get() setTitleTextAttributes:inColor([UIColor redColor]) forState:UIControlStateNormal];
  [button.get() setTitleTextAttributes:inColor([UIColor blueColor]) forState:UIControlStateHighlighted];
  [button.get() setTitleTextAttributes:inColor([UIColor greenColor]) forState:UIControlStateDisabled];
  session().refresh();
  const Json look = page()["buttons"][0]["titleLook"];
  EXPECT_EQ(look["normal"]["color"], "#ff0000ff");
  EXPECT_EQ(look["highlighted"]["color"], "#0000ffff");
  EXPECT_EQ(look["disabled"]["color"], "#00ff00ff");
}

TEST_F(BarLookTest, lightAndDarkAreToldWhereTheyAreSet) {
  [[list_ view] setOverrideUserInterfaceStyle:UIUserInterfaceStyleUnspecified];
  session().refresh();
  EXPECT_EQ(page()["interfaceStyle"], nullptr);
  EXPECT_EQ(page()["bar"]["interfaceStyle"], nullptr);
  EXPECT_EQ(row(0, 0)["interfaceStyle"], nullptr);

  [list_ setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  session().refresh();
  EXPECT_EQ(page()["interfaceStyle"], "dark");
  EXPECT_EQ(page()["bar"]["interfaceStyle"], nullptr);
  [[list_ navigationController] setOverrideUserInterfaceStyle:UIUserInterfaceStyleLight];
  session().refresh();
  EXPECT_EQ(page()["interfaceStyle"], "dark");
  EXPECT_EQ(page()["bar"]["interfaceStyle"], "light");
  [bar_ setBarStyle:UIBarStyleBlack];
  session().refresh();
  EXPECT_EQ(page()["bar"]["interfaceStyle"], "dark");
}

TEST_F(BarLookTest, aViewTellsItsOwnStyleOnly) {
  const auto header = view(100, 40);
  const auto card = view(50, 20);
  [header.get() addSubview:card.get()];
  [card.get() setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  [[list_ tableView] setTableHeaderView:header.get()];
  session().refresh();
  EXPECT_EQ(page()["headerView"]["interfaceStyle"], nullptr);
  EXPECT_EQ(page()["headerView"]["views"][0]["interfaceStyle"], "dark");
}

TEST_F(BarLookTest, anAlertTellsItsStyle) {
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Alert"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert setOverrideUserInterfaceStyle:UIUserInterfaceStyleDark];
  [list_ presentViewController:alert animated:NO completion:nil];
  session().refresh();
  EXPECT_EQ(screen()["alert"]["interfaceStyle"], "dark");
}

}  // namespace
