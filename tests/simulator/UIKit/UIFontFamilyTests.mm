#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class UIFontFamilyTests : public ObjCTest {
 protected:
  static CGFloat width(UIFont *font, NSString *text) {
    return [text sizeWithAttributes:[NSDictionary dictionaryWithObject:font forKey:NSFontAttributeName]].width;
  }
};

TEST_F(UIFontFamilyTests, FontsAreFoundByFaceAndByFamily) {
  UIFont *bold = [UIFont fontWithName:@"HelveticaNeue-Bold" size:20];
  EXPECT_OBJC_EQ([bold familyName], @"Helvetica Neue");
  EXPECT_OBJC_EQ([bold fontName], @"HelveticaNeue-Bold");
  EXPECT_EQ([bold pointSize], 20);
  EXPECT_EQ(sim::textStyle(bold).weight, 700);
  UIFont *family = [UIFont fontWithName:@"Georgia" size:10];
  EXPECT_OBJC_EQ([family fontName], @"Georgia");
  EXPECT_EQ(sim::textStyle(family).typeface, sim::Typeface::serif);
  EXPECT_OBJC_EQ([[UIFont fontWithName:@"Futura" size:10] fontName], @"Futura-Medium");
  EXPECT_TRUE(sim::textStyle([UIFont fontWithName:@"Courier-Oblique" size:10]).italic);
  EXPECT_OBJC_EQ([UIFont fontWithName:@"NoSuchFont" size:10], nil);
  EXPECT_OBJC_EQ([UIFont fontWithName:nil size:10], nil);
}

TEST_F(UIFontFamilyTests, EveryNameThatIsListedIsAFontOfItsFamily) {
  EXPECT_GT([[UIFont familyNames] count], 20u);
  for (NSString *family in [UIFont familyNames]) {
    EXPECT_GT([[UIFont fontNamesForFamilyName:family] count], 0u);
    for (NSString *name in [UIFont fontNamesForFamilyName:family]) {
      EXPECT_OBJC_EQ([[UIFont fontWithName:name size:9] familyName], family);
    }
  }
  EXPECT_OBJC_EQ([UIFont fontNamesForFamilyName:@"No family"], [NSArray array]);
}

TEST_F(UIFontFamilyTests, AFamilyStaysWithItsFontAtAnotherSize) {
  UIFont *font = [[UIFont fontWithName:@"Menlo-Bold" size:10] fontWithSize:30];
  EXPECT_OBJC_EQ([font fontName], @"Menlo-Bold");
  EXPECT_EQ([font pointSize], 30);
  EXPECT_OBJC_EQ(font, [UIFont fontWithName:@"Menlo-Bold" size:30]);
  EXPECT_FALSE([font isEqual:[UIFont fontWithName:@"Courier-Bold" size:30]]);
  EXPECT_FALSE([font isEqual:[UIFont boldSystemFontOfSize:30]]);
}

TEST_F(UIFontFamilyTests, TextIsMeasuredInItsFont) {
  UIFont *mono = [UIFont fontWithName:@"Courier" size:100];
  EXPECT_NEAR(width(mono, @"i"), 60, 0.5) << "Courier's letters are six tenths wide";
  EXPECT_NEAR(width(mono, @"W"), 60, 0.5);
  EXPECT_NEAR(width([UIFont fontWithName:@"Helvetica" size:100], @"W"), 94.4, 0.5);
  EXPECT_NEAR(width([UIFont fontWithName:@"Times New Roman" size:100], @"i"), 27.8, 0.5);
  UIFont *digits = [UIFont monospacedDigitSystemFontOfSize:100 weight:UIFontWeightRegular];
  EXPECT_EQ(width(digits, @"1"), width(digits, @"0"));
  EXPECT_NE(width([UIFont systemFontOfSize:100], @"1"), width([UIFont systemFontOfSize:100], @"0"));
  EXPECT_EQ(width([UIFont monospacedSystemFontOfSize:100 weight:0], @"i"),
            width([UIFont monospacedSystemFontOfSize:100 weight:0], @"W"));
}

TEST_F(UIFontFamilyTests, MetricsAreThoseOfTheFont) {
  UIFont *sans = [UIFont fontWithName:@"Arial" size:2048];
  EXPECT_EQ([sans ascender], 1854);
  EXPECT_EQ([sans descender], -434);
  EXPECT_EQ([sans capHeight], 1409);
  EXPECT_EQ([sans xHeight], 1082);
  EXPECT_EQ([sans leading], 67);
  EXPECT_EQ([sans lineHeight], 2288);
  EXPECT_EQ([[UIFont fontWithName:@"Menlo" size:2048] ascender], 1705);
  EXPECT_EQ([[UIFont fontWithName:@"Georgia" size:2048] xHeight], 940);
}

TEST_F(UIFontFamilyTests, DescriptorsChangeFonts) {
  UIFontDescriptor *plain = [[UIFont fontWithName:@"Georgia" size:10] fontDescriptor];
  UIFont *both = [UIFont fontWithDescriptor:[plain fontDescriptorWithSymbolicTraits:UIFontDescriptorTraitBold |
                                                                                    UIFontDescriptorTraitItalic]
                                       size:0];
  EXPECT_OBJC_EQ([both fontName], @"Georgia-BoldItalic");
  EXPECT_EQ([both pointSize], 10);
  EXPECT_EQ([[both fontDescriptor] symbolicTraits], UIFontDescriptorTraitBold | UIFontDescriptorTraitItalic);
  EXPECT_OBJC_EQ([[UIFont fontWithDescriptor:[[both fontDescriptor] fontDescriptorWithSymbolicTraits:0]
                                        size:20] fontName],
                 @"Georgia");
  EXPECT_EQ([[UIFont fontWithDescriptor:[plain fontDescriptorWithSize:33] size:0] pointSize], 33);
  EXPECT_OBJC_EQ([[UIFont fontWithDescriptor:[plain fontDescriptorWithFamily:@"Menlo"] size:0] fontName],
                 @"Menlo-Regular");
  UIFontDescriptor *system = [[UIFont systemFontOfSize:10] fontDescriptor];
  EXPECT_TRUE([[system fontDescriptorWithDesign:UIFontDescriptorSystemDesignMonospaced] symbolicTraits] &
              UIFontDescriptorTraitMonoSpace);
  EXPECT_OBJC_EQ([plain fontDescriptorWithDesign:UIFontDescriptorSystemDesignSerif], nil);
  NSDictionary *weight = [NSDictionary dictionaryWithObject:[NSNumber numberWithDouble:UIFontWeightHeavy]
                                                     forKey:UIFontWeightTrait];
  NSDictionary *wanted = [NSDictionary
      dictionaryWithObjectsAndKeys:@"Avenir", UIFontDescriptorFamilyAttribute, [NSNumber numberWithInt:15],
                                   UIFontDescriptorSizeAttribute, weight, UIFontDescriptorTraitsAttribute, nil];
  UIFont *heavy = [UIFont fontWithDescriptor:[UIFontDescriptor fontDescriptorWithFontAttributes:wanted] size:0];
  EXPECT_OBJC_EQ([heavy fontName], @"Avenir-Heavy");
  EXPECT_EQ([heavy pointSize], 15);
  EXPECT_EQ([[UIFontDescriptor preferredFontDescriptorWithTextStyle:UIFontTextStyleTitle1] pointSize], 28);
}

}  // namespace
