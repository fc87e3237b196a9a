#import "AutoLayoutSupport.h"

#include <gmock/gmock.h>

using objcxx::adopt;
using testing::HasSubstr;
using testing_support::AutoLayoutTest;
using testing_support::frameOf;

namespace {

class NSLayoutConstraintTests : public AutoLayoutTest {};

NSLayoutConstraint *relate(id one, NSLayoutAttribute attribute, id other, NSLayoutAttribute otherAttribute,
                           CGFloat multiplier = 1, CGFloat constant = 0) {
  return [NSLayoutConstraint constraintWithItem:one
                                      attribute:attribute
                                      relatedBy:NSLayoutRelationEqual
                                         toItem:other
                                      attribute:otherAttribute
                                     multiplier:multiplier
                                       constant:constant];
}

TEST_F(NSLayoutConstraintTests, KeepsWhatItWasMadeOf) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  NSLayoutConstraint *constraint = [view.leadingAnchor constraintGreaterThanOrEqualToAnchor:host.get().trailingAnchor
                                                                                   constant:-7];
  EXPECT_EQ([constraint firstItem], view);
  EXPECT_EQ([constraint secondItem], host.get());
  EXPECT_EQ([constraint firstAttribute], NSLayoutAttributeLeading);
  EXPECT_EQ([constraint secondAttribute], NSLayoutAttributeTrailing);
  EXPECT_EQ([constraint relation], NSLayoutRelationGreaterThanOrEqual);
  EXPECT_EQ([constraint constant], -7);
  EXPECT_EQ([constraint multiplier], 1);
  EXPECT_EQ([constraint priority], UILayoutPriorityRequired);
  EXPECT_FALSE([constraint isActive]);
  EXPECT_TRUE([[constraint firstAnchor] isEqual:view.leadingAnchor]);
  EXPECT_TRUE([[constraint secondAnchor] isEqual:host.get().trailingAnchor]);
  EXPECT_TRUE([[constraint firstAnchor] isKindOfClass:[NSLayoutXAxisAnchor class]]);
  [constraint setIdentifier:@"gap"];
  EXPECT_THAT([[constraint description] UTF8String], HasSubstr("'gap'"));
}

TEST_F(NSLayoutConstraintTests, IsHeldByTheNearestCommonAncestor) {
  const auto host = makeHost();
  UIView *left = addView(host.get());
  UIView *right = addView(host.get());
  UIView *inner = addView(left);
  const auto holderOf = [&](NSLayoutConstraint *constraint) -> UIView * {
    [constraint setActive:YES];
    for (UIView *view : {host.get(), left, right, inner}) {
      if ([[view constraints] containsObject:constraint]) return view;
    }
    return nil;
  };
  EXPECT_EQ(holderOf([inner.topAnchor constraintEqualToAnchor:right.topAnchor]), host.get());
  EXPECT_EQ(holderOf([inner.leftAnchor constraintEqualToAnchor:left.leftAnchor]), left);
  EXPECT_EQ(holderOf([inner.widthAnchor constraintEqualToConstant:10]), inner);
  EXPECT_EQ(holderOf([inner.heightAnchor constraintEqualToAnchor:inner.widthAnchor]), inner);
}

TEST_F(NSLayoutConstraintTests, WithoutACommonAncestorActivationRaises) {
  const auto host = makeHost();
  const auto other = makeHost();
  NSLayoutConstraint *constraint = [addView(host.get()).topAnchor constraintEqualToAnchor:other.get().topAnchor];
  EXPECT_EQ(raisedBy([&] { [constraint setActive:YES]; }), "NSGenericException");
  EXPECT_FALSE([constraint isActive]);
  EXPECT_EQ(raisedBy([&] { [host.get() addConstraint:constraint]; }), "NSGenericException");
}

TEST_F(NSLayoutConstraintTests, WhatMakesNoSenseIsRefused) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  const auto refuses = [](auto make) { return raisedBy(make) == "NSInvalidArgumentException"; };
  EXPECT_TRUE(refuses([&] { relate(@"text", NSLayoutAttributeTop, view, NSLayoutAttributeTop); }));
  EXPECT_TRUE(refuses([&] { relate(nil, NSLayoutAttributeTop, view, NSLayoutAttributeTop); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeTop, nil, NSLayoutAttributeNotAnAttribute); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeTop, host.get(), NSLayoutAttributeLeft); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeLeading, host.get(), NSLayoutAttributeLeft); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeWidth, host.get(), NSLayoutAttributeNotAnAttribute); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeTop, host.get(), NSLayoutAttributeTop, 0); }));
  EXPECT_TRUE(refuses([&] { relate(view, NSLayoutAttributeWidth, nil, NSLayoutAttributeNotAnAttribute, 1, NAN); }));
  EXPECT_TRUE(refuses([&] { (void)[view.topAnchor constraintEqualToAnchor:(NSLayoutYAxisAnchor *)nil]; }));
  EXPECT_TRUE(refuses([&] { (void)[(NSLayoutAnchor *)view.topAnchor constraintEqualToAnchor:host.get().leftAnchor]; }));
  EXPECT_TRUE(refuses([&] { [host.get() addConstraint:(NSLayoutConstraint *)nil]; }));
}

TEST_F(NSLayoutConstraintTests, PriorityOfAnActiveConstraintStaysRequiredOrWished) {
  const auto host = makeHost();
  NSLayoutConstraint *constraint = [addView(host.get()).widthAnchor constraintEqualToConstant:10];
  const auto raises = [&](UILayoutPriority priority) {
    return raisedBy([&] { [constraint setPriority:priority]; }) == "NSInternalInconsistencyException";
  };
  EXPECT_TRUE(raises(0));
  EXPECT_TRUE(raises(1001));
  [constraint setPriority:999];
  [constraint setActive:YES];
  EXPECT_TRUE(raises(1000));
  [constraint setPriority:1];
  EXPECT_EQ([constraint priority], 1);
}

TEST_F(NSLayoutConstraintTests, OfAViewThatLeavesTheTreeThoseWithTheRestGo) {
  const auto host = makeHost();
  UIView *card = addView(host.get());
  UIView *inner = addView(card);
  NSLayoutConstraint *outside = [card.topAnchor constraintEqualToAnchor:host.get().topAnchor];
  NSLayoutConstraint *across = [inner.leftAnchor constraintEqualToAnchor:host.get().leftAnchor];
  NSLayoutConstraint *inside = [inner.topAnchor constraintEqualToAnchor:card.topAnchor];
  NSLayoutConstraint *own = [card.widthAnchor constraintEqualToConstant:40];
  activate(@[ outside, across, inside, own ]);
  const auto kept = objcxx::share(card);
  [card removeFromSuperview];
  EXPECT_FALSE([outside isActive]);
  EXPECT_FALSE([across isActive]);
  EXPECT_TRUE([inside isActive]);
  EXPECT_TRUE([own isActive]);
  EXPECT_EQ([[host.get() constraints] count], 0u);
}

TEST_F(NSLayoutConstraintTests, OutlivesItsViewsAndIsReleasedWithThem) {
  auto host = makeHost();
  const auto constraint = objcxx::share([addView(host.get()).topAnchor constraintEqualToAnchor:host.get().topAnchor]);
  [constraint.get() setActive:YES];
  host = nullptr;
  drainPool();
  EXPECT_FALSE([constraint.get() isActive]);
  EXPECT_EQ([constraint.get() firstItem], nil);
  EXPECT_EQ([constraint.get() secondItem], nil);
  EXPECT_EQ(raisedBy([&] { [constraint.get() setActive:YES]; }), "NSGenericException");
}

TEST_F(NSLayoutConstraintTests, AConflictIsToldOnceAndTheRestHolds) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  NSLayoutConstraint *wide = [view.widthAnchor constraintEqualToConstant:100];
  NSLayoutConstraint *narrow = [view.widthAnchor constraintEqualToConstant:60];
  [narrow setIdentifier:@"narrow"];
  activate(@[
    [view.leftAnchor constraintEqualToAnchor:host.get().leftAnchor constant:5], wide, narrow,
    [view.heightAnchor constraintEqualToConstant:20]
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "5 0 100 20");
  const std::string log = takeLog();
  EXPECT_THAT(log, HasSubstr("Unable to simultaneously satisfy constraints."));
  EXPECT_THAT(log, HasSubstr("Will attempt to recover by breaking constraint <NSLayoutConstraint:"));
  EXPECT_THAT(log, HasSubstr("'narrow'"));
  EXPECT_THAT(log, testing::Not(HasSubstr("height"))) << "Only those that contradict each other.";

  [host.get() setFrame:CGRectMake(0, 0, 310, 400)];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(takeLog(), "");
  [wide setActive:NO];
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "5 0 60 20");
}

TEST_F(NSLayoutConstraintTests, AHigherPriorityWinsOverAnyNumberOfLowerOnes) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  for (int count = 0; count < 20; ++count) {
    NSLayoutConstraint *wish = [view.widthAnchor constraintEqualToConstant:200];
    [wish setPriority:500];
    [wish setActive:YES];
  }
  NSLayoutConstraint *strong = [view.widthAnchor constraintEqualToConstant:50];
  [strong setPriority:501];
  [strong setActive:YES];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view bounds].size.width, 50);
  [strong setPriority:499];
  [host.get() layoutIfNeeded];
  EXPECT_EQ([view bounds].size.width, 200);
}

TEST_F(NSLayoutConstraintTests, EachAttributeIsWhereItShouldBe) {
  const auto host = makeHost();
  UIView *fixed = [[[UIView alloc] initWithFrame:CGRectMake(40, 60, 100, 80)] autorelease];
  [fixed setLayoutMargins:UIEdgeInsetsMake(1, 2, 3, 4)];
  [host.get() addSubview:fixed];
  const auto placeBy = [&](NSLayoutAttribute own, NSLayoutAttribute its) {
    UIView *view = addView(host.get());
    activate(@[
      [view.widthAnchor constraintEqualToConstant:10], [view.heightAnchor constraintEqualToConstant:6],
      relate(view, own, fixed, its)
    ]);
    [host.get() layoutIfNeeded];
    const std::string frame = frameOf(view);
    [view removeFromSuperview];
    return frame;
  };
  EXPECT_EQ(placeBy(NSLayoutAttributeLeft, NSLayoutAttributeLeft), "40 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeLeft, NSLayoutAttributeRight), "140 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeRight, NSLayoutAttributeLeft), "30 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeTrailing, NSLayoutAttributeLeading), "30 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeCenterX, NSLayoutAttributeCenterX), "85 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeTop, NSLayoutAttributeBottom), "0 140 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeBottom, NSLayoutAttributeTop), "0 54 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeCenterY, NSLayoutAttributeCenterY), "0 97 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeLeft, NSLayoutAttributeLeftMargin), "42 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeRight, NSLayoutAttributeRightMargin), "126 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeTop, NSLayoutAttributeTopMargin), "0 61 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeBottom, NSLayoutAttributeBottomMargin), "0 131 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeCenterX, NSLayoutAttributeCenterXWithinMargins), "84 0 10 6");
  EXPECT_EQ(placeBy(NSLayoutAttributeTop, NSLayoutAttributeLastBaseline), "0 140 10 6");
}

TEST_F(NSLayoutConstraintTests, AMultiplierScales) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  activate(@[
    [view.widthAnchor constraintEqualToAnchor:host.get().widthAnchor multiplier:0.5 constant:-10],
    [view.heightAnchor constraintEqualToAnchor:view.widthAnchor multiplier:0.25],
    relate(view, NSLayoutAttributeCenterY, host.get(), NSLayoutAttributeCenterY, 0.5),
    [view.leadingAnchor constraintEqualToSystemSpacingAfterAnchor:host.get().leadingAnchor multiplier:2],
  ]);
  [host.get() layoutIfNeeded];
  EXPECT_EQ(frameOf(view), "16 82.6667 140 35");
}

TEST_F(NSLayoutConstraintTests, TheSystemsSpacingIsMultiplied) {
  const auto host = makeHost();
  UIView *view = addView(host.get());
  NSLayoutXAxisAnchor *left = host.get().leadingAnchor;
  NSLayoutYAxisAnchor *top = host.get().topAnchor;
  NSArray *constraints = @[
    [view.leadingAnchor constraintEqualToSystemSpacingAfterAnchor:left multiplier:2.5],
    [view.leadingAnchor constraintGreaterThanOrEqualToSystemSpacingAfterAnchor:left multiplier:2.5],
    [view.leadingAnchor constraintLessThanOrEqualToSystemSpacingAfterAnchor:left multiplier:2.5],
    [view.topAnchor constraintEqualToSystemSpacingBelowAnchor:top multiplier:2.5],
    [view.topAnchor constraintGreaterThanOrEqualToSystemSpacingBelowAnchor:top multiplier:2.5],
    [view.topAnchor constraintLessThanOrEqualToSystemSpacingBelowAnchor:top multiplier:2.5]
  ];
  const NSLayoutRelation relations[] = {NSLayoutRelationEqual, NSLayoutRelationGreaterThanOrEqual,
                                        NSLayoutRelationLessThanOrEqual};
  for (NSUInteger each = 0; each < [constraints count]; ++each) {
    NSLayoutConstraint *constraint = [constraints objectAtIndex:each];
    EXPECT_EQ([constraint constant], 20) << each;
    EXPECT_EQ([constraint relation], relations[each % 3]) << each;
  }
}

TEST_F(NSLayoutConstraintTests, BaselinesOfTextsAlign) {
  const auto host = makeHost();
  UILabel *large = addLabel(host.get(), @"Large");
  [large setFont:[UIFont systemFontOfSize:34]];
  UILabel *small = addLabel(host.get(), @"small");
  UIView *line = addView(host.get());
  activate(@[
    [large.topAnchor constraintEqualToAnchor:host.get().topAnchor],
    [small.firstBaselineAnchor constraintEqualToAnchor:large.firstBaselineAnchor],
    [line.topAnchor constraintEqualToAnchor:large.lastBaselineAnchor],
  ]);
  [host.get() layoutIfNeeded];
  const CGFloat ascender = [[large font] ascender] - [[small font] ascender];
  EXPECT_NEAR([small frame].origin.y, ascender, 0.34);
  EXPECT_NEAR([line frame].origin.y, [large bounds].size.height + [[large font] descender], 0.34);
}

}  // namespace
