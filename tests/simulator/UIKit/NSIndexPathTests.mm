#import <UIKit/NSIndexPath+UIKit.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

namespace {
class NSIndexPathTest : public ObjCTest {};
}  // namespace

TEST_F(NSIndexPathTest, HasASectionAndARow) {
  NSIndexPath *path = [NSIndexPath indexPathForRow:3 inSection:7];
  EXPECT_EQ([path section], 7);
  EXPECT_EQ([path row], 3);
  EXPECT_EQ([path item], 3);
  EXPECT_EQ([path length], 2u);
  EXPECT_OBJC_EQ(path, [NSIndexPath indexPathForItem:3 inSection:7]);
  EXPECT_OBJC_NE(path, [NSIndexPath indexPathForRow:7 inSection:3]);
}

TEST_F(NSIndexPathTest, OtherLengthsHaveNone) {
  EXPECT_EQ(raisedBy([] { [[NSIndexPath indexPathWithIndex:1] row]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([] { [[NSIndexPath indexPathWithIndex:1] section]; }), "NSInternalInconsistencyException");
}
