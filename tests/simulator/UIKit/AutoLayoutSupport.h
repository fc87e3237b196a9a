// Views, constraints and log lines for the tests of layout by constraints.
#pragma once

#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#import <objcxx/Retained.h>
#import <support/objc/ObjCTest.h>

#include <string>

namespace testing_support {

/// On a screen of 390 × 844 points at 3 pixels a point. What is logged is kept instead.
class AutoLayoutTest : public ObjCTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// All lines that were logged, and forgets them.
  static std::string takeLog();
  /// A view of 300 × 400 points.
  static objcxx::Retained<UIView> makeHost();
  /// A subview that its constraints are to place.
  static UIView *addView(UIView *superview);
  static UILabel *addLabel(UIView *superview, NSString *text);
  static void activate(NSArray *constraints) { [NSLayoutConstraint activateConstraints:constraints]; }
  /// On all four sides, `distance` points from those of the superview.
  static void pin(UIView *view, CGFloat distance = 0);
};

/// "x y width height", shortly.
std::string frameOf(UIView *view);

}  // namespace testing_support
