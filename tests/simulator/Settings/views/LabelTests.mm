// How labels are described.
#include "simulator/Settings/SessionTest.h"

namespace {

class LabelTest : public SessionTest {};

TEST_F(LabelTest, aLabelIsDrawnInTheColourOfItsState) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  [label.get() setText:@"Text"];
  [label.get() setTextColor:[UIColor redColor]];
  [label.get() setHighlightedTextColor:[UIColor greenColor]];
  EXPECT_EQ(describedView(label.get())["color"], "#ff0000ff");
  [label.get() setHighlighted:YES];
  EXPECT_EQ(describedView(label.get())["color"], "#00ff00ff");
  [label.get() setHighlighted:NO];
  [label.get() setEnabled:NO];
  EXPECT_EQ(describedView(label.get())["color"], "#ff000066");
}

TEST_F(LabelTest, aLabelsShadowIsDescribed) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  EXPECT_TRUE(describedView(label.get())["textShadow"].is_null());
  [label.get() setShadowColor:[UIColor redColor]];
  [label.get() setShadowOffset:CGSizeMake(1, 3)];
  EXPECT_EQ(describedView(label.get())["textShadow"], Json({{"color", "#ff0000ff"}, {"x", 1}, {"y", 3}}));
}

TEST_F(LabelTest, aLabelMakesItsTextFitDownToItsLeastFactor) {
  const auto around = view(100, 20);  // A table gives its header its own width.
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 50, 20)]);
  [around.get() addSubview:label.get()];
  const auto fontSize = [&]() -> double { return describedView(around.get())["views"][0]["fontSize"]; };
  [label.get() setText:@"A text that needs more than fifty points"];
  EXPECT_EQ(fontSize(), 17);
  [label.get() setAdjustsFontSizeToFitWidth:YES];
  EXPECT_NEAR(fontSize(), 17 * 50 / [label.get() sizeThatFits:CGSizeZero].width, 0.01);
  [label.get() setMinimumScaleFactor:0.5];
  EXPECT_EQ(fontSize(), 8.5);
  [label.get() setText:@"A"];
  EXPECT_EQ(fontSize(), 17);
}

TEST_F(LabelTest, aTextOfAnyCharactersIsShortenedOrShownWhole) {
  const auto around = view(200, 20);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 40, 20)]);
  [around.get() addSubview:label.get()];
  const unichar odd[] = {'A', 0, 0xd800, 'b', '\n', 'c', 0x2028, 0xdc00, 'W', 'W', 'W', 'W', 'W', 'W'};
  for (NSUInteger length = 1; length <= std::size(odd); ++length) {
    for (NSUInteger start = 0; start + length <= std::size(odd); ++start) {
      [label.get() setText:[NSString stringWithCharacters:odd + start length:length]];
      const Json shown = describedView(around.get())["views"][0]["shownText"];
      EXPECT_TRUE(shown.is_null() || !shown.get<std::string>().empty());
    }
  }
}

TEST_F(LabelTest, aTextThatIsTooLongForItsLineIsShortened) {
  const auto around = view(200, 20);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 20)]);
  [around.get() addSubview:label.get()];
  const auto shown = [&]() -> Json {
    const Json described = describedView(around.get())["views"][0];
    EXPECT_EQ(described["text"], [[label.get() text] UTF8String]) << "all of it is told";
    return described["shownText"];
  };
  [label.get() setText:@"First and last"];
  const std::string start = shown();
  EXPECT_TRUE(start.starts_with("First") && start.ends_with("\u2026")) << start;
  [label.get() setLineBreakMode:NSLineBreakByTruncatingMiddle];
  const std::string middle = shown();
  EXPECT_TRUE(middle.starts_with("Fi") && middle.ends_with("st")) << middle;
  [label.get() setLineBreakMode:NSLineBreakByTruncatingHead];
  const std::string end = shown();
  EXPECT_TRUE(end.starts_with("\u2026") && end.ends_with("last")) << end;
  [label.get() setLineBreakMode:NSLineBreakByClipping];
  EXPECT_TRUE(shown().is_null());
  [label.get() setLineBreakMode:NSLineBreakByTruncatingTail];
  [label.get() setNumberOfLines:2];
  EXPECT_TRUE(shown().is_null());
  [label.get() setNumberOfLines:1];
  [label.get() setAdjustsFontSizeToFitWidth:YES];
  EXPECT_TRUE(shown().is_null()) << "it is made to fit";
  [label.get() setAdjustsFontSizeToFitWidth:NO];
  [label.get() sizeToFit];
  EXPECT_TRUE(shown().is_null());
}

TEST_F(LabelTest, aLabelsFontIsThatOfThePage) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  EXPECT_EQ(describedView(label.get())["fontFamily"], "Inter");
  EXPECT_EQ(describedView(label.get())["italic"], false);
  [label.get() setFont:[UIFont fontWithName:@"Menlo-BoldItalic" size:12]];
  const Json described = describedView(label.get());
  EXPECT_EQ(described["fontFamily"], "Liberation Mono");
  EXPECT_EQ(described["italic"], true);
  EXPECT_EQ(described["fontWeight"], 700);
  EXPECT_EQ(described["tabularDigits"], false);
  [label.get() setFont:[UIFont monospacedDigitSystemFontOfSize:12 weight:0]];
  EXPECT_EQ(describedView(label.get())["tabularDigits"], true);
}

}  // namespace
