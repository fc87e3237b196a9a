// The button in the view at a row's end.
#include "simulator/Settings/SessionTest.h"

namespace {

class RowButtonTest : public SessionTest {
 protected:
  /// A row whose accessory is a picture beside a button.
  UIButton *startButton(UIButtonType type) {
    page_ = [[[ControlPage alloc] initWithTitle:@"Buttons" sections:@[ @[ @"row" ] ]] autorelease];
    const auto holder = objcxx::adopt([[UIControl alloc] initWithFrame:CGRectMake(0, 0, 70, 30)]);
    UIButton *button = [UIButton buttonWithType:type];
    [button setFrame:CGRectMake(40, 0, 30, 30)];
    [button addTarget:page_ action:@selector(changed:) forControlEvents:UIControlEventTouchUpInside];
    [holder.get() addSubview:button];
    page_->control = objcxx::share<UIView>(holder.get());
    start(page_);
    return button;
  }
  Json tapButton() const { return {{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "button"}}; }

  ControlPage *page_ = nil;
};

TEST_F(RowButtonTest, AButtonInTheAccessoryIsDescribedAndTapped) {
  UIButton *button = startButton(UIButtonTypeClose);
  [button setAccessibilityLabel:@"Remove"];
  session().refresh();
  EXPECT_EQ(row(0, 0)["accessoryButton"], Json::object({{"close", true},
                                                        {"enabled", true},
                                                        {"menu", false},
                                                        {"title", nullptr},
                                                        {"accessibilityLabel", "Remove"},
                                                        {"frame", {40, 0, 30, 30}}}));
  EXPECT_EQ(send(tapButton()), Outcome::done);
  EXPECT_EQ(calls(page_), "changed") << "the row itself is not tapped";
  EXPECT_EQ(tap(rowId(0, 0)), Outcome::done);
  EXPECT_EQ(calls(page_), "changed,tap 0.0") << "nor the button with the row";
}

TEST_F(RowButtonTest, AButtonThatCannotBeReachedIsRefused) {
  UIButton *button = startButton(UIButtonTypeSystem);
  [button setTitle:@"Do" forState:UIControlStateNormal];
  [button setEnabled:NO];
  session().refresh();
  EXPECT_EQ(row(0, 0)["accessoryButton"]["close"], false);
  EXPECT_EQ(row(0, 0)["accessoryButton"]["title"], "Do");
  EXPECT_EQ(row(0, 0)["accessoryButton"]["enabled"], false);
  expectRefused(tapButton(), Outcome::refused);
  EXPECT_EQ(reply["error"], "This button is disabled.");
  [button setTitle:@"Not now" forState:UIControlStateDisabled];
  session().refresh();
  EXPECT_EQ(row(0, 0)["accessoryButton"]["title"], "Not now");
  [button setEnabled:YES];
  [button setHidden:YES];
  session().refresh();
  EXPECT_TRUE(row(0, 0)["accessoryButton"].is_null());
  expectRefused(tapButton(), Outcome::refused);
  EXPECT_EQ(calls(page_), "");
}

TEST_F(RowButtonTest, ARowWithoutAButtonIsRefused) {
  ListPage *page = startList(@[ @[ @"a" ] ]);
  EXPECT_TRUE(row(0, 0)["accessoryButton"].is_null());
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "button"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This row has no button.");
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "buttons"}}, Outcome::malformed);
  EXPECT_EQ(calls(page), "");
}

TEST_F(RowButtonTest, AButtonDeepInTheAccessoryHasItsPlaceInIt) {
  UIButton *button = startButton(UIButtonTypeSystem);
  const auto inner = view(40, 30);
  [inner.get() setFrame:CGRectMake(25, 5, 40, 25)];
  [page_->control.get() addSubview:inner.get()];
  [inner.get() addSubview:button];
  [button setFrame:CGRectMake(4, 3, 30, 20)];
  session().refresh();
  EXPECT_EQ(row(0, 0)["accessoryButton"]["frame"], Json({29, 8, 30, 20}));
  EXPECT_EQ(send(tapButton()), Outcome::done);
  EXPECT_EQ(calls(page_), "changed");
}

TEST_F(RowButtonTest, AMenuThatAFingerHasToWaitForIsNotWhatATapOpens) {
  UIButton *button = startButton(UIButtonTypeSystem);
  UIAction *action = [UIAction actionWithTitle:@"a"
                                         image:nil
                                    identifier:nil
                                       handler:^(UIAction *){
                                       }];
  [button setMenu:[UIMenu menuWithTitle:@"" children:@[ action ]]];
  session().refresh();
  EXPECT_EQ(row(0, 0)["accessoryButton"]["menu"], false);
  EXPECT_EQ(send(tapButton()), Outcome::done);
  EXPECT_TRUE(screen()["menu"].is_null());
  EXPECT_EQ(calls(page_), "changed");
}

}  // namespace
