// What every view has in its description.
#include "simulator/Settings/SessionTest.h"

namespace {

class ViewsTest : public SessionTest {};

TEST_F(ViewsTest, aButtonShowsItsBackgroundImageBehindItsTitle) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setFrame:CGRectMake(0, 0, 80, 30)];
  [button setTitle:@"Go" forState:UIControlStateNormal];
  [button setBackgroundImage:picture(10) forState:UIControlStateNormal];
  [button layoutIfNeeded];
  const Json views = describedView(button)["views"];
  ASSERT_EQ(views.size(), 2u);
  EXPECT_EQ(views[0]["type"], "image");
  EXPECT_EQ(views[0]["frame"], Json({0, 0, 390, 30})) << "It is the header of a table, which is as wide as that.";
  EXPECT_EQ(views[1]["text"], "Go");
}

TEST_F(ViewsTest, whatAnAssistiveTechnologyIsToldOfAViewIsDescribed) {
  const auto element = view(10, 10);
  [element.get() setIsAccessibilityElement:YES];
  [element.get() setAccessibilityLabel:@"Battery"];
  [element.get() setAccessibilityValue:@"40 %"];
  [element.get() setAccessibilityHint:@"Charges soon"];
  [element.get() setAccessibilityIdentifier:@"battery"];
  const Json described = describedView(element.get());
  EXPECT_EQ(described["isAccessibilityElement"], true);
  EXPECT_EQ(described["accessibilityLabel"], "Battery");
  EXPECT_EQ(described["accessibilityValue"], "40 %");
  EXPECT_EQ(described["accessibilityHint"], "Charges soon");
  EXPECT_EQ(described["accessibilityIdentifier"], "battery");
}

}  // namespace
