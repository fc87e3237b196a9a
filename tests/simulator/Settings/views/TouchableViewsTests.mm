// Controls that stand on a page's own view, not in a row: described with ids, and worked by them.
#include "simulator/Settings/SessionTest.h"

namespace {

class TouchableViewsTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    page_ = [[[PlainPage alloc] init] autorelease];
    listener_ = [[[ListPage alloc] initWithTitle:@"Listener" sections:@[]] autorelease];
    holder_ = view(300, 200);
  }
  void add(UIControl *control, UIControlEvents events) {
    [control setFrame:CGRectMake(10, 10, 100, 40)];
    if (events) [control addTarget:listener_ action:@selector(changed:) forControlEvents:events];
    [holder_.get() addSubview:control];
    [[page_ view] addSubview:holder_.get()];
    start(page_);
  }
  /// What was added, as it is described.
  Json added() { return Json(page()["view"]["views"][1]["views"][0]); }
  std::string identifier() { return added().value("id", ""); }

  PlainPage *page_ = nil;
  ListPage *listener_ = nil;
  objcxx::Retained<UIView> holder_;
};

TEST_F(TouchableViewsTest, AButtonIsTapped) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTitle:@"Go" forState:UIControlStateNormal];
  add(button, UIControlEventTouchUpInside);
  EXPECT_EQ(added()["control"]["type"], "button");
  EXPECT_EQ(added()["enabled"], true);
  EXPECT_EQ(added()["views"][0]["text"], "Go") << "it is laid out";
  EXPECT_EQ(tap(identifier()), Outcome::done);
  EXPECT_EQ(calls(listener_), "changed");
  expectRefused({{"type", "set"}, {"id", identifier()}, {"value", true}}, Outcome::refused);
}

TEST_F(TouchableViewsTest, ADisabledButtonAndAHiddenOneAreNot) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  add(button, UIControlEventTouchUpInside);
  const std::string known = identifier();
  [button setEnabled:NO];
  session().refresh();
  EXPECT_EQ(added()["enabled"], false);
  expectRefused({{"type", "tap"}, {"id", known}}, Outcome::refused);
  [button setEnabled:YES];
  [holder_.get() setHidden:YES];
  session().refresh();
  expectRefused({{"type", "tap"}, {"id", known}}, Outcome::unknown);
  EXPECT_EQ(calls(listener_), "");
}

TEST_F(TouchableViewsTest, ControlsOfRowsAreSetHereToo) {
  add([[[UISwitch alloc] init] autorelease], UIControlEventValueChanged);
  EXPECT_EQ(added()["control"]["type"], "switch");
  EXPECT_EQ(added()["value"], false);
  EXPECT_EQ(set(identifier(), true), Outcome::done);
  EXPECT_EQ(added()["value"], true);
  EXPECT_EQ(calls(listener_), "changed");
  expectRefused({{"type", "set"}, {"id", identifier()}, {"value", "on"}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", identifier()}}, Outcome::refused);
}

TEST_F(TouchableViewsTest, ATextIsPasted) {
  UITextField *field = [[[UITextField alloc] init] autorelease];
  add(field, {});
  [[UIPasteboard generalPasteboard] setString:@"Rosa"];
  EXPECT_EQ(send({{"type", "paste"}, {"id", identifier()}}), Outcome::done);
  EXPECT_EQ(added()["value"], "Rosa");
}

TEST_F(TouchableViewsTest, AControlThatNothingListensToIsAView) {
  add([[[UIControl alloc] init] autorelease], {});
  EXPECT_FALSE(added().contains("id"));
}

TEST_F(TouchableViewsTest, NothingIsReachedUnderWhatCoversThePage) {
  add([UIButton buttonWithType:UIButtonTypeSystem], UIControlEventTouchUpInside);
  const std::string known = identifier();
  present(page_, [UIAlertController alertControllerWithTitle:@"Over"
                                                     message:nil
                                              preferredStyle:UIAlertControllerStyleAlert]);
  expectRefused({{"type", "tap"}, {"id", known}}, Outcome::unknown);
  EXPECT_EQ(calls(listener_), "");
}

TEST_F(TouchableViewsTest, OtherViewsAndNumbersOfNobodyAreUnknown) {
  add([UIButton buttonWithType:UIButtonTypeSystem], UIControlEventTouchUpInside);
  for (const char *name : {"view0", "view4294967295"}) {
    expectRefused({{"type", "tap"}, {"id", name}}, Outcome::unknown);
  }
}

}  // namespace
