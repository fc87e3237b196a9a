// Alerts and action sheets: shown, answered, their fields edited, dismissed.
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class AlertTest : public SessionTest {
 protected:
  UIAlertController *presentAlert(ListPage *page, UIAlertControllerStyle style = UIAlertControllerStyleAlert) {
    UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Sure?"
                                                                   message:@"Really"
                                                            preferredStyle:style];
    [alert addAction:[UIAlertAction actionWithTitle:@"Do"
                                              style:UIAlertActionStyleDestructive
                                            handler:^(UIAlertAction *) {
                                              [page->calls.get() addObject:@"do"];
                                            }]];
    [alert addAction:[UIAlertAction actionWithTitle:@"Cancel"
                                              style:UIAlertActionStyleCancel
                                            handler:^(UIAlertAction *) {
                                              [page->calls.get() addObject:@"cancel"];
                                            }]];
    if (style == UIAlertControllerStyleAlert) {
      [alert addTextFieldWithConfigurationHandler:^(UITextField *field) {
        [field setPlaceholder:@"Name"];
      }];
    }
    [page presentViewController:alert animated:YES completion:nil];
    session().refresh();
    return alert;
  }
  std::string actionId(std::size_t index) { return screen()["alert"]["actions"][index].value("id", ""); }
};

TEST_F(AlertTest, TheReturnKeyReachesAField) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UITextField *field = [[presentAlert(page) textFields] objectAtIndex:0];
  [field addTarget:page action:@selector(changed:) forControlEvents:UIControlEventEditingDidEndOnExit];
  const std::string id = screen()["alert"]["fields"][0]["id"];
  EXPECT_EQ(set(id, "left"), Outcome::done);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(send({{"type", "set"}, {"id", id}, {"value", "returned"}, {"return", true}}), Outcome::done);
  EXPECT_EQ(calls(page), "changed");
  EXPECT_OBJC_EQ([field text], @"returned");
  expectRefused({{"type", "set"}, {"id", actionId(0)}, {"value", "x"}, {"return", true}}, Outcome::unknown);
}

TEST_F(AlertTest, AnAlertCoversThePage) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  [page setEditing:YES animated:NO];
  session().refresh();
  const std::string covered = rowId(0, 0);
  presentAlert(page);
  expectRefused({{"type", "tap"}, {"id", covered}}, Outcome::unknown);
  expectRefused({{"type", "set"}, {"id", covered}, {"value", true}}, Outcome::unknown);
  expectRefused({{"type", "swipe"}, {"id", covered}}, Outcome::unknown);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 1}}}, Outcome::unknown);
  expectRefused({{"type", "pick"}, {"path", "/a"}}, Outcome::refused);
  EXPECT_EQ(calls(page), "");
}

TEST_F(AlertTest, ActionsOfAlertsRunAndTheAlertGoes) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  presentAlert(page);
  const Json alert = screen()["alert"];
  EXPECT_EQ(alert["title"], "Sure?");
  EXPECT_EQ(alert["message"], "Really");
  EXPECT_EQ(alert["style"], "alert");
  EXPECT_EQ(alert["actions"][0]["style"], "destructive");
  EXPECT_EQ(alert["actions"][1]["style"], "cancel");
  const std::string first = actionId(0);
  expectRefused({{"type", "tap"}, {"id", first.substr(0, first.size() - 1) + "2"}}, Outcome::unknown);
  EXPECT_EQ(tap(first), Outcome::done);
  EXPECT_EQ(calls(page), "do");
  EXPECT_TRUE(screen()["alert"].is_null());
  expectRefused({{"type", "tap"}, {"id", first}}, Outcome::unknown);

  presentAlert(page);
  EXPECT_NE(actionId(0), first);  // Another alert has other ids.
}

TEST_F(AlertTest, DisabledActionsAreRefused) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  [[[alert actions] objectAtIndex:0] setEnabled:NO];
  session().refresh();
  EXPECT_EQ(screen()["alert"]["actions"][0]["enabled"], false);
  expectRefused({{"type", "tap"}, {"id", actionId(0)}}, Outcome::refused);
}

TEST_F(AlertTest, ThePasteboardIsPastedIntoFields) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  presentAlert(page);
  const std::string field = screen()["alert"]["fields"][0]["id"];
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:nil];
  expectRefused({{"type", "paste"}, {"id", field}}, Outcome::refused);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"Zoé"];
  EXPECT_EQ(set(field, "I am "), Outcome::done);
  EXPECT_EQ(send({{"type", "paste"}, {"id", field}}), Outcome::done);
  EXPECT_EQ(screen()["alert"]["fields"][0]["value"], "I am Zoé");
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::unknown);
  expectRefused({{"type", "paste"}}, Outcome::malformed);
  expectRefused({{"type", "paste"}, {"id", actionId(0)}}, Outcome::unknown);
}

TEST_F(AlertTest, OfALongTextTheScreenHasTheBeginning) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  const std::string field = screen()["alert"]["fields"][0]["id"];
  const std::string longest(65'536, 'x');
  EXPECT_EQ(set(field, longest), Outcome::done);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest);
  EXPECT_FALSE(screen()["alert"]["fields"][0].contains("valueLength"));
  EXPECT_EQ(set(field, longest + "y"), Outcome::done);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest);
  EXPECT_EQ(screen()["alert"]["fields"][0]["valueLength"], 65'537);
  EXPECT_EQ([[[[alert textFields] objectAtIndex:0] text] length], 65'537u) << "the field itself has it all";
  // The surrogate pair that stands across the limit goes as a whole.
  EXPECT_EQ(set(field, longest.substr(1) + "\U0001F600"), Outcome::done);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest.substr(1));
  EXPECT_EQ(screen()["alert"]["fields"][0]["valueLength"], 65'537);
}

TEST_F(AlertTest, FieldsOfAlertsAreSet) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  const Json field = screen()["alert"]["fields"][0];
  EXPECT_EQ(field["placeholder"], "Name");
  EXPECT_EQ(field["value"], "");
  EXPECT_EQ(set(field["id"], "Zoé"), Outcome::done);
  EXPECT_EQ(screen()["alert"]["fields"][0]["value"], "Zoé");
  EXPECT_OBJC_EQ([[[alert textFields] objectAtIndex:0] text], @"Zoé");
  expectRefused({{"type", "set"}, {"id", field["id"]}, {"value", 3}}, Outcome::refused);
  expectRefused({{"type", "set"}, {"id", field["id"].get<std::string>() + "1"}, {"value", "x"}}, Outcome::unknown);
  expectRefused({{"type", "tap"}, {"id", field["id"]}}, Outcome::unknown);
}

TEST_F(AlertTest, DismissCancels) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "dismiss"}}, Outcome::refused);
  presentAlert(page);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  presentAlert(page, UIAlertControllerStyleActionSheet);
  EXPECT_EQ(screen()["alert"]["style"], "actionSheet");
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(calls(page), "cancel,cancel");

  PlainPage *plain = [[[PlainPage alloc] init] autorelease];
  [plain setTitle:@"Over"];
  [page presentViewController:plain animated:YES completion:nil];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["kind"], "page");
  EXPECT_EQ(screen()["sheet"]["title"], "Over");
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}}, Outcome::unknown);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(AlertTest, AnAlertWithoutACancelActionCannotBeDismissed) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"x"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:@"OK" style:UIAlertActionStyleDefault handler:nil]];
  [page presentViewController:alert animated:YES completion:nil];
  session().refresh();
  expectRefused({{"type", "dismiss"}}, Outcome::refused);
}

TEST_F(AlertTest, AnActionSheetAndTheStylesOfActionsAreNamed) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page, UIAlertControllerStyleActionSheet);
  [alert addAction:[UIAlertAction actionWithTitle:@"Plain" style:UIAlertActionStyleDefault handler:nil]];
  session().refresh();
  EXPECT_EQ(screen()["alert"]["style"], "actionSheet");
  EXPECT_EQ(screen()["alert"]["actions"][2]["style"], "default");
  EXPECT_EQ(screen()["alert"]["actions"][2]["preferred"], false);
  EXPECT_EQ(screen()["alert"]["fields"], Json::array());
  EXPECT_TRUE(screen()["alert"]["anchor"].is_null());
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(AlertTest, EachFieldHasItsOwnLookAndName) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Sign in"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert addTextFieldWithConfigurationHandler:nil];
  [alert addTextFieldWithConfigurationHandler:^(UITextField *field) {
    [field setSecureTextEntry:YES];
    [field setClearButtonMode:UITextFieldViewModeWhileEditing];
    [field setText:@"old"];
  }];
  UIAlertAction *sign = [UIAlertAction actionWithTitle:@"Sign in" style:UIAlertActionStyleDefault handler:nil];
  [alert addAction:[UIAlertAction actionWithTitle:@"Later" style:UIAlertActionStyleDefault handler:nil]];
  [alert addAction:sign];
  [alert setPreferredAction:sign];
  present(page, alert);
  const Json described = screen()["alert"];
  EXPECT_TRUE(described["message"].is_null());
  const Json plain = described["fields"][0];
  const Json secret = described["fields"][1];
  EXPECT_EQ(
      plain,
      Json({{"id", plain["id"]}, {"placeholder", nullptr}, {"value", ""}, {"secure", false}, {"clearButton", false}}));
  EXPECT_EQ(
      secret,
      Json(
          {{"id", secret["id"]}, {"placeholder", nullptr}, {"value", "old"}, {"secure", true}, {"clearButton", true}}));
  EXPECT_EQ(described["actions"][0]["title"], "Later");
  EXPECT_EQ(described["actions"][0]["preferred"], false);
  EXPECT_EQ(described["actions"][1]["title"], "Sign in");
  EXPECT_EQ(described["actions"][1]["preferred"], true);
  EXPECT_EQ(set(secret["id"], "new"), Outcome::done);
  EXPECT_EQ(screen()["alert"]["fields"][0]["value"], "");
  EXPECT_EQ(screen()["alert"]["fields"][1]["value"], "new");
  EXPECT_EQ(send({{"type", "clear"}, {"id", secret["id"]}}), Outcome::done);
  EXPECT_EQ(screen()["alert"]["fields"][1]["value"], "");
  expectRefused({{"type", "clear"}, {"id", plain["id"]}}, Outcome::refused);
  expectRefused({{"type", "set"}, {"id", plain["id"]}, {"value", "x"}, {"finished", false}}, Outcome::refused);
  std::string beyond = secret["id"];
  beyond.back() = '2';
  for (const char *type : {"set", "paste", "clear"}) {
    expectRefused({{"type", type}, {"id", beyond}, {"value", "x"}}, Outcome::unknown);
  }
}

TEST_F(AlertTest, ACancelActionThatIsDisabledKeepsTheAlert) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  [[[alert actions] objectAtIndex:1] setEnabled:NO];
  session().refresh();
  expectRefused({{"type", "dismiss"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "The cancel action is disabled.");
  EXPECT_EQ(calls(page), "");
}

TEST_F(AlertTest, ATapBesideAnActionSheetOfATabletClosesIt) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  (void)session().perform(sim::wire::Display{820, 1180, 2, 24, 0, 20, 0});
  UIAlertController *sheet = [UIAlertController alertControllerWithTitle:@"x"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleActionSheet];
  [sheet addAction:[UIAlertAction actionWithTitle:@"OK" style:UIAlertActionStyleDefault handler:nil]];
  [[sheet popoverPresentationController] setSourceView:[page view]];
  present(page, sheet);
  ASSERT_EQ(screen()["alert"]["style"], "actionSheet");
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["alert"].is_null());
  (void)session().perform(sim::wire::Display{390, 844, 3, 0, 0, 0, 0});  // As other tests have it.
}

}  // namespace
