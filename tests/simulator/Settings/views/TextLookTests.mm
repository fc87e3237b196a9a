// How texts with attributes are described.
#include "simulator/Settings/SessionTest.h"

namespace {

NSMutableAttributedString *text(NSString *string, NSDictionary *attributes = @{}) {
  return [[[NSMutableAttributedString alloc] initWithString:string attributes:attributes] autorelease];
}

constexpr const char *kLongText = "A label of several lines, which says more than there is room for beside each other";

}  // namespace

/// A row of a subtitle whose texts have attributes.
@interface AttributedRows : UITableViewController
@end

@implementation AttributedRows

- (NSInteger)tableView:(UITableView *)table numberOfRowsInSection:(NSInteger)section {
  (void)table, (void)section;
  return 1;
}

- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  (void)table, (void)path;
  UITableViewCell *cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                                  reuseIdentifier:nil] autorelease];
  [[cell textLabel] setNumberOfLines:0];
  [[cell textLabel] setAttributedText:text([NSString stringWithUTF8String:kLongText])];
  [[cell detailTextLabel] setAttributedText:text(@"detail", @{NSKernAttributeName : @1})];
  return cell;
}

- (CGFloat)tableView:(UITableView *)table heightForRowAtIndexPath:(NSIndexPath *)path {
  (void)table, (void)path;
  return UITableViewAutomaticDimension;
}

@end

namespace {

class TextLookTest : public SessionTest {
 protected:
  /// The described text of a label of that size.
  Json lookOf(NSAttributedString *string, CGFloat width = 200, NSInteger lines = 1) {
    const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, width, 100)]);
    [label.get() setNumberOfLines:lines];
    [label.get() setAttributedText:string];
    const auto around = view(300, 100);
    [around.get() addSubview:label.get()];
    return describedView(around.get())["views"][0]["attributedText"];
  }
  Json pieceOf(NSDictionary *attributes) { return lookOf(text(@"word", attributes))["lines"][0]["pieces"][0]; }
};

TEST_F(TextLookTest, aTextIsToldToBeShortenedWhereItIs) {
  NSAttributedString *words = text(@"one two three four", @{NSKernAttributeName : @1});
  EXPECT_EQ(lookOf(words)["shortened"], false);
  EXPECT_EQ(lookOf(words, 60)["shortened"], true);
  EXPECT_EQ(lookOf(words, 60, 2)["shortened"], true);
  EXPECT_EQ(lookOf(words, 60, 0)["shortened"], false);
  NSAttributedString *paragraphs = text(@"one\ntwo\nthree", @{NSKernAttributeName : @1});
  EXPECT_EQ(lookOf(paragraphs, 200, 2)["shortened"], true);
  EXPECT_EQ(lookOf(paragraphs, 200, 3)["shortened"], false);
  EXPECT_EQ(lookOf(paragraphs, 200, 4)["shortened"], false);
}

TEST_F(TextLookTest, aLabelWithoutAttributesHasNone) {
  EXPECT_TRUE(lookOf(nil).is_null());
  EXPECT_TRUE(lookOf(text(@"")).is_null());
}

TEST_F(TextLookTest, whatAttributesLeaveOpenIsTheLabels) {
  const Json look = lookOf(text(@"word"));
  const Json piece = look["lines"][0]["pieces"][0];
  EXPECT_EQ(piece["text"], "word");
  EXPECT_EQ(piece["fontSize"], 17);
  EXPECT_EQ(piece["fontWeight"], 400);
  EXPECT_EQ(piece["color"]["dark"], "#ffffffff");
  EXPECT_TRUE(piece["backgroundColor"].is_null());
  EXPECT_TRUE(piece["underline"].is_null());
  EXPECT_TRUE(piece["strikethrough"].is_null());
  EXPECT_TRUE(piece["textShadow"].is_null());
  EXPECT_TRUE(piece["link"].is_null());
  EXPECT_EQ(piece["kern"], 0);
  EXPECT_EQ(look["lines"][0]["x"], 0);
  EXPECT_EQ(look["width"], piece["width"]);
}

TEST_F(TextLookTest, eachAttributeIsDescribed) {
  const auto shadow = objcxx::adopt([[NSShadow alloc] init]);
  [shadow.get() setShadowColor:[UIColor blueColor]];
  [shadow.get() setShadowOffset:CGSizeMake(1, 2)];
  [shadow.get() setShadowBlurRadius:3];
  const Json piece = pieceOf(@{
    NSFontAttributeName : [UIFont fontWithName:@"Menlo-BoldItalic" size:12],
    NSForegroundColorAttributeName : [UIColor redColor],
    NSBackgroundColorAttributeName : [UIColor greenColor],
    NSKernAttributeName : @2,
    NSBaselineOffsetAttributeName : @3,
    NSUnderlineStyleAttributeName : @(NSUnderlineStyleDouble | NSUnderlineStylePatternDash | NSUnderlineStyleByWord),
    NSStrikethroughStyleAttributeName : @(NSUnderlineStyleThick | NSUnderlineStylePatternDot),
    NSStrikethroughColorAttributeName : [UIColor redColor],
    NSShadowAttributeName : shadow.get(),
  });
  EXPECT_EQ(piece["fontSize"], 12);
  EXPECT_EQ(piece["fontWeight"], 700);
  EXPECT_EQ(piece["fontFamily"], "Liberation Mono");
  EXPECT_EQ(piece["italic"], true);
  EXPECT_EQ(piece["color"], "#ff0000ff");
  EXPECT_EQ(piece["backgroundColor"], "#00ff00ff");
  EXPECT_EQ(piece["kern"], 2);
  EXPECT_EQ(piece["baselineOffset"], 3);
  EXPECT_EQ(piece["underline"], Json({{"style", "double"}, {"pattern", "dash"}, {"byWord", true}, {"color", nullptr}}));
  EXPECT_EQ(piece["strikethrough"],
            Json({{"style", "thick"}, {"pattern", "dot"}, {"byWord", false}, {"color", "#ff0000ff"}}));
  EXPECT_EQ(piece["textShadow"], Json({{"color", "#0000ffff"}, {"x", 1}, {"y", 2}, {"radius", 3}}));
}

TEST_F(TextLookTest, linksAreUnderlinedInTheLinkColour) {
  for (id address : {(id)[NSURL URLWithString:@"https://example.com/"], (id) @"https://example.com/"}) {
    const Json piece = pieceOf(@{NSLinkAttributeName : address, NSForegroundColorAttributeName : [UIColor redColor]});
    EXPECT_EQ(piece["link"], "https://example.com/");
    EXPECT_NE(piece["color"], "#ff0000ff");
    EXPECT_EQ(piece["underline"]["style"], "single");
  }
}

TEST_F(TextLookTest, linesStandWhereTheyAreLaidOut) {
  const auto style = objcxx::adopt([[NSMutableParagraphStyle alloc] init]);
  [style.get() setAlignment:NSTextAlignmentRight];
  [style.get() setLineSpacing:10];
  const Json look = lookOf(text(@"one two three four five", @{NSParagraphStyleAttributeName : style.get()}), 100, 0);
  ASSERT_GT(look["lines"].size(), 1u);
  const double height = look["lines"][0]["height"];
  EXPECT_EQ(look["lines"][1]["top"], height + 10);
  for (const Json &line : look["lines"]) {
    EXPECT_NEAR(line["x"].get<double>() + line["width"].get<double>(), 100, 0.5);
  }
}

TEST_F(TextLookTest, anAttachmentsPictureIsDescribed) {
  NSTextAttachment *attachment = [NSTextAttachment textAttachmentWithImage:[UIImage systemImageNamed:@"star"]];
  [attachment setBounds:CGRectMake(0, -4, 20, 24)];
  NSMutableAttributedString *string =
      [[[NSAttributedString attributedStringWithAttachment:attachment] mutableCopy] autorelease];
  [string addAttribute:NSForegroundColorAttributeName value:[UIColor redColor] range:NSMakeRange(0, 1)];
  const Json piece = lookOf(string)["lines"][0]["pieces"][0];
  EXPECT_EQ(piece["image"]["tint"], "#ff0000ff");
  EXPECT_EQ(piece["width"], 20);
  EXPECT_EQ(piece["height"], 24);
  EXPECT_EQ(piece["ascent"], 20);
  EXPECT_EQ(piece["text"], "");
}

TEST_F(TextLookTest, aLabelThatMakesItsTextFitMakesAllRunsSmaller) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 40, 20)]);
  [label.get() setAdjustsFontSizeToFitWidth:YES];
  NSMutableAttributedString *string = text(@"large ", @{NSFontAttributeName : [UIFont systemFontOfSize:20]});
  [string appendAttributedString:text(@"small", @{NSFontAttributeName : [UIFont systemFontOfSize:10]})];
  [label.get() setAttributedText:string];
  const auto around = view(300, 100);
  [around.get() addSubview:label.get()];
  const Json look = describedView(around.get())["views"][0]["attributedText"];
  EXPECT_NEAR(look["width"].get<double>(), 40, 1);
  const Json &pieces = look["lines"][0]["pieces"];
  EXPECT_NEAR(pieces[0]["fontSize"].get<double>(), 2 * pieces.back()["fontSize"].get<double>(), 1e-6);
}

TEST_F(TextLookTest, plainRowsAndTextViewsHaveNone) {
  startList(@[ @[ @"Row" ] ]);
  const Json row = screen()["page"]["sections"][0]["rows"][0];
  EXPECT_TRUE(row["attributedLabel"].is_null());
  EXPECT_TRUE(row["attributedDetail"].is_null());
}

TEST_F(TextLookTest, aRowsRunsAreDescribedInItsWidth) {
  const auto page = objcxx::adopt([[AttributedRows alloc] initWithStyle:UITableViewStyleInsetGrouped]);
  start(page.get());
  const Json row = screen()["page"]["sections"][0]["rows"][0];
  EXPECT_EQ(row["label"], kLongText);
  const Json &lines = row["attributedLabel"]["lines"];
  ASSERT_GT(lines.size(), 1u);
  EXPECT_LE(row["attributedLabel"]["width"].get<double>(), row["frame"][2].get<double>());
  EXPECT_GT(row["height"].get<double>(), row["attributedLabel"]["height"].get<double>());
  EXPECT_EQ(row["attributedDetail"]["lines"][0]["pieces"][0]["kern"], 1);
}

TEST_F(TextLookTest, aTextViewHasItsFontAndItsRuns) {
  const auto made = objcxx::adopt([[UITextView alloc] initWithFrame:CGRectMake(0, 0, 200, 100)]);
  [made.get() setFont:[UIFont fontWithName:@"Courier-Bold" size:15]];
  NSMutableAttributedString *string = text(@"see ", @{NSFontAttributeName : [UIFont boldSystemFontOfSize:15]});
  [string appendAttributedString:text(@"here", @{NSLinkAttributeName : @"https://example.com/"})];
  [made.get() setAttributedText:string];
  const Json control = controlOf(made.get());
  EXPECT_EQ(control["fontSize"], 15);
  EXPECT_EQ(control["fontWeight"], 600);
  EXPECT_EQ(control["fontFamily"], "Inter") << "of the first character";
  const Json &pieces = control["attributedText"]["lines"][0]["pieces"];
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[1]["link"], "https://example.com/");
  EXPECT_TRUE(pieces[1]["underline"].is_null()) << "in the tint, not underlined";
  EXPECT_EQ(pieces[1]["fontSize"], 12) << "as on a device, where the text says nothing";
}

TEST_F(TextLookTest, fieldsAndSegmentsHaveTheirFonts) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)]);
  [field.get() setFont:[UIFont fontWithName:@"Georgia-Italic" size:20]];
  [field.get() setAttributedPlaceholder:text(@"Name", @{NSForegroundColorAttributeName : [UIColor redColor]})];
  const Json control = controlOf(field.get());
  EXPECT_EQ(control["fontFamily"], "Liberation Serif");
  EXPECT_EQ(control["italic"], true);
  EXPECT_EQ(control["fontSize"], 20);
  EXPECT_EQ(control["placeholderLook"], Json({{"color", "#ff0000ff"}}));
}

TEST_F(TextLookTest, segmentsTitlesHaveAFontAndAColourForEachState) {
  const auto segments = objcxx::adopt([[UISegmentedControl alloc] initWithItems:@[ @"One", @"Two" ]]);
  [segments.get() setTitleTextAttributes:@{NSFontAttributeName : [UIFont boldSystemFontOfSize:15]}
                                forState:UIControlStateNormal];
  [segments.get() setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor redColor]}
                                forState:UIControlStateSelected];
  const Json looks = controlOf(segments.get())["titleLooks"];
  EXPECT_EQ(looks["normal"]["fontSize"], 15);
  EXPECT_TRUE(looks["normal"]["color"].is_null());
  EXPECT_EQ(looks["selected"]["color"], "#ff0000ff");
  EXPECT_EQ(looks["selected"]["fontWeight"], 600) << "what a state has none of is that of normal";
}

TEST_F(TextLookTest, segmentsAreAsOnADeviceUntilTheyAreTold) {
  const auto segments = objcxx::adopt([[UISegmentedControl alloc] initWithItems:@[ @"One" ]]);
  EXPECT_TRUE(controlOf(segments.get())["titleLooks"]["normal"].is_null());
}

}  // namespace
