#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

namespace {

class CGColorTests : public ObjCTest {};

TEST_F(CGColorTests, GreyAndRGBHaveTheirOwnComponents) {
  const CGColorRef grey = CGColorCreateGenericGray(0.25, 0.5);
  EXPECT_EQ(CGColorGetNumberOfComponents(grey), 2u);
  EXPECT_EQ(CGColorGetComponents(grey)[0], 0.25);
  EXPECT_EQ(CGColorGetAlpha(grey), 0.5);
  EXPECT_EQ(CGColorSpaceGetModel(CGColorGetColorSpace(grey)), kCGColorSpaceModelMonochrome);
  EXPECT_EQ(sim::components(grey), (sim::RGBA{0.25, 0.25, 0.25, 0.5}));
  const CGColorRef red = CGColorCreateSRGB(1, 0, 0, 1);
  EXPECT_EQ(CGColorGetNumberOfComponents(red), 4u);
  EXPECT_EQ(CGColorGetAlpha(red), 1);
  CFRelease(grey);
  CGColorRelease(red);
}

TEST_F(CGColorTests, EqualColours) {
  const CGColorRef red = CGColorCreateSRGB(1, 0, 0, 1);
  const CGColorRef copy = CGColorCreateCopyWithAlpha(red, 1);
  const CGColorRef faint = CGColorCreateCopyWithAlpha(red, 0.5);
  EXPECT_TRUE(CGColorEqualToColor(red, copy));
  EXPECT_TRUE([(id)red isEqual:(id)copy]);
  EXPECT_FALSE(CGColorEqualToColor(red, faint));
  EXPECT_FALSE(CGColorEqualToColor(red, nullptr));
  EXPECT_TRUE(CGColorEqualToColor(nullptr, nullptr));
  EXPECT_EQ(CGColorGetAlpha(red), 1);
  for (const CGColorRef color : {red, copy, faint}) CGColorRelease(color);
}

TEST_F(CGColorTests, NothingIsNoColour) {
  EXPECT_EQ(CGColorCreate(nullptr, nullptr), nullptr);
  EXPECT_EQ(CGColorGetNumberOfComponents(nullptr), 0u);
  EXPECT_EQ(CGColorGetComponents(nullptr), nullptr);
  EXPECT_EQ(CGColorCreateCopyWithAlpha(nullptr, 1), nullptr);
  EXPECT_EQ(sim::components(nullptr), sim::RGBA());
  CGColorRelease(nullptr);
}

}  // namespace
