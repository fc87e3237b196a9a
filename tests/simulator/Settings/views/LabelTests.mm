// How labels are described.
#include "simulator/Settings/SessionTest.h"

#include <algorithm>
#include <string>
#include <vector>

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
  [label.get() setLineBreakMode:NSLineBreakByWordWrapping];
  EXPECT_EQ(shown(), "First") << "the words that fit in its one line";
  [label.get() setLineBreakMode:NSLineBreakByTruncatingTail];
  [label.get() setFrame:CGRectMake(0, 0, 80, 50)];
  [label.get() setNumberOfLines:2];
  EXPECT_TRUE(shown().is_null());
  [label.get() setNumberOfLines:1];
  [label.get() setAdjustsFontSizeToFitWidth:YES];
  EXPECT_TRUE(shown().is_null()) << "it is made to fit";
  [label.get() setFrame:CGRectMake(0, 0, 0, 20)];
  EXPECT_TRUE(shown().is_null()) << "it was not laid out yet";
  [label.get() setFrame:CGRectMake(0, 0, 60, 20)];
  [label.get() setAdjustsFontSizeToFitWidth:NO];
  [label.get() sizeToFit];
  EXPECT_TRUE(shown().is_null());
}

TEST_F(LabelTest, aLineThatBreaksAnywhereEndsAnywhere) {
  const auto around = view(200, 20);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 20)]);
  [around.get() addSubview:label.get()];
  [label.get() setText:@"Unbreakable"];
  [label.get() setLineBreakMode:NSLineBreakByCharWrapping];
  const std::string shown = describedView(around.get())["views"][0]["shownText"];
  EXPECT_TRUE(shown.size() > 3 && std::string("Unbreakable").starts_with(shown)) << shown;
}

TEST_F(LabelTest, aTextThatIsTooLongForItsLinesIsShortenedInTheLast) {
  const auto around = view(200, 100);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 110)]);
  [around.get() addSubview:label.get()];
  [label.get() setText:@"First second third fourth fifth"];
  const auto shown = [&]() -> Json { return describedView(around.get())["views"][0]["shownText"]; };
  [label.get() setNumberOfLines:2];
  const std::string tail = shown();
  EXPECT_TRUE(tail.starts_with("First\nseco") && tail.ends_with("\u2026")) << tail;
  [label.get() setLineBreakMode:NSLineBreakByTruncatingHead];
  const std::string head = shown();
  EXPECT_TRUE(head.starts_with("First\n\u2026") && head.ends_with("fifth")) << head;
  [label.get() setLineBreakMode:NSLineBreakByTruncatingMiddle];
  const std::string middle = shown();
  EXPECT_TRUE(middle.starts_with("First\ns") && middle.ends_with("th")) << middle;
  for (const NSLineBreakMode mode : {NSLineBreakByWordWrapping, NSLineBreakByClipping}) {
    [label.get() setLineBreakMode:mode];
    EXPECT_EQ(shown(), "First\nsecond");
  }
  [label.get() setLineBreakMode:NSLineBreakByCharWrapping];
  const std::string characters = shown();
  EXPECT_TRUE(characters.starts_with("First s")) << characters;
  [label.get() setNumberOfLines:5];
  EXPECT_TRUE(shown().is_null());
  [label.get() setText:@"First\nsecond\nthird"];
  [label.get() setNumberOfLines:2];
  [label.get() setLineBreakMode:NSLineBreakByTruncatingTail];
  const std::string paragraphs = shown();
  EXPECT_TRUE(paragraphs.starts_with("First\nsec") && paragraphs.ends_with("\u2026")) << paragraphs;
}

TEST_F(LabelTest, onlyLinesThatFitInTheLabelsHeightAreShown) {
  const auto around = view(200, 200);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 0)]);
  [around.get() addSubview:label.get()];
  [label.get() setText:@"First second third fourth fifth"];
  [label.get() setNumberOfLines:0];
  const CGFloat line = [[label.get() font] lineHeight];
  const auto linesIn = [&](CGFloat height) -> std::ptrdiff_t {
    [label.get() setFrame:CGRectMake(0, 0, 60, height)];
    const Json shown = describedView(around.get())["views"][0]["shownText"];
    if (shown.is_null()) return 0;
    const std::string text = shown;
    EXPECT_TRUE(text.ends_with("\u2026")) << text;
    return std::ranges::count(text, '\n') + 1;
  };
  EXPECT_EQ(linesIn(0), 0) << "it was not laid out yet";
  EXPECT_EQ(linesIn(1), 1) << "one is shown in any case";
  EXPECT_EQ(linesIn(2 * line - 1), 1);
  EXPECT_EQ(linesIn(2 * line), 2);
  EXPECT_EQ(linesIn(2 * line - 0.25), 2) << "a frame in whole pixels may be a little less";
  EXPECT_EQ(linesIn(3.9 * line), 3);
  EXPECT_EQ(linesIn(5 * line), 0) << "all fit";
  EXPECT_EQ(linesIn(1e300), 0) << "the frame of a label whose text is measured";
  [label.get() setNumberOfLines:2];
  EXPECT_EQ(linesIn(4 * line), 2);
  [label.get() setNumberOfLines:4];
  EXPECT_EQ(linesIn(3 * line), 3);
  for (const CGFloat width : {40, 60, 90, 150}) {
    [label.get() setNumberOfLines:0];
    const CGSize size = [label.get() sizeThatFits:CGSizeMake(width, 0)];
    [label.get() setFrame:CGRectMake(0, 0, size.width, size.height)];
    EXPECT_TRUE(describedView(around.get())["views"][0]["shownText"].is_null()) << width;
  }
}

TEST_F(LabelTest, whatIsShortenedIsWholeCharacters) {
  const auto around = view(200, 100);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 40)]);
  [around.get() addSubview:label.get()];
  // A letter with its accent, a family of three, a flag, a heart with its colour, letters from right to left.
  for (const std::string &one : std::vector<std::string>{"e\u0301", "\U0001f468\u200d\U0001f469\u200d\U0001f467",
                                                         "\U0001f1e9\U0001f1ea", "\u2764\ufe0f", "\u05d0\u05b8"}) {
    std::string text;
    for (int times = 0; times < 20; ++times) text += one;
    [label.get() setText:[NSString stringWithUTF8String:text.c_str()]];
    for (const NSLineBreakMode mode :
         {NSLineBreakByTruncatingHead, NSLineBreakByTruncatingMiddle, NSLineBreakByTruncatingTail}) {
      [label.get() setLineBreakMode:mode];
      for (const NSInteger lines : {1, 2}) {
        [label.get() setNumberOfLines:lines];
        for (const int width : {1, 30, 79}) {
          [label.get() setFrame:CGRectMake(0, 0, width, 50)];
          std::string shown = describedView(around.get())["views"][0]["shownText"];
          EXPECT_NE(shown.find("\u2026"), std::string::npos) << shown;
          for (const std::string &part : {one, std::string("\u2026"), std::string("\n")}) {
            for (std::size_t at; (at = shown.find(part)) != std::string::npos;) shown.erase(at, part.size());
          }
          EXPECT_EQ(shown, "") << one << " at " << width;
        }
      }
    }
  }
}

TEST_F(LabelTest, noSpaceStandsAtTheEndOfALine) {
  const auto around = view(200, 100);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 60, 100)]);
  [around.get() addSubview:label.get()];
  [label.get() setText:@"First     second third"];
  [label.get() setNumberOfLines:2];
  const std::string shown = describedView(around.get())["views"][0]["shownText"];
  EXPECT_TRUE(shown.starts_with("First\n")) << shown;
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
