// Every kind of event, and every reason to refuse one.
#import <UIKit/UIKit.h>
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class EventTest : public SessionTest {
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

TEST_F(EventTest, MalformedEventsAreRefused) {
  startList(@[ @[ @"a", @"b" ] ]);
  for (const char *text : {
           "null",
           "[]",
           "3",
           "\"tap\"",
           "{}",
           R"({"type":3})",
           R"({"type":"push"})",
           R"({"type":"tap"})",
           R"({"type":"tap","id":3})",
           R"({"type":"tap","id":null})",
           R"({"type":"set","id":"row1.0.0"})",
           R"({"type":"set","value":true})",
           R"({"type":"paste"})",
           R"({"type":"paste","id":3})",
           R"({"type":"tap","id":"row1.0.0","part":"left"})",
           R"({"type":"tap","id":"row1.0.0","part":1})",
           R"({"type":"move"})",
           R"({"type":"move","from":[0,0]})",
           R"({"type":"move","from":[0,0],"to":[0]})",
           R"({"type":"move","from":[0,0],"to":[0,-1]})",
           R"({"type":"move","from":[0,0.5],"to":[0,1]})",
           R"({"type":"move","from":[0,4294967296],"to":[0,1]})",
           R"({"type":"move","from":"00","to":[0,1]})",
           R"({"type":"pick"})",
           R"({"type":"pick","path":3})",
           R"({"type":"tap","id":"row1.0.0","revision":"1"})",
           R"({"type":"tap","id":"row1.0.0","revision":-1})",
           R"({"type":"tap","id":"row1.0.0","revision":1.0})",
       }) {
    expectRefused(Json::parse(text, nullptr, false), 400);
  }
}

TEST_F(EventTest, UnknownIdsAreRefused) {
  ListPage *page = startList(@[ @[ @"a", @"b" ], @[] ]);
  for (const char *id : {"", "row", "row1.0.2", "row1.1.0", "row1.2.0", "row2.0.0", "row1.0.00", "row1.0.0 ",
                         "row1.0.0.0", "row1.4294967295.4294967295", "row1.99999999999.0", "back1", "button1.0",
                         "swipe1.0.0.1", "action1.0", "field1.0", "item1.0", "cell1.0.0", "\xc3\xa9"}) {
    expectRefused({{"type", "tap"}, {"id", id}}, 404);
    expectRefused({{"type", "set"}, {"id", id}, {"value", true}}, 404);
    expectRefused({{"type", "paste"}, {"id", id}}, 404);
  }
  expectRefused({{"type", "move"}, {"from", {0, 2}}, {"to", {0, 0}}}, 404);
  EXPECT_EQ(calls(page), "");
}

TEST_F(EventTest, AnotherRevisionIsRefusedAndTheRightOneTaken) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"revision", 2}}, 409);
  EXPECT_EQ(reply["revision"], 1);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(send({{"type", "tap"}, {"id", rowId(0, 0)}, {"revision", 1}}), 200);
  EXPECT_EQ(calls(page), "tap 0.0");
}

TEST_F(EventTest, TapSelectsARowAndAnswersWithTheScreen) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  EXPECT_EQ(tap(rowId(0, 1)), 200);
  EXPECT_EQ(reply, screen());
  EXPECT_EQ(calls(page), "tap 0.1");
}

TEST_F(EventTest, ARowThatRefusesATapStaysAsItIs) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  page->selectable = NO;
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(calls(page), "");
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "accessory"}}, 422);
}

TEST_F(EventTest, SwitchesTakeTruthValues) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["control"]["type"], "switch");
  EXPECT_EQ(row(0, 0)["value"], false);
  for (const Json &wrong : {Json(1), Json("true"), Json(), Json::array({true}), Json::object()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, 422);
  }
  EXPECT_EQ(set(rowId(0, 0), true), 200);
  EXPECT_TRUE([control isOn]);
  EXPECT_EQ(row(0, 0)["value"], true);
  EXPECT_EQ(set(rowId(0, 0), true), 200);
  EXPECT_EQ(calls(page), "changed");
}

TEST_F(EventTest, SlidersTakeNumbersWithinTheirLimits) {
  UISlider *control = [[[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setMaximumValue:10];
  startControl(control);
  for (const Json &wrong : {Json("3"), Json(true), Json()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, 422);
  }
  EXPECT_EQ(set(rowId(0, 0), 2.5), 200);
  EXPECT_EQ(row(0, 0)["value"], 2.5);
  EXPECT_EQ(set(rowId(0, 0), 1e300), 200);
  EXPECT_EQ(row(0, 0)["value"], 10);
  EXPECT_EQ(set(rowId(0, 0), -1e300), 200);
  EXPECT_EQ(row(0, 0)["value"], 0);
  EXPECT_EQ(row(0, 0)["control"]["max"], 10);
}

TEST_F(EventTest, ASliderIsDraggedUntilTheFingerLifts) {
  UISlider *control = [[[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setContinuous:NO];
  ControlPage *page = startControl(control);
  const auto drag = [&](double value, const Json &finished) {
    return send({{"type", "set"}, {"id", rowId(0, 0)}, {"value", value}, {"finished", finished}});
  };
  EXPECT_EQ(row(0, 0)["control"]["followed"], false);
  EXPECT_EQ(drag(0.25, false), 200);
  EXPECT_EQ(row(0, 0)["value"], 0.25);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(drag(0.5, true), 200);
  EXPECT_EQ(calls(page), "changed");
  EXPECT_EQ(drag(0.75, 1), 400);
  EXPECT_EQ(drag(0.75, nullptr), 400);
  EXPECT_EQ(row(0, 0)["value"], 0.5);
  [control addTarget:page action:@selector(changed:) forControlEvents:UIControlEventTouchDragInside];
  EXPECT_EQ(drag(0.75, false), 200);
  EXPECT_EQ(row(0, 0)["control"]["followed"], true);
  EXPECT_EQ(calls(page), "changed,changed");
}

TEST_F(EventTest, OnlyASliderIsDragged) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}, {"finished", false}}, 422);
  EXPECT_FALSE([control isOn]);
}

TEST_F(EventTest, SegmentsTakeNumbersAndTitles) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ @"one", @"two" ]] autorelease];
  startControl(control);
  EXPECT_TRUE(row(0, 0)["value"].is_null());
  EXPECT_TRUE(row(0, 0)["control"]["selected"].is_null());
  for (const Json &wrong : {Json(2), Json(-1), Json("three"), Json(true), Json(0.5)}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, 422);
  }
  EXPECT_EQ(set(rowId(0, 0), 1), 200);
  EXPECT_EQ([control selectedSegmentIndex], 1);
  EXPECT_EQ(set(rowId(0, 0), "one"), 200);
  EXPECT_EQ(row(0, 0)["control"]["selected"], 0);
  EXPECT_EQ(row(0, 0)["control"]["titles"], Json({"one", "two"}));
}

TEST_F(EventTest, TextFieldsTakeAnyText) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  startControl(control);
  for (const Json &wrong : {Json(2), Json(true), Json()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, 422);
  }
  for (const std::string &text : {std::string("plain"), std::string("\"\\\t\x01"), std::string("a\0b", 3),
                                  std::string("\xf0\x9f\x98\x80"), std::string(300000, 'x'), std::string()}) {
    EXPECT_EQ(set(rowId(0, 0), text), 200);
    EXPECT_EQ([[control text] lengthOfBytesUsingEncoding:NSUTF8StringEncoding], text.size());
    EXPECT_TRUE(row(0, 0)["value"] == text.substr(0, 65'536));
  }
  EXPECT_FALSE(row(0, 0).contains("valueLength"));
}

TEST_F(EventTest, DisabledControlsAreLeftAlone) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  [control setEnabled:NO];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["enabled"], false);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}}, 422);
  EXPECT_EQ(calls(page), "");
}

TEST_F(EventTest, ARowWithoutAControlCannotBeSet) {
  startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}}, 422);
}

TEST_F(EventTest, DestinationsOfMovesAreCountedWithoutTheRow) {
  ListPage *page = startList(@[ @[ @"a", @"b", @"c" ], @[ @"d" ] ]);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 2}}}, 422);  // Not editing: no handles.
  EXPECT_EQ(row(0, 0)["canMove"], false);
  [page setEditing:YES animated:NO];
  session().refresh();
  EXPECT_EQ(page->sections.get().count, 2u);
  EXPECT_EQ(row(0, 0)["canMove"], true);

  EXPECT_EQ(move({0, 0}, {0, 2}), 200);
  EXPECT_EQ(labels(), " b  c  a | d ");
  EXPECT_EQ(move({0, 2}, {0, 0}), 200);
  EXPECT_EQ(labels(), " a  b  c | d ");
  EXPECT_EQ(move({0, 1}, {1, 1}), 200);
  EXPECT_EQ(labels(), " a  c | d  b ");
  EXPECT_EQ(move({1, 0}, {0, 0}), 200);
  EXPECT_EQ(labels(), " d  a  c | b ");
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 3}}}, 422);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {1, 2}}}, 422);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {2, 0}}}, 422);
}

TEST_F(EventTest, SwipeActionsAreNamedAndPerformed) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  const Json actions = row(0, 1)["swipeActions"];
  ASSERT_EQ(actions.size(), 1u);
  EXPECT_EQ(actions[0]["title"], "Delete");
  EXPECT_EQ(actions[0]["leading"], false);
  EXPECT_EQ(tap(actions[0]["id"]), 200);
  EXPECT_EQ(calls(page), "delete 0.1");
  EXPECT_EQ(labels(), " a ");
  expectRefused({{"type", "tap"}, {"id", "swipe1.0.0.1"}}, 404);
}

TEST_F(EventTest, ASwipedRowStaysOpenUntilATouchElsewhereClosesIt) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}}), 200);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true);
  EXPECT_EQ(row(0, 0)["swipeOpen"], false);
  EXPECT_EQ(this->page()["editing"], false);
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(calls(page), "") << "the touch closes the row and does nothing else";
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(tap(rowId(0, 0)), 200);
  EXPECT_EQ(calls(page), "tap 0.0");

  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}, {"open", true}}), 200);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 0)}, {"open", false}}), 200);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true) << "another row is meant";
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}, {"open", false}}), 200);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}}), 200);
  EXPECT_EQ(send({{"type", "scroll"}, {"to", {0, 0}}}), 200);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);

  for (const Json &bad : {Json{{"type", "swipe"}}, Json{{"type", "swipe"}, {"id", rowId(0, 0)}, {"open", 1}}}) {
    expectRefused(bad, 400);
  }
  expectRefused({{"type", "swipe"}, {"id", "row1.0.2"}}, 404);
  expectRefused({{"type", "swipe"}, {"id", "swipe1.0.0.0"}}, 404);
  [page setEditing:YES animated:NO];
  session().refresh();
  expectRefused({{"type", "swipe"}, {"id", rowId(0, 0)}}, 422);
}

TEST_F(EventTest, AControlIsWorkedThoughARowStandsOpen) {
  const auto control = objcxx::adopt([[UISwitch alloc] init]);
  startControl(control.get());
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 0)}}), 200);
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, 422);
  EXPECT_EQ(row(0, 0)["swipeOpen"], true);
  EXPECT_EQ(set(rowId(0, 0), true), 200);
  EXPECT_TRUE([control.get() isOn]);
  EXPECT_EQ(row(0, 0)["swipeOpen"], false);
}

TEST_F(EventTest, AnAlertCoversThePage) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  [page setEditing:YES animated:NO];
  session().refresh();
  const std::string covered = rowId(0, 0);
  presentAlert(page);
  expectRefused({{"type", "tap"}, {"id", covered}}, 404);
  expectRefused({{"type", "set"}, {"id", covered}, {"value", true}}, 404);
  expectRefused({{"type", "swipe"}, {"id", covered}}, 404);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 1}}}, 404);
  expectRefused({{"type", "pick"}, {"path", "/a"}}, 422);
  EXPECT_EQ(calls(page), "");
}

TEST_F(EventTest, ActionsOfAlertsRunAndTheAlertGoes) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  presentAlert(page);
  const Json alert = screen()["alert"];
  EXPECT_EQ(alert["title"], "Sure?");
  EXPECT_EQ(alert["message"], "Really");
  EXPECT_EQ(alert["style"], "alert");
  EXPECT_EQ(alert["actions"][0]["style"], "destructive");
  EXPECT_EQ(alert["actions"][1]["style"], "cancel");
  const std::string first = actionId(0);
  expectRefused({{"type", "tap"}, {"id", first.substr(0, first.size() - 1) + "2"}}, 404);
  EXPECT_EQ(tap(first), 200);
  EXPECT_EQ(calls(page), "do");
  EXPECT_TRUE(screen()["alert"].is_null());
  expectRefused({{"type", "tap"}, {"id", first}}, 404);

  presentAlert(page);
  EXPECT_NE(actionId(0), first);  // Another alert has other ids.
}

TEST_F(EventTest, DisabledActionsAreRefused) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  [[[alert actions] objectAtIndex:0] setEnabled:NO];
  session().refresh();
  EXPECT_EQ(screen()["alert"]["actions"][0]["enabled"], false);
  expectRefused({{"type", "tap"}, {"id", actionId(0)}}, 422);
}

TEST_F(EventTest, ScrollingBringsTheDescriptionOfTheRowsThere) {
  NSMutableArray *many = [NSMutableArray array];
  for (int i = 0; i < 3000; ++i) [many addObject:[NSString stringWithFormat:@"row %d", i]];
  startList(@[ @[ @"first" ], many ]);
  EXPECT_EQ(row(0, 0)["label"], "first");
  EXPECT_EQ(row(1, 0)["label"], "row 0");
  EXPECT_EQ(page()["sections"][1]["rows"].size(), 3000u);
  const Json outline = row(1, 2000);
  EXPECT_EQ(outline, (Json{{"id", rowId(1, 2000)}, {"outline", true}, {"height", outline["height"]}}));
  EXPECT_EQ(outline["height"], row(1, 0)["height"]) << "rows of one table are alike as a rule";
  EXPECT_FALSE(session().refresh()) << "describing it changes nothing";

  EXPECT_EQ(send({{"type", "scroll"}, {"to", {1, 2000}}}), 200);
  EXPECT_FALSE(session().refresh());
  EXPECT_EQ(row(1, 2000)["label"], "row 2000");
  EXPECT_EQ(row(1, 2000)["id"], outline["id"]);
  EXPECT_EQ(row(1, 0)["outline"], true);
  EXPECT_EQ(row(0, 0)["outline"], true);
  EXPECT_EQ(page()["sections"][1]["rows"].size(), 3000u);

  EXPECT_EQ(tap(rowId(1, 10)), 200) << "an outline is a row like any other";
  EXPECT_EQ(row(1, 10)["label"], "row 10");
  expectRefused({{"type", "scroll"}}, 400);
  expectRefused({{"type", "scroll"}, {"to", {1, -1}}}, 400);
  expectRefused({{"type", "scroll"}, {"to", {1, 3000}}}, 404);
  expectRefused({{"type", "scroll"}, {"to", {2, 0}}}, 404);
}

TEST_F(EventTest, ThePasteboardIsPastedIntoFields) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  presentAlert(page);
  const std::string field = screen()["alert"]["fields"][0]["id"];
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:nil];
  expectRefused({{"type", "paste"}, {"id", field}}, 422);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"Zoé"];
  EXPECT_EQ(set(field, "I am "), 200);
  EXPECT_EQ(send({{"type", "paste"}, {"id", field}}), 200);
  EXPECT_EQ(screen()["alert"]["fields"][0]["value"], "I am Zoé");
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, 404);
  expectRefused({{"type", "paste"}}, 400);
  expectRefused({{"type", "paste"}, {"id", actionId(0)}}, 404);
}

TEST_F(EventTest, OnlyFieldsTakeThePasteboard) {
  UISwitch *control = [[[UISwitch alloc] init] autorelease];
  startControl(control);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"x"];
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, 422);
}

TEST_F(EventTest, OfALongTextTheScreenHasTheBeginning) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  const std::string field = screen()["alert"]["fields"][0]["id"];
  const std::string longest(65'536, 'x');
  EXPECT_EQ(set(field, longest), 200);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest);
  EXPECT_FALSE(screen()["alert"]["fields"][0].contains("valueLength"));
  EXPECT_EQ(set(field, longest + "y"), 200);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest);
  EXPECT_EQ(screen()["alert"]["fields"][0]["valueLength"], 65'537);
  EXPECT_EQ([[[[alert textFields] objectAtIndex:0] text] length], 65'537u) << "the field itself has it all";
  // The surrogate pair that stands across the limit goes as a whole.
  EXPECT_EQ(set(field, longest.substr(1) + "\U0001F600"), 200);
  EXPECT_TRUE(screen()["alert"]["fields"][0]["value"] == longest.substr(1));
  EXPECT_EQ(screen()["alert"]["fields"][0]["valueLength"], 65'537);
}

TEST_F(EventTest, FieldsOfAlertsAreSet) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = presentAlert(page);
  const Json field = screen()["alert"]["fields"][0];
  EXPECT_EQ(field["placeholder"], "Name");
  EXPECT_EQ(field["value"], "");
  EXPECT_EQ(set(field["id"], "Zoé"), 200);
  EXPECT_EQ(screen()["alert"]["fields"][0]["value"], "Zoé");
  EXPECT_OBJC_EQ([[[alert textFields] objectAtIndex:0] text], @"Zoé");
  expectRefused({{"type", "set"}, {"id", field["id"]}, {"value", 3}}, 422);
  expectRefused({{"type", "set"}, {"id", field["id"].get<std::string>() + "1"}, {"value", "x"}}, 404);
  expectRefused({{"type", "tap"}, {"id", field["id"]}}, 404);
}

TEST_F(EventTest, DismissCancels) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "dismiss"}}, 422);
  presentAlert(page);
  EXPECT_EQ(send({{"type", "dismiss"}}), 200);
  presentAlert(page, UIAlertControllerStyleActionSheet);
  EXPECT_EQ(screen()["alert"]["style"], "actionSheet");
  EXPECT_EQ(send({{"type", "dismiss"}}), 200);
  EXPECT_EQ(calls(page), "cancel,cancel");

  PlainPage *plain = [[[PlainPage alloc] init] autorelease];
  [plain setTitle:@"Over"];
  [page presentViewController:plain animated:YES completion:nil];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["kind"], "page");
  EXPECT_EQ(screen()["sheet"]["title"], "Over");
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}}, 404);
  EXPECT_EQ(send({{"type", "dismiss"}}), 200);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(EventTest, AnAlertWithoutACancelActionCannotBeDismissed) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"x"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:@"OK" style:UIAlertActionStyleDefault handler:nil]];
  [page presentViewController:alert animated:YES completion:nil];
  session().refresh();
  expectRefused({{"type", "dismiss"}}, 422);
}

TEST_F(EventTest, PushAndPop) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIBarButtonItem *button = [[[UIBarButtonItem alloc] initWithTitle:@"Go"
                                                              style:UIBarButtonItemStylePlain
                                                             target:page
                                                             action:@selector(pushNext)] autorelease];
  [[page navigationItem] setRightBarButtonItem:button];
  session().refresh();
  const std::string row = rowId(0, 0);
  const Json go = SessionTest::page()["buttons"][0];
  EXPECT_EQ(go["title"], "Go");
  EXPECT_EQ(go["side"], "right");
  expectRefused({{"type", "tap"}, {"id", "button1.1"}}, 404);

  EXPECT_EQ(tap(go["id"]), 200);
  EXPECT_EQ(titles(), "/List/Next");
  EXPECT_EQ(labels(), " deep ");
  EXPECT_EQ(SessionTest::page()["back"]["title"], "List");
  expectRefused({{"type", "tap"}, {"id", row}}, 404);  // Not the page in front.
  expectRefused({{"type", "tap"}, {"id", "back1"}}, 404);
  const std::string deep = rowId(0, 0);

  EXPECT_EQ(tap(SessionTest::page()["back"]["id"]), 200);
  EXPECT_EQ(titles(), "/List");
  EXPECT_EQ(rowId(0, 0), row);  // A page that stayed keeps its number,
  expectRefused({{"type", "tap"}, {"id", deep}}, 404);
  EXPECT_EQ(tap(go["id"]), 200);
  EXPECT_NE(rowId(0, 0), deep);  // and a new one gets one that was never used.

  [button setEnabled:NO];
}

TEST_F(EventTest, ADisabledButtonIsRefused) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  UIBarButtonItem *button = [[[UIBarButtonItem alloc] initWithTitle:@"Go"
                                                              style:UIBarButtonItemStylePlain
                                                             target:page
                                                             action:@selector(pushNext)] autorelease];
  [button setEnabled:NO];
  [[page navigationItem] setLeftBarButtonItem:button];
  session().refresh();
  EXPECT_EQ(SessionTest::page()["buttons"][0]["side"], "left");
  expectRefused({{"type", "tap"}, {"id", SessionTest::page()["buttons"][0]["id"]}}, 422);
  EXPECT_EQ(titles(), "/List");
}

}  // namespace
