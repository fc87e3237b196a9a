#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <cmath>

namespace {

class UILabelTests : public ObjCTest {
 protected:
  UILabel *label(NSString *text, CGFloat size = 17) {
    UILabel *made = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
    [made setText:text];
    [made setFont:[UIFont systemFontOfSize:size]];
    return made;
  }
  CGFloat widthOf(NSString *text, CGFloat size = 17) {
    return [text sizeWithAttributes:[NSDictionary dictionaryWithObject:[UIFont systemFontOfSize:size]
                                                                forKey:NSFontAttributeName]]
        .width;
  }
};

TEST_F(UILabelTests, StartsAsADeviceDoes) {
  UILabel *plain = [[[UILabel alloc] init] autorelease];
  EXPECT_OBJC_EQ([plain text], nil);
  EXPECT_EQ([[plain font] pointSize], 17);
  EXPECT_OBJC_EQ([plain textColor], [UIColor labelColor]);
  EXPECT_EQ([plain numberOfLines], 1);
  EXPECT_EQ([plain lineBreakMode], NSLineBreakByTruncatingTail);
  EXPECT_EQ([plain textAlignment], NSTextAlignmentNatural);
  EXPECT_FALSE([plain isUserInteractionEnabled]);
  [plain setFont:nil];
  [plain setTextColor:nil];
  EXPECT_EQ([[plain font] pointSize], 17);
  EXPECT_OBJC_EQ([plain textColor], [UIColor labelColor]);
}

// The widths that Chromium gives the same texts in the same font, which it rounds to sixty-fourths of a point: in
// Inter 4.0 beta 7 and in Inter 4.1, of which a machine has one.
TEST_F(UILabelTests, MeasuresAsTheBrowserDoes) {
  struct Case {
    NSString *text;
    CGFloat size;
    UIFontWeight weight;
    CGFloat widths[2];
  };
  const Case cases[] = {
      {@"Settings", 17, UIFontWeightRegular, {66.34375, 65.515625}},
      {@"Wi-Fi & Bluetooth", 17, UIFontWeightRegular, {140.09375, 139.953125}},
      {@"AVATAR To. Yes,", 17, UIFontWeightRegular, {130.140625, 131.9375}},
      {@"Zuno", 35, UIFontWeightRegular, {83.578125, 84.375}},
      {@"HEADER 1234567890", 13, UIFontWeightRegular, {133.296875, 132.5625}},
      {@"General", 34, UIFontWeightBold, {130, 129.53125}},
      {@"Bold row", 17, UIFontWeightSemibold, {71.5625, 71.640625}},
  };
  const int version = widthOf(@"Settings", 17) > 66 ? 0 : 1;
  for (const Case &expected : cases) {
    UIFont *font = [UIFont systemFontOfSize:expected.size weight:expected.weight];
    NSDictionary *attributes = [NSDictionary dictionaryWithObject:font forKey:NSFontAttributeName];
    EXPECT_NEAR([expected.text sizeWithAttributes:attributes].width, expected.widths[version], 0.02)
        << [expected.text UTF8String];
  }
}

TEST_F(UILabelTests, MeasuresWithoutHinting) {
  EXPECT_NEAR(widthOf(@"Settings", 34), widthOf(@"Settings", 17) * 2, 0.02);
  EXPECT_GT(widthOf(@"W"), widthOf(@"i") * 2) << "proportional";
  EXPECT_LT(widthOf(@"AV"), widthOf(@"A") + widthOf(@"V")) << "kerned";
}

TEST_F(UILabelTests, FitsInWholePixels) {
  UILabel *title = label(@"Zuno", 35);
  [title sizeToFit];
  const CGSize size = [title frame].size;
  EXPECT_NEAR(size.width * 3, std::round(size.width * 3), 1e-9);
  EXPECT_GE(size.width, widthOf(@"Zuno", 35) - 1e-3);
  EXPECT_LT(size.width, widthOf(@"Zuno", 35) + 1.0 / 3);
  EXPECT_EQ(size.height, 42) << "35 points make a line of 41.77";
  EXPECT_NEAR([label(@"x", 17) sizeThatFits:CGSizeZero].height, 61.0 / 3, 1e-9);
}

TEST_F(UILabelTests, OneLineIgnoresTheWidth) {
  UILabel *long_label = label(@"A rather long line of text that does not fit");
  const CGFloat full = [long_label sizeThatFits:CGSizeZero].width;
  EXPECT_EQ([long_label sizeThatFits:CGSizeMake(50, 50)].width, full);
  [long_label setFrame:CGRectMake(3, 4, 50, 50)];
  [long_label sizeToFit];
  EXPECT_EQ([long_label frame].size.width, full);
  EXPECT_EQ([long_label frame].origin.x, 3);
  EXPECT_EQ([long_label frame].origin.y, 4);
}

TEST_F(UILabelTests, WrapsToTheWidthGiven) {
  UILabel *text = label(@"one two three four five six seven eight nine ten");
  [text setNumberOfLines:0];
  const CGSize size = [text sizeThatFits:CGSizeMake(100, 0)];
  EXPECT_LE(size.width, 100);
  EXPECT_GT(size.height, 3 * 20);
  [text setNumberOfLines:2];
  EXPECT_NEAR([text sizeThatFits:CGSizeMake(100, 0)].height, 41, 1);
  [text setText:@"incomprehensibilities"];
  [text setNumberOfLines:0];
  EXPECT_LE([text sizeThatFits:CGSizeMake(60, 0)].width, 60) << "a word longer than the line is broken";
  [text setText:@"a\nb\nc"];
  EXPECT_NEAR([text sizeThatFits:CGSizeMake(60, 0)].height, 61, 1);
}

TEST_F(UILabelTests, NothingHasNoSize) {
  for (NSString *empty in [NSArray arrayWithObjects:@"", nil]) {
    EXPECT_TRUE(CGSizeEqualToSize([label(empty) sizeThatFits:CGSizeMake(100, 100)], CGSizeZero));
  }
  EXPECT_TRUE(CGSizeEqualToSize([label(nil) sizeThatFits:CGSizeMake(100, 100)], CGSizeZero));
}

TEST_F(UILabelTests, AnyTextIsMeasured) {
  NSMutableString *broken = [NSMutableString stringWithString:@"\U0001F600x"];
  [broken deleteCharactersInRange:NSMakeRange(0, 1)];
  ASSERT_EQ([broken characterAtIndex:0], 0xDE00) << "half a character";
  for (NSString *text in @[ broken, @"👩‍👩‍👧‍👦 日本語 عربى", @"\t\n", @"a\0b" ]) {
    EXPECT_GE([label(text) sizeThatFits:CGSizeZero].width, 0);
  }
  NSString *emoji = @"\U0001F600";
  EXPECT_GT([label(emoji) sizeThatFits:CGSizeZero].width, 5);
}

TEST_F(UILabelTests, TextRectFollowsTheAlignment) {
  UILabel *text = label(@"Hi");
  const CGRect bounds = CGRectMake(10, 10, 200, 100);
  CGRect rect = [text textRectForBounds:bounds limitedToNumberOfLines:1];
  EXPECT_EQ(rect.origin.x, 10);
  EXPECT_NEAR(CGRectGetMidY(rect), 60, 1e-9);
  [text setTextAlignment:NSTextAlignmentCenter];
  rect = [text textRectForBounds:bounds limitedToNumberOfLines:1];
  EXPECT_NEAR(CGRectGetMidX(rect), 110, 1e-9);
  [text setTextAlignment:NSTextAlignmentRight];
  rect = [text textRectForBounds:bounds limitedToNumberOfLines:1];
  EXPECT_NEAR(CGRectGetMaxX(rect), 210, 1e-9);
  [text setText:@"much longer than thirty points"];
  EXPECT_EQ([text textRectForBounds:CGRectMake(0, 0, 30, 10) limitedToNumberOfLines:1].size.width, 30);
}

TEST_F(UILabelTests, AttributedTextGivesFontAndColour) {
  NSDictionary *attributes =
      [NSDictionary dictionaryWithObjectsAndKeys:[UIFont boldSystemFontOfSize:22], NSFontAttributeName,
                                                 [UIColor redColor], NSForegroundColorAttributeName, nil];
  UILabel *text = label(@"before");
  [text setAttributedText:[[[NSAttributedString alloc] initWithString:@"after" attributes:attributes] autorelease]];
  EXPECT_OBJC_EQ([text text], @"after");
  EXPECT_EQ([[text font] pointSize], 22);
  EXPECT_OBJC_EQ([text textColor], [UIColor redColor]);
  [text setText:@"plain"];
  EXPECT_OBJC_EQ([[text attributedText] string], @"plain");
  [text setAttributedText:nil];
  EXPECT_OBJC_EQ([text text], nil);
}

TEST_F(UILabelTests, TextIsCopied) {
  NSMutableString *text = [NSMutableString stringWithString:@"one"];
  UILabel *copy = label(text);
  [text setString:@"two"];
  EXPECT_OBJC_EQ([copy text], @"one");
}

class UIFontTests : public ObjCTest {};

TEST_F(UIFontTests, HasTheSystemsMetrics) {
  UIFont *font = [UIFont systemFontOfSize:17];
  EXPECT_NEAR([font lineHeight], 20.287, 0.001);
  EXPECT_NEAR([font ascender], 16.187, 0.001);
  EXPECT_NEAR([font descender], -4.101, 0.001);
  EXPECT_NEAR([font ascender] - [font descender], [font lineHeight], 1e-9);
  EXPECT_OBJC_EQ([font fontName], @".SFUI-Regular");
  EXPECT_OBJC_EQ([[UIFont boldSystemFontOfSize:17] fontName], @".SFUI-Semibold");
  EXPECT_OBJC_EQ([[UIFont italicSystemFontOfSize:17] fontName], @".SFUI-Italic");
}

TEST_F(UIFontTests, WeightsAreTheBrowsers) {
  EXPECT_EQ(sim::textStyle([UIFont systemFontOfSize:20 weight:UIFontWeightBlack]).weight, 900);
  EXPECT_EQ(sim::textStyle([UIFont systemFontOfSize:20 weight:UIFontWeightUltraLight]).weight, 100);
  EXPECT_EQ(sim::textStyle([UIFont systemFontOfSize:20 weight:UIFontWeightMedium]).weight, 500);
  EXPECT_TRUE(sim::textStyle([UIFont italicSystemFontOfSize:20]).italic);
  EXPECT_EQ(sim::textStyle(nil).size, 17);
}

TEST_F(UIFontTests, TextStylesHaveTheirSizes) {
  EXPECT_EQ([[UIFont preferredFontForTextStyle:UIFontTextStyleLargeTitle] pointSize], 34);
  EXPECT_EQ([[UIFont preferredFontForTextStyle:UIFontTextStyleFootnote] pointSize], 13);
  EXPECT_EQ(sim::textStyle([UIFont preferredFontForTextStyle:UIFontTextStyleHeadline]).weight, 600);
  EXPECT_EQ([[UIFont preferredFontForTextStyle:@"unknown"] pointSize], 17);
}

TEST_F(UIFontTests, Equality) {
  EXPECT_OBJC_EQ([UIFont systemFontOfSize:12], [[UIFont systemFontOfSize:30] fontWithSize:12]);
  EXPECT_OBJC_NE([UIFont systemFontOfSize:12], [UIFont boldSystemFontOfSize:12]);
  EXPECT_EQ([[UIFont systemFontOfSize:0] pointSize], 14);
  EXPECT_EQ([[UIFont systemFontOfSize:NAN] pointSize], 14);
}

NSMutableAttributedString *runs(NSString *first, CGFloat size, NSString *second) {
  NSMutableAttributedString *made = [[[NSMutableAttributedString alloc]
      initWithString:first
          attributes:@{NSFontAttributeName : [UIFont systemFontOfSize:size]}] autorelease];
  [made appendAttributedString:[[[NSAttributedString alloc] initWithString:second] autorelease]];
  return made;
}

TEST_F(UILabelTests, RunsAreMeasuredEachInItsFont) {
  UILabel *made = label(nil);
  [made setAttributedText:runs(@"large", 40, @"small")];
  const CGSize size = [made sizeThatFits:CGSizeZero];
  EXPECT_NEAR(size.width, widthOf(@"large", 40) + widthOf(@"small", 17), 0.4) << "a run without a font has the label's";
  EXPECT_NEAR(size.height, [[UIFont systemFontOfSize:40] lineHeight], 0.4);
  EXPECT_TRUE(CGSizeEqualToSize([made intrinsicContentSize], size));
  EXPECT_EQ([[made font] pointSize], 40) << "that of the first character";
  [made setNumberOfLines:0];
  EXPECT_GT([made sizeThatFits:CGSizeMake(size.width - 10, 0)].height, size.height);
  [made setNumberOfLines:1];
  EXPECT_EQ([made sizeThatFits:CGSizeMake(10, 0)].width, size.width);
}

TEST_F(UILabelTests, SettingAPropertyGivesItToAllRuns) {
  UILabel *made = label(nil);
  NSMutableParagraphStyle *style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineSpacing:9];
  NSMutableAttributedString *string = runs(@"large", 40, @"small");
  [string addAttribute:NSParagraphStyleAttributeName value:style range:NSMakeRange(0, 5)];
  [made setAttributedText:string];
  [made setFont:[UIFont systemFontOfSize:10]];
  [made setTextColor:[UIColor redColor]];
  [made setTextAlignment:NSTextAlignmentCenter];
  [made setLineBreakMode:NSLineBreakByCharWrapping];
  EXPECT_NEAR([made sizeThatFits:CGSizeZero].width, widthOf(@"largesmall", 10), 0.4);
  for (const NSUInteger at : {NSUInteger(0), NSUInteger(7)}) {
    NSDictionary *attributes = [[made attributedText] attributesAtIndex:at effectiveRange:nullptr];
    EXPECT_OBJC_EQ([attributes objectForKey:NSForegroundColorAttributeName], [UIColor redColor]);
  }
  NSParagraphStyle *changed = [[made attributedText] attribute:NSParagraphStyleAttributeName
                                                       atIndex:0
                                                effectiveRange:nullptr];
  EXPECT_EQ([changed alignment], NSTextAlignmentCenter);
  EXPECT_EQ([changed lineBreakMode], NSLineBreakByCharWrapping);
  EXPECT_EQ([changed lineSpacing], 9) << "the rest of the style stays";
  EXPECT_EQ([style alignment], NSTextAlignmentNatural) << "of its owner";
  [made setText:@"plain"];
  EXPECT_NEAR([made sizeThatFits:CGSizeZero].width, widthOf(@"plain", 10), 0.4);
}

TEST_F(UILabelTests, AButtonShowsAnAttributedTitle) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTitle:@"plain" forState:UIControlStateNormal];
  const CGFloat plain = [button intrinsicContentSize].width;
  [button setAttributedTitle:runs(@"large", 40, @"small") forState:UIControlStateNormal];
  EXPECT_GT([button intrinsicContentSize].width, plain);
  EXPECT_OBJC_EQ([[[button titleLabel] attributedText] string], @"largesmall");
  EXPECT_OBJC_EQ([[button attributedTitleForState:UIControlStateSelected] string], @"largesmall");
  EXPECT_OBJC_EQ([[button titleLabel] textColor], [button tintColor]);
  [button setAttributedTitle:nil forState:UIControlStateNormal];
  EXPECT_OBJC_EQ([[button titleLabel] text], @"plain");
  EXPECT_OBJC_EQ([button currentAttributedTitle], nil);
}

TEST_F(UILabelTests, ATextViewIsAsHighAsItsRuns) {
  UITextView *view = [[[UITextView alloc] init] autorelease];
  [view setAttributedText:runs(@"large", 40, @"small")];
  const CGFloat large = [[UIFont systemFontOfSize:40] lineHeight] + 16;
  EXPECT_NEAR([view sizeThatFits:CGSizeMake(1000, 0)].height, large, 0.4);
  EXPECT_EQ([[view attributedText] length], 10u);
  [view setFont:[UIFont systemFontOfSize:10]];
  EXPECT_NEAR([view sizeThatFits:CGSizeMake(1000, 0)].height, [[UIFont systemFontOfSize:10] lineHeight] + 16, 0.4);
  [view setText:@"plain"];
  EXPECT_OBJC_EQ([[view attributedText] string], @"plain");
}

class NSStringDrawingTests : public ObjCTest {
 protected:
  NSDictionary *attributes(NSParagraphStyle *style = nil) {
    return [NSDictionary dictionaryWithObjectsAndKeys:[UIFont systemFontOfSize:20], NSFontAttributeName, style,
                                                      NSParagraphStyleAttributeName, nil];
  }
  int inkIn(UIImage *image) {
    NSData *data = [(NSData *)CGDataProviderCopyData(CGImageGetDataProvider([image CGImage])) autorelease];
    int ink = 0;
    for (NSUInteger i = 3; i < [data length]; i += 4) ink += static_cast<const std::uint8_t *>([data bytes])[i] > 0;
    return ink;
  }
};

TEST_F(NSStringDrawingTests, BoundingRectWraps) {
  NSString *text = @"one two three four five six";
  const CGRect wide = [text boundingRectWithSize:CGSizeMake(90, 1000)
                                         options:NSStringDrawingUsesLineFragmentOrigin
                                      attributes:attributes()
                                         context:nil];
  EXPECT_LE(wide.size.width, 90);
  EXPECT_GT(wide.size.height, 60);
  const CGRect single = [text boundingRectWithSize:CGSizeMake(90, 1000) options:0 attributes:attributes() context:nil];
  EXPECT_GT(single.size.width, 200);
  const CGRect cut =
      [text boundingRectWithSize:CGSizeMake(90, 50)
                         options:NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingTruncatesLastVisibleLine
                      attributes:attributes()
                         context:nil];
  EXPECT_LE(cut.size.height, 50);
  EXPECT_EQ([@"" sizeWithAttributes:attributes()].height, 0);
}

TEST_F(NSStringDrawingTests, LineSpacingCounts) {
  NSMutableParagraphStyle *style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineSpacing:10];
  const CGFloat plain = [@"a\nb" sizeWithAttributes:attributes()].height;
  EXPECT_NEAR([@"a\nb" sizeWithAttributes:attributes(style)].height, plain + 10, 1e-9);
}

TEST_F(NSStringDrawingTests, DrawsWithinTheRectangle) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(100, 50), NO, 1);
  [@"Zuno" drawAtPoint:CGPointMake(5, 5) withAttributes:attributes()];
  const int whole = inkIn(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  EXPECT_GT(whole, 50);
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(100, 50), NO, 1);
  [@"Zuno" drawInRect:CGRectMake(5, 5, 12, 40) withAttributes:attributes()];
  const int part = inkIn(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  EXPECT_GT(part, 5);
  EXPECT_LT(part, whole);
  [@"nowhere" drawAtPoint:CGPointZero withAttributes:nil];
}

TEST_F(NSStringDrawingTests, ParagraphStylesCopy) {
  NSMutableParagraphStyle *style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setAlignment:NSTextAlignmentCenter];
  NSParagraphStyle *copy = [[style copy] autorelease];
  [style setAlignment:NSTextAlignmentRight];
  EXPECT_EQ([copy alignment], NSTextAlignmentCenter);
  EXPECT_OBJC_EQ([[copy mutableCopy] autorelease], copy);
  EXPECT_OBJC_NE(style, copy);
  EXPECT_EQ([[NSParagraphStyle defaultParagraphStyle] alignment], NSTextAlignmentNatural);
}

}  // namespace
