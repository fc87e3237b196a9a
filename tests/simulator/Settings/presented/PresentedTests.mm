// What all that is presented has in common.
#include "simulator/Settings/SessionTest.h"

/// An alert of an app's own.
@interface OwnAlert : UIAlertController
@end

@implementation OwnAlert
@end

namespace {

class PresentedTest : public SessionTest {};

TEST_F(PresentedTest, aSheetTellsThePlaceThatItWasGiven) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  const auto sheet = objcxx::adopt([[UIActivityViewController alloc] initWithActivityItems:@[ @"text" ]
                                                                     applicationActivities:nil]);
  const auto source = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(10, 20, 100, 50)]);
  [[list view] addSubview:source.get()];
  [[sheet.get() popoverPresentationController] setSourceView:source.get()];
  [list presentViewController:sheet.get() animated:NO completion:nil];
  session().refresh();
  const double top =
      -[[list tableView] contentOffset].y;  // The place is one on the screen, and bars lie over the list.
  EXPECT_EQ(screen()["sheet"]["anchor"], Json({10, top + 20, 100, 50}));
  [[sheet.get() popoverPresentationController] setSourceRect:CGRectMake(1, 2, 3, 4)];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["anchor"], Json({11, top + 22, 3, 4}));
  [[sheet.get() popoverPresentationController] setSourceView:nil];
  session().refresh();
  EXPECT_TRUE(screen()["sheet"]["anchor"].is_null());
}

TEST_F(PresentedTest, WhatIsOfNoKindOfItsOwnIsAPage) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  PlainPage *plain = [[[PlainPage alloc] init] autorelease];
  present(list, plain);
  EXPECT_EQ(screen()["sheet"], Json({{"anchor", nullptr},
                                     {"interfaceStyle", nullptr},
                                     {"kind", "page"},
                                     {"title", "PlainPage"},
                                     {"items", Json::array()}}));
  EXPECT_TRUE(screen()["alert"].is_null());
  [plain setTitle:@"Over"];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["title"], "Over");
  for (const char *type : {"tap", "paste"}) expectRefused({{"type", type}, {"id", "item2.0"}}, Outcome::unknown);
  expectRefused({{"type", "set"}, {"id", "item2.0"}, {"value", 1}}, Outcome::unknown);
  expectRefused({{"type", "pick"}, {"path", "a"}}, Outcome::refused);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["sheet"].is_null());
  expectRefused({{"type", "dismiss"}}, Outcome::refused);
}

TEST_F(PresentedTest, AnAlertOfAnAppsOwnIsAnAlertAndANavigationControllerAPage) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  OwnAlert *alert = [OwnAlert alertControllerWithTitle:@"Own" message:nil preferredStyle:UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:@"OK" style:UIAlertActionStyleCancel handler:nil]];
  ASSERT_TRUE([alert isKindOfClass:[OwnAlert class]]);
  present(list, alert);
  EXPECT_EQ(screen()["alert"]["title"], "Own");
  EXPECT_TRUE(screen()["sheet"].is_null());
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  UINavigationController *pages =
      [[[UINavigationController alloc] initWithRootViewController:[[[PlainPage alloc] init] autorelease]] autorelease];
  present(list, pages);
  EXPECT_EQ(screen()["sheet"]["kind"], "page") << "a photo picker is one of its subclasses";
  EXPECT_EQ(screen()["sheet"]["title"], "UINavigationController");
  [[pages topViewController] setTitle:@"Welcome"];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["title"], "Welcome") << "what its bar shows";
}

}  // namespace
