#import "AutoLayoutSupport.h"

#include <gmock/gmock.h>

using objcxx::adopt;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

namespace {

class VisualFormatConstraintsTests : public AutoLayoutTest {
 protected:
  void SetUp() override {
    AutoLayoutTest::SetUp();
    host_ = makeHost();
    a_ = addView(host_.get());
    b_ = addView(host_.get());
  }
  void TearDown() override {
    host_ = nullptr;
    AutoLayoutTest::TearDown();
  }

  NSArray *make(NSString *format, NSLayoutFormatOptions options = 0, NSDictionary *metrics = nil) {
    UIView *a = a_, *b = b_;
    return [NSLayoutConstraint constraintsWithVisualFormat:format
                                                   options:options
                                                   metrics:metrics
                                                     views:NSDictionaryOfVariableBindings(a, b)];
  }
  std::string layOut(NSString *format, NSLayoutFormatOptions options = 0, NSDictionary *metrics = nil) {
    NSArray *constraints = make(format, options, metrics);
    activate(constraints);
    [host_.get() layoutIfNeeded];
    const std::string frames = frameOf(a_) + " | " + frameOf(b_);
    [NSLayoutConstraint deactivateConstraints:constraints];
    return frames;
  }

  objcxx::Retained<UIView> host_;
  UIView *a_ = nil;
  UIView *b_ = nil;
};

TEST_F(VisualFormatConstraintsTests, PutsViewsInARowOrAColumn) {
  EXPECT_EQ(layOut(@"H:|[a(50)]-20-[b]-30-|"), "0 0 50 0 | 70 0 200 0");
  EXPECT_EQ(layOut(@"|-[a(==b)]-[b]-|"), "8 0 138 0 | 154 0 138 0") << "Margins at the sides, 8 points between.";
  [host_.get() setLayoutMargins:UIEdgeInsetsMake(0, 30, 0, 10)];
  EXPECT_EQ(layOut(@"|-[a(50)]").substr(0, 9), "30 0 50 0");
  EXPECT_EQ(layOut(@"V:|-top-[a(h)][b(==h)]", 0, @{@"top" : @12, @"h" : @30}), "0 12 0 30 | 0 42 0 30");
  EXPECT_EQ(layOut(@"H:|-5-[a(>=10,<=60@800,100@900)]").substr(0, 10), "5 0 100 0 ");
}

TEST_F(VisualFormatConstraintsTests, AlignsAcrossTheDirection) {
  [[a_.topAnchor constraintEqualToAnchor:host_.get().topAnchor constant:40] setActive:YES];
  [[a_.heightAnchor constraintEqualToConstant:10] setActive:YES];
  EXPECT_EQ(layOut(@"H:|[a(50)][b(60)]", NSLayoutFormatAlignAllTop | NSLayoutFormatAlignAllBottom),
            "0 40 50 10 | 50 40 60 10");
  EXPECT_EQ(layOut(@"H:|-10-[a(50)]-20-[b(60)]", NSLayoutFormatDirectionRightToLeft), "240 40 50 10 | 160 0 60 0");
}

TEST_F(VisualFormatConstraintsTests, WhatIsWrongIsRefused) {
  const auto refuses = [&](NSString *format, NSLayoutFormatOptions options = 0, NSDictionary *metrics = nil) {
    return raisedBy([&] { (void)make(format, options, metrics); }) == "NSInvalidArgumentException";
  };
  EXPECT_TRUE(refuses(@"H:[a"));
  EXPECT_TRUE(refuses(nil));
  EXPECT_TRUE(refuses(@"[c]"));
  EXPECT_TRUE(refuses(@"[a(gap)]"));
  EXPECT_TRUE(refuses(@"[a(gap)]", 0, @{@"gap" : @"text"}));
  EXPECT_TRUE(refuses(@"[a][b]", NSLayoutFormatAlignAllLeft));
  EXPECT_FALSE(refuses(@"V:[a][b]", NSLayoutFormatAlignAllLeft));
  UIView *lone = [[[UIView alloc] init] autorelease];
  EXPECT_EQ(raisedBy([&] {
              (void)[NSLayoutConstraint constraintsWithVisualFormat:@"|[lone]"
                                                            options:0
                                                            metrics:nil
                                                              views:NSDictionaryOfVariableBindings(lone)];
            }),
            "NSInvalidArgumentException");
  UIView *none = nil;
  EXPECT_EQ(raisedBy([&] { (void)NSDictionaryOfVariableBindings(lone, none); }), "NSInvalidArgumentException");
}

}  // namespace
