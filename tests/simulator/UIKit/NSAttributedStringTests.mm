// Measuring and drawing of texts with attributes, and what they consist of.
#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/AttributedText.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using test_images::at;
using Drawn = test_images::Pixel;

NSMutableAttributedString *attributed(NSString *string, NSDictionary *attributes = @{}) {
  return [[[NSMutableAttributedString alloc] initWithString:string attributes:attributes] autorelease];
}

NSDictionary *sized(CGFloat size) { return @{NSFontAttributeName : [UIFont systemFontOfSize:size]}; }

class NSAttributedStringTests : public ObjCTest {
 protected:
  /// What `draw` draws in 60 × 40 points at scale 1.
  template <typename Draw>
  sim::BitmapPtr drawing(Draw draw) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(60, 40), NO, 1);
    draw();
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return sim::sourceOf([image CGImage])->bitmap();
  }
  sim::BitmapPtr drawingOf(NSAttributedString *string) {
    return drawing([&] { [string drawAtPoint:CGPointMake(5, 5)]; });
  }
  /// Whether any pixel of the rows is of more of the first than of the others.
  static bool isDrawn(const sim::Bitmap &bitmap, int component, int top = 0, int bottom = 40) {
    for (int y = top; y < bottom; ++y) {
      for (int x = 0; x < bitmap.width(); ++x) {
        const Drawn pixel = at(bitmap, x, y);
        const int components[] = {pixel.red, pixel.green, pixel.blue};
        if (components[component] > 60 && components[(component + 1) % 3] < 30) return true;
      }
    }
    return false;
  }
};

TEST_F(NSAttributedStringTests, EachRunIsMeasuredInItsFont) {
  NSMutableAttributedString *string = attributed(@"large", sized(40));
  [string appendAttributedString:attributed(@"small", sized(10))];
  const CGSize size = [string size];
  EXPECT_NEAR(size.width, [@"large" sizeWithAttributes:sized(40)].width + [@"small" sizeWithAttributes:sized(10)].width,
              0.01);
  EXPECT_NEAR(size.height, [[UIFont systemFontOfSize:40] lineHeight], 1e-6);
  EXPECT_NEAR([attributed(@"x") size].height, [[UIFont systemFontOfSize:12] lineHeight], 1e-6)
      << "12 points by default";
  EXPECT_TRUE(CGSizeEqualToSize([attributed(@"") size], CGSizeZero));
}

TEST_F(NSAttributedStringTests, BoundsAreOfTheLinesThatFit) {
  NSAttributedString *string = attributed(@"one two three four five six", sized(17));
  const CGFloat line = [[UIFont systemFontOfSize:17] lineHeight];
  const CGRect wrapped = [string boundingRectWithSize:CGSizeMake(70, 0)
                                              options:NSStringDrawingUsesLineFragmentOrigin
                                              context:nil];
  EXPECT_LE(wrapped.size.width, 70);
  EXPECT_GT(wrapped.size.height, 2.5 * line);
  const CGRect cut =
      [string boundingRectWithSize:CGSizeMake(70, 2.5 * line)
                           options:NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingTruncatesLastVisibleLine
                           context:nil];
  EXPECT_NEAR(cut.size.height, 2 * line, 1e-6);
  EXPECT_NEAR([string boundingRectWithSize:CGSizeMake(70, 0) options:0 context:nil].size.height, line, 1e-6);
}

TEST_F(NSAttributedStringTests, RunsAreDrawnInTheirColours) {
  NSMutableAttributedString *string = attributed(@"M", @{NSForegroundColorAttributeName : [UIColor redColor]});
  [string appendAttributedString:attributed(@"M", @{NSForegroundColorAttributeName : [UIColor greenColor]})];
  const auto drawn = drawingOf(string);
  EXPECT_TRUE(isDrawn(*drawn, 0));
  EXPECT_TRUE(isDrawn(*drawn, 1));
  EXPECT_FALSE(isDrawn(*drawn, 2));
}

TEST_F(NSAttributedStringTests, ABackgroundLiesBehindTheText) {
  NSMutableDictionary *attributes = [[sized(17) mutableCopy] autorelease];
  [attributes setObject:[UIColor blueColor] forKey:NSBackgroundColorAttributeName];
  const auto drawn = drawingOf(attributed(@"   ", attributes));
  EXPECT_EQ(at(*drawn, 8, 15), (Drawn{0, 0, 255, 255}));
  EXPECT_EQ(at(*drawn, 8, 3), (Drawn{0, 0, 0, 0})) << "above the text";
}

TEST_F(NSAttributedStringTests, LinesAreDrawnUnderAndThroughTheText) {
  NSMutableDictionary *attributes = [[sized(20) mutableCopy] autorelease];
  [attributes setObject:@(NSUnderlineStyleThick) forKey:NSUnderlineStyleAttributeName];
  [attributes setObject:[UIColor redColor] forKey:NSUnderlineColorAttributeName];
  [attributes setObject:@(NSUnderlineStyleSingle) forKey:NSStrikethroughStyleAttributeName];
  [attributes setObject:[UIColor greenColor] forKey:NSStrikethroughColorAttributeName];
  const auto drawn = drawingOf(attributed(@"  ", attributes));
  // The baseline is 24 points below the top, half of an x 19.
  EXPECT_TRUE(isDrawn(*drawn, 0, 25, 29));
  EXPECT_FALSE(isDrawn(*drawn, 0, 0, 24));
  EXPECT_TRUE(isDrawn(*drawn, 1, 16, 21));
  [attributes setObject:@(NSUnderlineStyleSingle) forKey:NSUnderlineStyleAttributeName];
  EXPECT_FALSE(isDrawn(*drawingOf(attributed(@"  ", attributes)), 0, 28, 32));
  [attributes setObject:@(NSUnderlineStyleDouble) forKey:NSUnderlineStyleAttributeName];
  EXPECT_TRUE(isDrawn(*drawingOf(attributed(@"  ", attributes)), 0, 28, 32)) << "the lower one of two";
  [attributes removeObjectForKey:NSUnderlineStyleAttributeName];
  EXPECT_FALSE(isDrawn(*drawingOf(attributed(@"  ", attributes)), 0)) << "a colour alone is no line";
}

TEST_F(NSAttributedStringTests, AShadowLiesBesideTheText) {
  NSShadow *shadow = [[[NSShadow alloc] init] autorelease];
  [shadow setShadowOffset:CGSizeMake(0, 20)];
  [shadow setShadowColor:[UIColor blueColor]];
  NSDictionary *attributes = @{NSForegroundColorAttributeName : [UIColor redColor], NSShadowAttributeName : shadow};
  const auto drawn = drawingOf(attributed(@"M", attributes));
  EXPECT_TRUE(isDrawn(*drawn, 0, 5, 20));
  EXPECT_TRUE(isDrawn(*drawn, 2, 25, 40)) << "20 points below";
  EXPECT_FALSE(isDrawn(*drawn, 0, 25, 40));
}

TEST_F(NSAttributedStringTests, DrawingInARectangleIsCutToIt) {
  NSDictionary *attributes = @{NSForegroundColorAttributeName : [UIColor redColor]};
  const auto drawn = drawing([&] { [attributed(@"MMMMMM", attributes) drawInRect:CGRectMake(0, 0, 20, 8)]; });
  EXPECT_TRUE(isDrawn(*drawn, 0, 0, 8));
  EXPECT_FALSE(isDrawn(*drawn, 0, 8, 40));
  const auto baseline =
      drawing([&] { [attributed(@"M", attributes) drawWithRect:CGRectMake(5, 20, 0, 0) options:0 context:nil]; });
  EXPECT_TRUE(isDrawn(*baseline, 0, 10, 20));
  EXPECT_FALSE(isDrawn(*baseline, 0, 20, 40)) << "the baseline is at the origin";
}

TEST_F(NSAttributedStringTests, AttachmentsAreDrawnInTheLine) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(10, 20), YES, 1);
  [[UIColor greenColor] setFill];
  UIRectFill(CGRectMake(0, 0, 10, 20));
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  NSTextAttachment *attachment = [NSTextAttachment textAttachmentWithImage:image];
  NSAttributedString *string = [NSAttributedString attributedStringWithAttachment:attachment];
  EXPECT_EQ([[string string] characterAtIndex:0], NSAttachmentCharacter);
  EXPECT_NEAR([string size].width, 10, 0.01);
  EXPECT_NEAR([string size].height, 20, 0.01);
  const auto drawn = drawingOf(string);
  EXPECT_EQ(at(*drawn, 5, 5), (Drawn{0, 255, 0, 255}));
  EXPECT_EQ(at(*drawn, 14, 24), (Drawn{0, 255, 0, 255}));
  EXPECT_EQ(at(*drawn, 16, 10), (Drawn{0, 0, 0, 0}));
  [attachment setBounds:CGRectMake(0, -5, 30, 10)];
  EXPECT_NEAR([string size].width, 30, 0.01);
  EXPECT_NEAR([string size].height, 10, 0.01);
}

TEST_F(NSAttributedStringTests, SymbolsGoWithTheText) {
  NSTextAttachment *attachment = [NSTextAttachment textAttachmentWithImage:[UIImage systemImageNamed:@"star.fill"]];
  NSMutableAttributedString *string =
      [[[NSAttributedString attributedStringWithAttachment:attachment] mutableCopy] autorelease];
  const auto widthAt = [&](CGFloat size) {
    [string addAttributes:sized(size) range:NSMakeRange(0, 1)];
    return [string size].width;
  };
  EXPECT_NEAR(widthAt(34), 2 * widthAt(17), 1);
  const sim::AttributedText text(string, {}, sim::Shortening::ofLastLine);
  const sim::TextBox box = text.runs().front().box.value();
  EXPECT_NEAR(box.ascent - box.descent, [[UIFont systemFontOfSize:17] capHeight], 0.01)
      << "beside the capitals' middle";
  [string addAttribute:NSForegroundColorAttributeName value:[UIColor redColor] range:NSMakeRange(0, 1)];
  EXPECT_TRUE(isDrawn(*drawingOf(string), 0)) << "in the text's colour";
}

TEST_F(NSAttributedStringTests, AnAttachmentHasTheImageOfItsBytes) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(3, 4), YES, 1);
  NSData *file = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  NSTextAttachment *attachment = [[[NSTextAttachment alloc] initWithData:file ofType:@"public.png"] autorelease];
  EXPECT_EQ([[attachment image] size].height, 4);
  EXPECT_OBJC_EQ([attachment contents], file);
  [attachment setImage:nil];
  EXPECT_OBJC_EQ([attachment contents], nil);
  EXPECT_OBJC_EQ([attachment image], nil);
  NSTextAttachment *none = [NSTextAttachment textAttachmentWithImage:nil];
  EXPECT_EQ([[NSAttributedString attributedStringWithAttachment:none] size].width, 0);
}

TEST_F(NSAttributedStringTests, AttributesOfWrongKindsAreLeftOut) {
  NSDictionary *wrong = @{
    NSFontAttributeName : @"no font",
    NSForegroundColorAttributeName : @1,
    NSKernAttributeName : @"wide",
    NSParagraphStyleAttributeName : @2,
    NSLinkAttributeName : @3,
    NSAttachmentAttributeName : @"none",
  };
  EXPECT_TRUE(CGSizeEqualToSize([attributed(@"a\0b", wrong) size], [attributed(@"a\0b") size]));
}

TEST_F(NSAttributedStringTests, ShadowsCopyAndCompare) {
  NSShadow *shadow = [[[NSShadow alloc] init] autorelease];
  [shadow setShadowOffset:CGSizeMake(1, 2)];
  NSShadow *copy = [[shadow copy] autorelease];
  EXPECT_OBJC_EQ(copy, shadow);
  [copy setShadowBlurRadius:3];
  EXPECT_OBJC_NE(copy, shadow);
}

TEST_F(NSAttributedStringTests, ParagraphStylesKeepWhatTheyAreTold) {
  NSMutableParagraphStyle *style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  NSArray *keys = @[
    @"lineSpacing", @"paragraphSpacing", @"paragraphSpacingBefore", @"firstLineHeadIndent", @"headIndent",
    @"tailIndent", @"minimumLineHeight", @"maximumLineHeight", @"lineHeightMultiple"
  ];
  for (NSString *key in keys) {
    NSParagraphStyle *before = [[style copy] autorelease];
    [style setValue:@7 forKey:key];
    EXPECT_OBJC_EQ([style valueForKey:key], @7) << [key UTF8String];
    EXPECT_OBJC_NE(before, style) << [key UTF8String];
  }
  NSMutableParagraphStyle *other = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [other setParagraphStyle:style];
  EXPECT_OBJC_EQ(other, style);
}

}  // namespace
