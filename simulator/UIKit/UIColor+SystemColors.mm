// The system's palette, as Apple publishes it.
#import <UIKit/UIColor.h>
#import <UIKit/UITraitCollection.h>

#include <cstdint>

namespace {

// 0xRRGGBB; lives as long as the process.
UIColor *makeColor(std::uint32_t rgb, double alpha) {
  return [[UIColor alloc] initWithRed:(rgb >> 16 & 255) / 255.0
                                green:(rgb >> 8 & 255) / 255.0
                                 blue:(rgb & 255) / 255.0
                                alpha:alpha];
}

UIColor *makePair(std::uint32_t light, double lightAlpha, std::uint32_t dark, double darkAlpha) {
  UIColor *lightColor = [makeColor(light, lightAlpha) autorelease];
  UIColor *darkColor = [makeColor(dark, darkAlpha) autorelease];
  return [[UIColor alloc] initWithDynamicProvider:^UIColor *(UITraitCollection *traits) {
    return [traits userInterfaceStyle] == UIUserInterfaceStyleDark ? darkColor : lightColor;
  }];
}

UIColor *makePair(std::uint32_t light, std::uint32_t dark) { return makePair(light, 1, dark, 1); }

}  // namespace

@implementation UIColor (UIColorSystemColors)

+ (UIColor *)systemRedColor {
  static UIColor *const color = makePair(0xFF3B30, 0xFF453A);
  return color;
}

+ (UIColor *)systemGreenColor {
  static UIColor *const color = makePair(0x34C759, 0x30D158);
  return color;
}

+ (UIColor *)systemBlueColor {
  static UIColor *const color = makePair(0x007AFF, 0x0A84FF);
  return color;
}

+ (UIColor *)systemOrangeColor {
  static UIColor *const color = makePair(0xFF9500, 0xFF9F0A);
  return color;
}

+ (UIColor *)systemYellowColor {
  static UIColor *const color = makePair(0xFFCC00, 0xFFD60A);
  return color;
}

+ (UIColor *)systemPinkColor {
  static UIColor *const color = makePair(0xFF2D55, 0xFF375F);
  return color;
}

+ (UIColor *)systemPurpleColor {
  static UIColor *const color = makePair(0xAF52DE, 0xBF5AF2);
  return color;
}

+ (UIColor *)systemTealColor {
  static UIColor *const color = makePair(0x30B0C7, 0x40C8E0);
  return color;
}

+ (UIColor *)systemIndigoColor {
  static UIColor *const color = makePair(0x5856D6, 0x5E5CE6);
  return color;
}

+ (UIColor *)systemBrownColor {
  static UIColor *const color = makePair(0xA2845E, 0xAC8E68);
  return color;
}

+ (UIColor *)systemMintColor {
  static UIColor *const color = makePair(0x00C7BE, 0x63E6E2);
  return color;
}

+ (UIColor *)systemCyanColor {
  static UIColor *const color = makePair(0x32ADE6, 0x64D2FF);
  return color;
}

+ (UIColor *)systemGrayColor {
  static UIColor *const color = makePair(0x8E8E93, 0x8E8E93);
  return color;
}

+ (UIColor *)systemGray2Color {
  static UIColor *const color = makePair(0xAEAEB2, 0x636366);
  return color;
}

+ (UIColor *)systemGray3Color {
  static UIColor *const color = makePair(0xC7C7CC, 0x48484A);
  return color;
}

+ (UIColor *)systemGray4Color {
  static UIColor *const color = makePair(0xD1D1D6, 0x3A3A3C);
  return color;
}

+ (UIColor *)systemGray5Color {
  static UIColor *const color = makePair(0xE5E5EA, 0x2C2C2E);
  return color;
}

+ (UIColor *)systemGray6Color {
  static UIColor *const color = makePair(0xF2F2F7, 0x1C1C1E);
  return color;
}

+ (UIColor *)labelColor {
  static UIColor *const color = makePair(0x000000, 0xFFFFFF);
  return color;
}

+ (UIColor *)secondaryLabelColor {
  static UIColor *const color = makePair(0x3C3C43, 0.6, 0xEBEBF5, 0.6);
  return color;
}

+ (UIColor *)tertiaryLabelColor {
  static UIColor *const color = makePair(0x3C3C43, 0.3, 0xEBEBF5, 0.3);
  return color;
}

+ (UIColor *)quaternaryLabelColor {
  static UIColor *const color = makePair(0x3C3C43, 0.18, 0xEBEBF5, 0.16);
  return color;
}

+ (UIColor *)linkColor {
  static UIColor *const color = makePair(0x007AFF, 0x0984FF);
  return color;
}

+ (UIColor *)placeholderTextColor {
  static UIColor *const color = makePair(0x3C3C43, 0.3, 0xEBEBF5, 0.3);
  return color;
}

+ (UIColor *)separatorColor {
  static UIColor *const color = makePair(0x3C3C43, 0.29, 0x545458, 0.6);
  return color;
}

+ (UIColor *)opaqueSeparatorColor {
  static UIColor *const color = makePair(0xC6C6C8, 0x38383A);
  return color;
}

+ (UIColor *)systemBackgroundColor {
  static UIColor *const color = makePair(0xFFFFFF, 0x000000);
  return color;
}

+ (UIColor *)secondarySystemBackgroundColor {
  static UIColor *const color = makePair(0xF2F2F7, 0x1C1C1E);
  return color;
}

+ (UIColor *)tertiarySystemBackgroundColor {
  static UIColor *const color = makePair(0xFFFFFF, 0x2C2C2E);
  return color;
}

+ (UIColor *)systemGroupedBackgroundColor {
  static UIColor *const color = makePair(0xF2F2F7, 0x000000);
  return color;
}

+ (UIColor *)secondarySystemGroupedBackgroundColor {
  static UIColor *const color = makePair(0xFFFFFF, 0x1C1C1E);
  return color;
}

+ (UIColor *)tertiarySystemGroupedBackgroundColor {
  static UIColor *const color = makePair(0xF2F2F7, 0x2C2C2E);
  return color;
}

+ (UIColor *)systemFillColor {
  static UIColor *const color = makePair(0x787880, 0.2, 0x787880, 0.36);
  return color;
}

+ (UIColor *)secondarySystemFillColor {
  static UIColor *const color = makePair(0x787880, 0.16, 0x787880, 0.32);
  return color;
}

+ (UIColor *)tertiarySystemFillColor {
  static UIColor *const color = makePair(0x767680, 0.12, 0x767680, 0.24);
  return color;
}

+ (UIColor *)quaternarySystemFillColor {
  static UIColor *const color = makePair(0x747480, 0.08, 0x767680, 0.18);
  return color;
}

+ (UIColor *)tintColor {
  return [self systemBlueColor];
}

+ (UIColor *)lightTextColor {
  static UIColor *const color = makeColor(0xFFFFFF, 0.6);
  return color;
}

+ (UIColor *)darkTextColor {
  static UIColor *const color = makeColor(0x000000, 1);
  return color;
}

+ (UIColor *)groupTableViewBackgroundColor {
  return [self systemGroupedBackgroundColor];
}

@end
