#import "AutoLayoutSupport.h"

#include <gmock/gmock.h>

using objcxx::adopt;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

/// With an intrinsic size, which can be set.
@interface BoxView : UIView {
 @public
  CGSize size;
}
@end

@implementation BoxView

- (CGSize)intrinsicContentSize {
  return size;
}

@end

namespace {

class UIStackViewTests : public AutoLayoutTest {
 protected:
  void SetUp() override {
    AutoLayoutTest::SetUp();
    stack_ = adopt([[UIStackView alloc] initWithFrame:CGRectMake(0, 0, 300, 100)]);
  }
  void TearDown() override {
    stack_ = nullptr;
    AutoLayoutTest::TearDown();
  }

  BoxView *add(CGFloat width, CGFloat height) {
    BoxView *view = [[[BoxView alloc] initWithFrame:CGRectZero] autorelease];
    view->size = CGSizeMake(width, height);
    [stack_.get() addArrangedSubview:view];
    return view;
  }
  /// The frames of the arranged views, or "hidden".
  std::string frames() {
    [stack_.get() layoutIfNeeded];
    std::string all;
    for (UIView *view in [stack_.get() arrangedSubviews]) {
      if (!all.empty()) all += " | ";
      all += [view isHidden] ? "hidden" : frameOf(view);
    }
    return all;
  }
  UIStackView *stack() { return stack_.get(); }

 private:
  objcxx::Retained<UIStackView> stack_;
};

TEST_F(UIStackViewTests, FillsItsLengthByStretchingWhoHugsLeast) {
  UIView *first = add(50, 20);
  add(60, 30);
  [first setContentHuggingPriority:240 forAxis:UILayoutConstraintAxisHorizontal];
  EXPECT_FALSE([first translatesAutoresizingMaskIntoConstraints]);
  EXPECT_EQ(frames(), "0 0 240 100 | 240 0 60 100");
  [stack() setSpacing:10];
  EXPECT_EQ(frames(), "0 0 230 100 | 240 0 60 100");
  [stack() setFrame:CGRectMake(0, 0, 90, 100)];
  [first setContentCompressionResistancePriority:700 forAxis:UILayoutConstraintAxisHorizontal];
  EXPECT_EQ(frames(), "0 0 20 100 | 30 0 60 100");
}

TEST_F(UIStackViewTests, FillsEqually) {
  add(50, 20);
  add(10, 30);
  add(20, 30);
  [stack() setDistribution:UIStackViewDistributionFillEqually];
  [stack() setSpacing:15];
  EXPECT_EQ(frames(), "0 0 90 100 | 105 0 90 100 | 210 0 90 100");
}

TEST_F(UIStackViewTests, FillsProportionally) {
  add(10, 20);
  BoxView *large = add(20, 30);
  [stack() setDistribution:UIStackViewDistributionFillProportionally];
  EXPECT_EQ(frames(), "0 0 100 100 | 100 0 200 100");
  large->size = CGSizeMake(50, 30);
  [large invalidateIntrinsicContentSize];
  EXPECT_EQ(frames(), "0 0 50 100 | 50 0 250 100");
}

TEST_F(UIStackViewTests, SpacesOutEvenly) {
  add(50, 20);
  add(100, 30);
  add(30, 30);
  [stack() setDistribution:UIStackViewDistributionEqualSpacing];
  EXPECT_EQ(frames(), "0 0 50 100 | 110 0 100 100 | 270 0 30 100");
  [stack() setDistribution:UIStackViewDistributionEqualCentering];
  [stack() setFrame:CGRectMake(0, 0, 440, 100)];
  EXPECT_EQ(frames(), "0 0 50 100 | 175 0 100 100 | 410 0 30 100") << "Centres 200 apart.";
  [stack() setFrame:CGRectMake(0, 0, 200, 100)];
  [stack() setSpacing:10];
  EXPECT_EQ(frames(), "0 0 50 100 | 60 0 100 100 | 170 0 30 100") << "The spacing comes first.";
}

TEST_F(UIStackViewTests, AnArrangementLeavesNothingOfTheOneBefore) {
  for (int i = 0; i < 3; ++i) add(20, 20);
  [stack() setDistribution:UIStackViewDistributionEqualSpacing];
  (void)frames();
  const NSUInteger guides = [[stack() layoutGuides] count], constraints = [[stack() constraints] count];
  EXPECT_GT(guides, 0u);
  [stack() setSpacing:1];
  (void)frames();
  EXPECT_EQ([[stack() layoutGuides] count], guides);
  EXPECT_EQ([[stack() constraints] count], constraints);
  [stack() setDistribution:UIStackViewDistributionFill];
  (void)frames();
  EXPECT_EQ([[stack() layoutGuides] count], 0u);
}

TEST_F(UIStackViewTests, AlignsAcross) {
  add(50, 20);
  add(250, 40);
  [stack() setAlignment:UIStackViewAlignmentLeading];
  EXPECT_EQ(frames(), "0 0 50 20 | 50 0 250 40");
  [stack() setAlignment:UIStackViewAlignmentCenter];
  EXPECT_EQ(frames(), "0 40 50 20 | 50 30 250 40");
  [stack() setAlignment:UIStackViewAlignmentBottom];
  EXPECT_EQ(frames(), "0 80 50 20 | 50 60 250 40");
}

TEST_F(UIStackViewTests, AlignsTextsByTheirBaselines) {
  UILabel *large = [[[UILabel alloc] init] autorelease];
  [large setText:@"Large"];
  [large setFont:[UIFont systemFontOfSize:40]];
  UILabel *small = [[[UILabel alloc] init] autorelease];
  [small setText:@"small"];
  [stack() addArrangedSubview:large];
  [stack() addArrangedSubview:small];
  [stack() setAlignment:UIStackViewAlignmentFirstBaseline];
  (void)frames();
  EXPECT_EQ([large frame].origin.y, 0);
  EXPECT_NEAR([small frame].origin.y, [[large font] ascender] - [[small font] ascender], 0.34);
}

TEST_F(UIStackViewTests, TheBaselinesOfAColumnAreThoseOfItsFirstAndLastTexts) {
  UILabel *first = [[[UILabel alloc] init] autorelease], *last = [[[UILabel alloc] init] autorelease];
  EXPECT_EQ([stack() viewForLastBaselineLayout], stack());
  [stack() setAxis:UILayoutConstraintAxisVertical];
  [stack() addArrangedSubview:first];
  [stack() addArrangedSubview:last];
  EXPECT_EQ([stack() viewForFirstBaselineLayout], first);
  EXPECT_EQ([stack() viewForLastBaselineLayout], last);
}

TEST_F(UIStackViewTests, AColumnIsAsLargeAsItsViews) {
  const auto host = makeHost();
  [stack() setTranslatesAutoresizingMaskIntoConstraints:NO];
  [host.get() addSubview:stack()];
  [[stack().leadingAnchor constraintEqualToAnchor:host.get().leadingAnchor constant:7] setActive:YES];
  [stack() setAxis:UILayoutConstraintAxisVertical];
  [stack() setSpacing:5];
  add(50, 20);
  add(80, 30);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(stack()), "7 0 80 55");
  EXPECT_EQ(frames(), "0 0 80 20 | 0 25 80 30");
  EXPECT_EQ([stack() systemLayoutSizeFittingSize:UILayoutFittingCompressedSize].height, 55);
  [stack() setAlignment:UIStackViewAlignmentTrailing];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(stack()), "7 0 80 55");
  EXPECT_EQ(frames(), "30 0 50 20 | 0 25 80 30");
}

TEST_F(UIStackViewTests, HiddenViewsLeaveTheRow) {
  UIView *first = add(50, 20);
  UIView *second = add(60, 30);
  UIView *third = add(20, 30);
  [stack() setSpacing:10];
  [third setContentHuggingPriority:200 forAxis:UILayoutConstraintAxisHorizontal];
  EXPECT_EQ(frames(), "0 0 50 100 | 60 0 60 100 | 130 0 170 100");
  [second setHidden:YES];
  EXPECT_EQ(frames(), "0 0 50 100 | hidden | 60 0 240 100");
  [first setHidden:YES];
  EXPECT_EQ(frames(), "hidden | hidden | 0 0 300 100");
  [first setHidden:NO];
  [second setHidden:NO];
  EXPECT_EQ(frames(), "0 0 50 100 | 60 0 60 100 | 130 0 170 100");
}

TEST_F(UIStackViewTests, SpacingAfterOneViewIsItsOwn) {
  UIView *first = add(50, 20);
  UIView *second = add(60, 30);
  add(20, 30);
  [stack() setSpacing:10];
  [stack() setCustomSpacing:33 afterView:first];
  [stack() setCustomSpacing:UIStackViewSpacingUseSystem afterView:second];
  [[[stack() arrangedSubviews] lastObject] setContentHuggingPriority:1 forAxis:UILayoutConstraintAxisHorizontal];
  EXPECT_EQ(frames(), "0 0 50 100 | 83 0 60 100 | 151 0 149 100");
  EXPECT_EQ([stack() customSpacingAfterView:first], 33);
  [stack() setCustomSpacing:UIStackViewSpacingUseDefault afterView:first];
  EXPECT_EQ([stack() customSpacingAfterView:first], UIStackViewSpacingUseDefault);
  EXPECT_EQ(frames(), "0 0 50 100 | 60 0 60 100 | 128 0 172 100");
}

TEST_F(UIStackViewTests, KeepsToItsMarginsWhereItIsToldTo) {
  add(50, 20);
  [stack() setLayoutMargins:UIEdgeInsetsMake(1, 2, 3, 4)];
  EXPECT_EQ(frames(), "0 0 300 100");
  [stack() setLayoutMarginsRelativeArrangement:YES];
  EXPECT_EQ(frames(), "2 1 294 96");
}

TEST_F(UIStackViewTests, ViewsComeMoveAndGo) {
  UIView *first = add(50, 20);
  UIView *second = add(60, 30);
  UIView *inserted = [[[UIView alloc] init] autorelease];
  [stack() insertArrangedSubview:inserted atIndex:1];
  EXPECT_TRUE([[stack() arrangedSubviews] isEqual:(@[ first, inserted, second ])]);
  [stack() insertArrangedSubview:first atIndex:2];
  EXPECT_TRUE([[stack() arrangedSubviews] isEqual:(@[ inserted, second, first ])]);
  [stack() removeArrangedSubview:inserted];
  EXPECT_EQ([inserted superview], stack());
  [second removeFromSuperview];
  EXPECT_TRUE([[stack() arrangedSubviews] isEqual:@[ first ]]);
  EXPECT_EQ(frames(), "0 0 300 100");
  EXPECT_EQ(raisedBy([&] { [stack() insertArrangedSubview:second atIndex:5]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [stack() insertArrangedSubview:(UIView *)nil atIndex:0]; }), "NSInvalidArgumentException");
}

TEST_F(UIStackViewTests, StacksStandInStacks) {
  UIStackView *column = [[[UIStackView alloc] initWithArrangedSubviews:@[]] autorelease];
  [column setAxis:UILayoutConstraintAxisVertical];
  [column setDistribution:UIStackViewDistributionFillEqually];
  UIView *picture = add(100, 100);
  [[picture.widthAnchor constraintEqualToConstant:100] setActive:YES];
  [stack() addArrangedSubview:column];
  for (int count = 0; count < 2; ++count) {
    BoxView *view = [[[BoxView alloc] init] autorelease];
    view->size = CGSizeMake(10, 10);
    [column addArrangedSubview:view];
  }
  EXPECT_EQ(frames(), "0 0 100 100 | 100 0 200 100");
  EXPECT_EQ(frameOf([[column arrangedSubviews] lastObject]), "0 50 200 50");
}

}  // namespace
