// Every kind of event, and every reason to refuse one.
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class EventTest : public SessionTest {};

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
           R"({"type":"set","id":"row1.2"})",
           R"({"type":"set","value":true})",
           R"({"type":"paste"})",
           R"({"type":"paste","id":3})",
           R"({"type":"clear"})",
           R"({"type":"clear","id":3})",
           R"({"type":"tap","id":"row1.2","part":"left"})",
           R"({"type":"tap","id":"row1.2","part":1})",
           R"({"type":"move"})",
           R"({"type":"move","from":[0,0]})",
           R"({"type":"move","from":[0,0],"to":[0]})",
           R"({"type":"move","from":[0,0],"to":[0,-1]})",
           R"({"type":"move","from":[0,0.5],"to":[0,1]})",
           R"({"type":"move","from":[0,4294967296],"to":[0,1]})",
           R"({"type":"move","from":"00","to":[0,1]})",
           R"({"type":"pick"})",
           R"({"type":"pick","path":3})",
           R"({"type":"tap","id":"row1.2","revision":"1"})",
           R"({"type":"tap","id":"row1.2","revision":-1})",
           R"({"type":"tap","id":"row1.2","revision":1.0})",
       }) {
    expectRefused(Json::parse(text, nullptr, false), Outcome::malformed);
  }
}

TEST_F(EventTest, BodiesThatAreNoJsonAreRefused) {
  startList(@[ @[ @"a" ] ]);
  const std::string deep = "{\"type\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}";
  for (const std::string &body :
       {std::string(), std::string("{"), std::string("{\"type\":\"tap\"} x"), std::string("\xFF"),
        std::string("{'type':'tap'}"), std::string(1'000'000, '['), deep}) {
    EXPECT_EQ(perform(sim::wire::Event{body}), Outcome::malformed) << body.substr(0, 40);
  }
  EXPECT_EQ(session().revision(), 1u);
}

TEST_F(EventTest, UnknownIdsAreRefused) {
  ListPage *page = startList(@[ @[ @"a", @"b" ], @[] ]);
  const std::string row = rowId(0, 0);
  const std::string elsewhere = "row2" + row.substr(row.find('.'));
  for (const std::string &id :
       {std::string(), std::string("row"), std::string("row1.0"), std::string("row1.4294967295"),
        std::string("row1.99999999999"), row + " ", row + ".0", row + "0000", elsewhere, std::string("back1"),
        std::string("button1.0"), std::string("button1.1"), "swipe" + row.substr(3) + ".1", std::string("action1.0"),
        std::string("field1.0"), std::string("item1.0"), std::string("cell1.0"), std::string("\xc3\xa9")}) {
    expectRefused({{"type", "tap"}, {"id", id}}, Outcome::unknown);
    expectRefused({{"type", "set"}, {"id", id}, {"value", true}}, Outcome::unknown);
    expectRefused({{"type", "paste"}, {"id", id}}, Outcome::unknown);
  }
  expectRefused({{"type", "move"}, {"from", {0, 2}}, {"to", {0, 0}}}, Outcome::unknown);
  EXPECT_EQ(calls(page), "");
}

TEST_F(EventTest, AnotherRevisionIsRefusedAndTheRightOneTaken) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"revision", 2}}, Outcome::stale);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(send({{"type", "tap"}, {"id", rowId(0, 0)}, {"revision", 1}}), Outcome::done);
  EXPECT_EQ(calls(page), "tap 0.0");
}

TEST_F(EventTest, TapSelectsARowAndAnswersWithTheScreen) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  EXPECT_EQ(tap(rowId(0, 1)), Outcome::done);
  EXPECT_EQ(reply, screen());
  EXPECT_EQ(calls(page), "tap 0.1");
}

TEST_F(EventTest, ARowThatRefusesATapStaysAsItIs) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  page->selectable = NO;
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(page), "");
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "accessory"}}, Outcome::refused);
}

TEST_F(EventTest, DestinationsOfMovesAreCountedWithoutTheRow) {
  ListPage *page = startList(@[ @[ @"a", @"b", @"c" ], @[ @"d" ] ]);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 2}}}, Outcome::refused);  // Not editing: no handles.
  EXPECT_EQ(row(0, 0)["canMove"], false);
  [page setEditing:YES animated:NO];
  session().refresh();
  EXPECT_EQ(page->sections.get().count, 2u);
  EXPECT_EQ(row(0, 0)["canMove"], true);

  EXPECT_EQ(move({0, 0}, {0, 2}), Outcome::done);
  EXPECT_EQ(labels(), " b  c  a | d ");
  EXPECT_EQ(move({0, 2}, {0, 0}), Outcome::done);
  EXPECT_EQ(labels(), " a  b  c | d ");
  EXPECT_EQ(move({0, 1}, {1, 1}), Outcome::done);
  EXPECT_EQ(labels(), " a  c | d  b ");
  EXPECT_EQ(move({1, 0}, {0, 0}), Outcome::done);
  EXPECT_EQ(labels(), " d  a  c | b ");
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {0, 3}}}, Outcome::refused);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {1, 2}}}, Outcome::refused);
  expectRefused({{"type", "move"}, {"from", {0, 0}}, {"to", {2, 0}}}, Outcome::refused);
}

TEST_F(EventTest, SwipeActionsAreNamedAndPerformed) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  const Json actions = row(0, 1)["swipeActions"];
  ASSERT_EQ(actions.size(), 1u);
  EXPECT_EQ(actions[0]["title"], "Delete");
  EXPECT_EQ(actions[0]["leading"], false);
  EXPECT_EQ(tap(actions[0]["id"]), Outcome::done);
  EXPECT_EQ(calls(page), "delete 0.1");
  EXPECT_EQ(labels(), " a ");
  expectRefused({{"type", "tap"}, {"id", actions[0]["id"]}}, Outcome::unknown);
}

TEST_F(EventTest, ASwipedRowStaysOpenUntilATouchElsewhereClosesIt) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true);
  EXPECT_EQ(row(0, 0)["swipeOpen"], false);
  EXPECT_EQ(this->page()["editing"], false);
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(page), "") << "the touch closes the row and does nothing else";
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(page), "tap 0.0");

  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}, {"open", true}}), Outcome::done);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 0)}, {"open", false}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true) << "another row is meant";
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}, {"open", false}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 1)}}), Outcome::done);
  EXPECT_EQ(send({{"type", "scroll"}, {"to", {0, 0}}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], false);

  for (const Json &bad : {Json{{"type", "swipe"}}, Json{{"type", "swipe"}, {"id", rowId(0, 0)}, {"open", 1}}}) {
    expectRefused(bad, Outcome::malformed);
  }
  expectRefused({{"type", "swipe"}, {"id", rowId(0, 0) + "0000"}}, Outcome::unknown);
  expectRefused({{"type", "swipe"}, {"id", row(0, 0)["swipeActions"][0]["id"]}}, Outcome::unknown);
  [page setEditing:YES animated:NO];
  session().refresh();
  expectRefused({{"type", "swipe"}, {"id", rowId(0, 0)}}, Outcome::refused);
}

TEST_F(EventTest, TheControlBeforeARowUncoversItsActionsInTheEditingMode) {
  ListPage *page = startList(@[ @[ @"a", @"b" ] ]);
  EXPECT_EQ(row(0, 1)["editControl"], nullptr);
  expectRefused({{"type", "tap"}, {"id", rowId(0, 1)}, {"part", "edit"}}, Outcome::refused);
  [page setEditing:YES animated:NO];
  session().refresh();
  EXPECT_EQ(row(0, 1)["editControl"], "delete");
  EXPECT_EQ(send({{"type", "tap"}, {"id", rowId(0, 1)}, {"part", "edit"}}), Outcome::done);
  EXPECT_EQ(row(0, 1)["swipeOpen"], true);
  EXPECT_EQ(this->page()["editing"], true);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(tap(row(0, 1)["swipeActions"][0]["id"]), Outcome::done);
  EXPECT_EQ(calls(page), "delete 0.1");
  EXPECT_EQ(labels(), " a ");
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

  EXPECT_EQ(send({{"type", "scroll"}, {"to", {1, 2000}}}), Outcome::done);
  EXPECT_FALSE(session().refresh());
  EXPECT_EQ(row(1, 2000)["label"], "row 2000");
  EXPECT_EQ(row(1, 2000)["id"], outline["id"]);
  EXPECT_EQ(row(1, 0)["outline"], true);
  EXPECT_EQ(row(0, 0)["outline"], true);
  EXPECT_EQ(page()["sections"][1]["rows"].size(), 3000u);

  EXPECT_EQ(tap(rowId(1, 10)), Outcome::done) << "an outline is a row like any other";
  EXPECT_EQ(row(1, 10)["label"], "row 10");
  expectRefused({{"type", "scroll"}}, Outcome::malformed);
  expectRefused({{"type", "scroll"}, {"to", {1, -1}}}, Outcome::malformed);
  expectRefused({{"type", "scroll"}, {"to", {1, 3000}}}, Outcome::unknown);
  expectRefused({{"type", "scroll"}, {"to", {2, 0}}}, Outcome::unknown);
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
  expectRefused({{"type", "tap"}, {"id", "button1.1"}}, Outcome::unknown);

  EXPECT_EQ(tap(go["id"]), Outcome::done);
  EXPECT_EQ(titles(), "/List/Next");
  EXPECT_EQ(labels(), " deep ");
  EXPECT_EQ(SessionTest::page()["back"]["title"], "List");
  expectRefused({{"type", "tap"}, {"id", row}}, Outcome::unknown);  // Not the page in front.
  expectRefused({{"type", "tap"}, {"id", "back1"}}, Outcome::unknown);
  const std::string deep = rowId(0, 0);

  EXPECT_EQ(tap(SessionTest::page()["back"]["id"]), Outcome::done);
  EXPECT_EQ(titles(), "/List");
  EXPECT_EQ(rowId(0, 0), row);  // A page that stayed keeps its number,
  expectRefused({{"type", "tap"}, {"id", deep}}, Outcome::unknown);
  EXPECT_EQ(tap(go["id"]), Outcome::done);
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
  expectRefused({{"type", "tap"}, {"id", SessionTest::page()["buttons"][0]["id"]}}, Outcome::refused);
  EXPECT_EQ(titles(), "/List");
}

}  // namespace
