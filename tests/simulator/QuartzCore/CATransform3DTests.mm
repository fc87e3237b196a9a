#import <QuartzCore/QuartzCore.h>

#import "support/objc/ObjCTest.h"

namespace {

class CATransform3DTests : public ObjCTest {};

void expectNear(const CATransform3D &one, const CATransform3D &other) {
  const auto *a = &one.m11, *b = &other.m11;
  for (int at = 0; at < 16; ++at) EXPECT_NEAR(a[at], b[at], 1e-9) << at;
}

TEST_F(CATransform3DTests, ChangesComeBeforeTheTransform) {
  const CATransform3D moved = CATransform3DTranslate(CATransform3DMakeScale(2, 3, 4), 1, 1, 1);
  EXPECT_EQ(moved.m41, 2);
  EXPECT_EQ(moved.m42, 3);
  EXPECT_EQ(moved.m43, 4);
  expectNear(CATransform3DScale(CATransform3DMakeTranslation(1, 2, 3), 2, 2, 2),
             CATransform3DConcat(CATransform3DMakeScale(2, 2, 2), CATransform3DMakeTranslation(1, 2, 3)));
}

TEST_F(CATransform3DTests, ARotationAboutZIsThatOfThePlane) {
  const CATransform3D turned = CATransform3DMakeRotation(0.3, 0, 0, 5);
  EXPECT_TRUE(CATransform3DIsAffine(turned));
  const CGAffineTransform plane = CATransform3DGetAffineTransform(turned);
  EXPECT_NEAR(plane.b, std::sin(0.3), 1e-12);
  EXPECT_NEAR(plane.c, -std::sin(0.3), 1e-12);
  EXPECT_FALSE(CATransform3DIsAffine(CATransform3DMakeRotation(0.3, 1, 0, 0)));
  EXPECT_NEAR(CATransform3DMakeRotation(0.3, 1, 0, 0).m23, std::sin(0.3), 1e-12);
  EXPECT_TRUE(CATransform3DIsIdentity(CATransform3DRotate(CATransform3DIdentity, 1, 0, 0, 0)));
}

TEST_F(CATransform3DTests, TheInverseTakesBack) {
  CATransform3D t = CATransform3DRotate(CATransform3DMakeTranslation(3, 4, 5), 1, 1, 2, 3);
  t.m34 = -0.002;
  expectNear(CATransform3DConcat(t, CATransform3DInvert(t)), CATransform3DIdentity);
  const CATransform3D flat = CATransform3DMakeScale(1, 0, 1);
  EXPECT_TRUE(CATransform3DEqualToTransform(CATransform3DInvert(flat), flat));
}

TEST_F(CATransform3DTests, ValuesHoldTransforms) {
  const CATransform3D t = CATransform3DMakeTranslation(1, 2, 3);
  EXPECT_TRUE(CATransform3DEqualToTransform([[NSValue valueWithCATransform3D:t] CATransform3DValue], t));
  EXPECT_TRUE(CATransform3DIsIdentity([[NSNumber numberWithInt:1] CATransform3DValue]));
}

}  // namespace
