// A menu over a page: its description, what taps on it do, what it is shown beside.
#import <UIKit/UIControl+Sim.h>

#include "simulator/Settings/SessionTest.h"

@interface MenuCell : UITableViewCell
@end

@implementation MenuCell
@end

/// A list whose rows, of a class of their own, have menus.
@interface MenuRowPage : ListPage
@end

@implementation MenuRowPage
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  return [[[MenuCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil] autorelease];
}
- (UIContextMenuConfiguration *)tableView:(UITableView *)tableView
    contextMenuConfigurationForRowAtIndexPath:(NSIndexPath *)path
                                        point:(CGPoint)point {
  return [UIContextMenuConfiguration configurationWithIdentifier:nil
                                                 previewProvider:nil
                                                  actionProvider:^(NSArray *) {
                                                    UIAction *action = [UIAction actionWithTitle:@"Copy"
                                                                                           image:nil
                                                                                      identifier:nil
                                                                                         handler:^(UIAction *){
                                                                                         }];
                                                    return [UIMenu menuWithTitle:@"" children:@[ action ]];
                                                  }];
}
@end

namespace {

class MenuTest : public SessionTest {
 protected:
  UIAction *action(NSString *title, UIMenuElementAttributes attributes = 0) {
    std::string *chosen = &chosen_;
    UIAction *made = [UIAction actionWithTitle:title
                                         image:nil
                                    identifier:nil
                                       handler:^(UIAction *each) {
                                         *chosen += [[each title] UTF8String];
                                       }];
    [made setAttributes:attributes];
    return made;
  }
  static UIMenu *menu(NSString *title, NSArray *children, UIMenuOptions options = 0) {
    return [UIMenu menuWithTitle:title image:nil identifier:nil options:options children:children];
  }
  /// A page whose bar button opens `menu`; its id.
  std::string startBarButton(UIMenu *menu) {
    page_ = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"a", @"b" ] ]] autorelease];
    [[page_ navigationItem] setRightBarButtonItem:[[[UIBarButtonItem alloc] initWithTitle:@"More"
                                                                                     menu:menu] autorelease]];
    start(page_);
    return page()["buttons"][0]["id"];
  }
  UIButton *button(UIMenu *menu) {
    UIButton *made = [UIButton buttonWithType:UIButtonTypeSystem];
    [made setFrame:CGRectMake(10, 5, 80, 34)];
    [made setTitle:@"Choose" forState:UIControlStateNormal];
    [made setMenu:menu];
    [made setShowsMenuAsPrimaryAction:YES];
    return made;
  }
  Json shown() const { return screen()["menu"]; }
  Json item(std::size_t level, std::size_t group, std::size_t at) const {
    return shown()["levels"][level]["groups"][group]["items"][at];
  }
  std::string chosen() { return std::exchange(chosen_, {}); }

  ListPage *page_ = nil;
  std::string chosen_;
};

TEST_F(MenuTest, ABarButtonSaysHowItsMenuOpens) {
  const std::string more = startBarButton(menu(@"Presets", @[ action(@"a") ]));
  EXPECT_EQ(page()["buttons"][0]["menu"], "tap");
  EXPECT_TRUE(shown().is_null());
  EXPECT_EQ(tap(more), Outcome::done);
  EXPECT_EQ(shown()["source"], Json({{"id", more}, {"rect", nullptr}}));
  EXPECT_EQ(shown()["appearance"], "compact");
  EXPECT_TRUE(shown()["anchor"].is_null());
  EXPECT_EQ(shown()["levels"].size(), 1u);
  EXPECT_EQ(shown()["levels"][0]["title"], "Presets");
  EXPECT_TRUE(shown()["levels"][0]["id"].is_null());
  EXPECT_TRUE(screen()["sheet"].is_null());
  EXPECT_TRUE(screen()["alert"].is_null());
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::unknown) << "the page is covered";
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(shown().is_null());
  UIBarButtonItem *bar = [[page_ navigationItem] rightBarButtonItem];
  UIAction *taps = action(@"tap");
  [bar setPrimaryAction:taps];
  session().refresh();
  EXPECT_EQ(page()["buttons"][0]["menu"], "press");
  EXPECT_EQ(tap(more), Outcome::done);
  EXPECT_EQ(chosen(), "tap");
  EXPECT_TRUE(shown().is_null());
  EXPECT_EQ(send({{"type", "gesture"}, {"kind", "press"}, {"id", more}}), Outcome::done);
  EXPECT_FALSE(shown().is_null());
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  expectRefused({{"type", "gesture"}, {"kind", "pan"}, {"by", {1, 1}}, {"id", more}}, Outcome::refused);
  [bar setMenu:nil];
  session().refresh();
  EXPECT_TRUE(page()["buttons"][0]["menu"].is_null());
  expectRefused({{"type", "gesture"}, {"kind", "press"}, {"id", more}}, Outcome::refused);
}

TEST_F(MenuTest, ElementsSayWhatTheyAre) {
  UIAction *on = action(@"On");
  [on setState:UIMenuElementStateOn];
  [on setSubtitle:@"Since today"];
  [on setDiscoverabilityTitle:@"Turns it on"];
  [on setImage:[UIImage systemImageNamed:@"trash"]];
  UIAction *red = action(@"Red", UIMenuElementAttributesDestructive | UIMenuElementAttributesDisabled);
  [red setState:UIMenuElementStateMixed];
  UIMenu *inner = menu(@"Inner", @[ action(@"x") ], UIMenuOptionsDestructive);
  UIAction *remove = action(@"Remove", UIMenuElementAttributesDestructive);
  [remove setImage:[UIImage systemImageNamed:@"trash"]];
  UIMenu *group = menu(@"Group", @[ red, inner, remove ], UIMenuOptionsDisplayInline);
  EXPECT_EQ(tap(startBarButton(menu(@"", @[ on, group ]))), Outcome::done);
  EXPECT_TRUE(shown()["levels"][0]["title"].is_null());
  const Json groups = shown()["levels"][0]["groups"];
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_TRUE(groups[0]["title"].is_null());
  EXPECT_EQ(groups[1]["title"], "Group");
  Json first = groups[0]["items"][0];
  EXPECT_EQ(first["image"]["tint"], Json({{"light", "#000000ff"}, {"dark", "#ffffffff"}}));
  first.erase("image");
  EXPECT_EQ(first, Json({{"id", first["id"]},
                         {"kind", "action"},
                         {"title", "On"},
                         {"subtitle", "Since today"},
                         {"state", "on"},
                         {"enabled", true},
                         {"destructive", false},
                         {"discoverabilityTitle", "Turns it on"}}));
  const Json second = groups[1]["items"][0];
  EXPECT_EQ(second["state"], "mixed");
  EXPECT_EQ(second["enabled"], false);
  EXPECT_EQ(second["destructive"], true);
  EXPECT_TRUE(second["image"].is_null());
  EXPECT_EQ(groups[1]["items"][2]["image"]["tint"]["light"], "#ff3b30ff");
  EXPECT_EQ(groups[1]["items"][1]["kind"], "menu");
  EXPECT_EQ(groups[1]["items"][1]["enabled"], true);
  EXPECT_EQ(groups[1]["items"][1]["destructive"], true);
  expectRefused({{"type", "tap"}, {"id", second["id"]}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", "item99.0"}}, Outcome::unknown);
  const std::string id = first["id"];
  expectRefused({{"type", "tap"}, {"id", id.substr(0, id.find('.')) + ".77"}}, Outcome::unknown);
  expectRefused({{"type", "tap"}, {"id", "action" + id.substr(4)}}, Outcome::unknown);
  EXPECT_EQ(tap(id), Outcome::done);
  EXPECT_EQ(chosen(), "On");
  EXPECT_TRUE(shown().is_null());
  EXPECT_EQ(tap(id), Outcome::unknown) << "it is gone";
}

TEST_F(MenuTest, MenusInMenusAreLevels) {
  EXPECT_EQ(tap(startBarButton(menu(@"", @[ action(@"a"), menu(@"Inner", @[ action(@"x") ]) ]))), Outcome::done);
  const std::string first = item(0, 0, 0)["id"];
  const std::string inner = item(0, 0, 1)["id"];
  EXPECT_EQ(tap(inner), Outcome::done);
  ASSERT_EQ(shown()["levels"].size(), 2u);
  EXPECT_EQ(shown()["levels"][1]["id"], inner);
  EXPECT_EQ(shown()["levels"][1]["title"], "Inner");
  expectRefused({{"type", "tap"}, {"id", first}}, Outcome::refused);
  EXPECT_EQ(tap(inner), Outcome::done);
  EXPECT_EQ(shown()["levels"].size(), 1u);
  EXPECT_EQ(tap(inner), Outcome::done);
  EXPECT_EQ(tap(item(1, 0, 0)["id"]), Outcome::done);
  EXPECT_EQ(chosen(), "x");
  EXPECT_TRUE(shown().is_null());
}

TEST_F(MenuTest, AnElementThatIsStillToComeIsLoading) {
  __block void (^answer)(NSArray<UIMenuElement *> *) = nil;
  UIDeferredMenuElement *later =
      [UIDeferredMenuElement elementWithProvider:^(void (^completion)(NSArray<UIMenuElement *> *)) {
        answer = [[completion copy] autorelease];
      }];
  EXPECT_EQ(tap(startBarButton(menu(@"", @[ later ]))), Outcome::done);
  EXPECT_EQ(item(0, 0, 0)["kind"], "loading");
  EXPECT_EQ(item(0, 0, 0)["enabled"], false);
  expectRefused({{"type", "tap"}, {"id", item(0, 0, 0)["id"]}}, Outcome::refused);
  answer(@[ action(@"came") ]);
  session().refresh();
  EXPECT_EQ(tap(item(0, 0, 0)["id"]), Outcome::done);
  EXPECT_EQ(chosen(), "came");
}

TEST_F(MenuTest, AButtonInARowOpensItsMenuBesideItself) {
  ControlPage *list = [[[ControlPage alloc] initWithTitle:@"Menu" sections:@[ @[ @"row" ] ]] autorelease];
  list->control = objcxx::share<UIView>(button(menu(@"", @[ action(@"a") ])));
  start(list);
  EXPECT_EQ(row(0, 0)["accessoryButton"]["menu"], true);
  EXPECT_EQ(send({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "button"}}), Outcome::done);
  const Json source = shown()["source"];
  EXPECT_EQ(source["id"], rowId(0, 0));
  EXPECT_EQ(source["rect"][2], 80);
  EXPECT_GT(source["rect"][0], 200) << "at the row's end";
  EXPECT_EQ(calls(list), "") << "the row itself is not tapped";
  EXPECT_EQ(tap(item(0, 0, 0)["id"]), Outcome::done);
  EXPECT_EQ(chosen(), "a");
}

TEST_F(MenuTest, AButtonInAHeaderOpensItsMenu) {
  const auto header = view(320, 60);
  [header.get() addSubview:button(menu(@"", @[ action(@"a") ]))];
  const Json described = describedView(header.get())["views"][0];
  EXPECT_EQ(described["control"]["menu"], true);
  EXPECT_EQ(tap(described["id"]), Outcome::done);
  EXPECT_EQ(shown()["source"], Json({{"id", described["id"]}, {"rect", {0, 0, 80, 34}}}));
  EXPECT_EQ(shown()["anchor"].size(), 4u);
}

TEST_F(MenuTest, AButtonInTheBarOpensItsMenuBesideTheBarButton) {
  ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:@[ @[ @"row" ] ]] autorelease];
  UIView *custom = button(menu(@"", @[ action(@"a") ]));
  [[list navigationItem] setRightBarButtonItem:[[[UIBarButtonItem alloc] initWithCustomView:custom] autorelease]];
  start(list);
  const std::string place = page()["buttons"][0]["id"];
  EXPECT_EQ(tap(place), Outcome::done);
  EXPECT_EQ(shown()["source"], Json({{"id", place}, {"rect", nullptr}}));
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  [[list navigationItem] setRightBarButtonItem:nil];
  const auto around = view(100, 40);
  [around.get() addSubview:custom];
  [[list navigationItem] setRightBarButtonItem:[[[UIBarButtonItem alloc] initWithCustomView:around.get()] autorelease]];
  session().refresh();
  const std::string outer = page()["buttons"][0]["id"];
  ASSERT_TRUE([(UIControl *)custom sim_tapByUser]);
  session().refresh();
  EXPECT_EQ(shown()["source"], Json({{"id", outer}, {"rect", nullptr}})) << "deep in the bar button's view";
}

TEST_F(MenuTest, TheMenuOfABarButtonThatHasGoneIsBesideNothing) {
  EXPECT_EQ(tap(startBarButton(menu(@"", @[ action(@"a") ]))), Outcome::done);
  [[page_ navigationItem] setRightBarButtonItem:nil];
  session().refresh();
  EXPECT_TRUE(shown()["source"].is_null());
  EXPECT_EQ(tap(item(0, 0, 0)["id"]), Outcome::done);
  EXPECT_EQ(chosen(), "a");
}

TEST_F(MenuTest, AMenuOpensOverWhatTheFirstTouchOfItsButtonPresented) {
  UIButton *made = button(menu(@"", @[ action(@"a") ]));
  const auto header = view(320, 60);
  [header.get() addSubview:made];
  const std::string place = describedView(header.get())["views"][0]["id"];
  const auto page = objcxx::adopt([[PlainPage alloc] init]);
  __block UIViewController *root = [[[UIApplication sharedApplication] keyWindow] rootViewController];  // Not retained.
  [made addAction:[UIAction actionWithTitle:@""
                                      image:nil
                                 identifier:nil
                                    handler:^(UIAction *) {
                                      [root presentViewController:page.get() animated:NO completion:nil];
                                    }]
      forControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(tap(place), Outcome::done);
  EXPECT_EQ(shown()["source"], Json({{"id", place}, {"rect", {0, 0, 80, 34}}}));
  EXPECT_EQ(tap(item(0, 0, 0)["id"]), Outcome::done);
  EXPECT_EQ(screen()["sheet"]["kind"], "page");
}

TEST_F(MenuTest, AFingerThatStaysOpensTheMenuOfAView) {
  const auto header = view(320, 60);
  UIButton *made = button(menu(@"", @[ action(@"a") ]));
  [made setShowsMenuAsPrimaryAction:NO];
  [header.get() addSubview:made];
  const Json described = describedView(header.get());
  EXPECT_EQ(described["touchable"], true);
  const Json press{{"type", "gesture"}, {"kind", "press"}, {"id", described["id"]}, {"at", {20, 20}}};
  EXPECT_EQ(send(press), Outcome::done);
  EXPECT_EQ(item(0, 0, 0)["title"], "a");
}

TEST_F(MenuTest, ARowOpensItsMenuBesideItselfAndTheRestStepsBack) {
  MenuRowPage *list = [[[MenuRowPage alloc] initWithTitle:@"Menu" sections:@[ @[ @"a", @"b" ] ]] autorelease];
  start(list);
  EXPECT_EQ(send({{"type", "gesture"}, {"kind", "press"}, {"id", rowId(0, 1)}}), Outcome::done);
  EXPECT_EQ(shown()["appearance"], "rich");
  EXPECT_EQ(shown()["source"]["id"], rowId(0, 1));
  EXPECT_EQ(item(0, 0, 0)["title"], "Copy");
}

TEST_F(MenuTest, SymbolsAreOfTheSizeOfTheText) {
  UIAction *trash = action(@"Trash");
  [trash setImage:[UIImage systemImageNamed:@"trash"]];
  EXPECT_EQ(tap(startBarButton(menu(@"", @[ trash ]))), Outcome::done);
  UIImageSymbolConfiguration *body = [UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleBody
                                                                                      scale:UIImageSymbolScaleMedium];
  EXPECT_EQ(item(0, 0, 0)["image"]["width"], [[UIImage systemImageNamed:@"trash" withConfiguration:body] size].width);
}

}  // namespace
