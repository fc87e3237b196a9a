#import <UIKit/UIKit.h>
#import <UIKit/UIView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>

// Writes down the hooks that run, and what it was told.
@interface RecordingView : UIView {
 @public
  NSMutableString *_log;
  int *_deaths;
}
@end

@implementation RecordingView

- (void)dealloc {
  if (_deaths) ++*_deaths;
  [_log release];
  [super dealloc];
}

- (void)note:(NSString *)entry {
  if (!_log) _log = [[NSMutableString alloc] init];
  [_log appendFormat:@"%@ ", entry];
}

- (void)willMoveToSuperview:(UIView *)superview {
  [self note:superview ? @"willMove" : @"willLeave"];
}

- (void)didMoveToSuperview {
  [self note:[self superview] ? @"didMove" : @"didLeave"];
}

- (void)willMoveToWindow:(UIWindow *)window {
  [self note:window ? @"willMoveToWindow" : @"willLeaveWindow"];
}

- (void)didMoveToWindow {
  [self note:[self window] ? @"didMoveToWindow" : @"didLeaveWindow"];
}

- (void)didAddSubview:(UIView *)subview {
  (void)subview;
  [self note:@"didAdd"];
}

- (void)willRemoveSubview:(UIView *)subview {
  (void)subview;
  [self note:@"willRemove"];
}

- (void)layoutSubviews {
  [self note:@"layout"];
}

- (void)tintColorDidChange {
  [self note:@"tint"];
}

- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  (void)previous;
  [self note:@"traits"];
}

@end

// A window as far as the tree of views knows one.
@interface RootView : UIView
@end

@implementation RootView

- (UIWindow *)window {
  return (UIWindow *)self;
}

@end

namespace {

class UIViewTests : public ObjCTest {
 protected:
  UIView *view(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return [[[UIView alloc] initWithFrame:CGRectMake(x, y, width, height)] autorelease];
  }
  RecordingView *recorder() { return [[[RecordingView alloc] init] autorelease]; }
  std::string logOf(RecordingView *view) {
    const std::string text = view->_log ? [view->_log UTF8String] : "";
    [view->_log setString:@""];
    return text;
  }
};

TEST_F(UIViewTests, StartsAsADeviceDoes) {
  UIView *plain = [[[UIView alloc] init] autorelease];
  EXPECT_TRUE(CGRectEqualToRect([plain frame], CGRectZero));
  EXPECT_FALSE([plain isHidden]);
  EXPECT_EQ([plain alpha], 1);
  EXPECT_TRUE([plain isUserInteractionEnabled]);
  EXPECT_TRUE([plain autoresizesSubviews]);
  EXPECT_FALSE([plain clipsToBounds]);
  EXPECT_OBJC_EQ([plain backgroundColor], nil);
  EXPECT_EQ([[plain subviews] count], 0u);
  EXPECT_OBJC_EQ([plain window], nil);
  EXPECT_EQ([plain intrinsicContentSize].width, UIViewNoIntrinsicMetric);
}

TEST_F(UIViewTests, OrderOfSubviews) {
  UIView *root = view(0, 0, 1, 1);
  UIView *a = view(0, 0, 1, 1), *b = view(0, 0, 1, 1), *c = view(0, 0, 1, 1), *d = view(0, 0, 1, 1);
  [root addSubview:a];
  [root addSubview:b];
  [root insertSubview:c atIndex:0];
  [root insertSubview:d atIndex:99];
  EXPECT_OBJC_EQ([root subviews], (@[ c, a, b, d ]));
  [root bringSubviewToFront:c];
  [root sendSubviewToBack:d];
  EXPECT_OBJC_EQ([root subviews], (@[ d, a, b, c ]));
  [root insertSubview:c belowSubview:a];
  EXPECT_OBJC_EQ([root subviews], (@[ d, c, a, b ]));
  [root insertSubview:d aboveSubview:a];
  EXPECT_OBJC_EQ([root subviews], (@[ c, a, d, b ]));
  [root exchangeSubviewAtIndex:0 withSubviewAtIndex:3];
  EXPECT_OBJC_EQ([root subviews], (@[ b, a, d, c ]));
  [root addSubview:b];
  EXPECT_OBJC_EQ([root subviews], (@[ a, d, c, b ]));
  EXPECT_EQ(raisedBy([&] { [root exchangeSubviewAtIndex:0 withSubviewAtIndex:4]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [root insertSubview:view(0, 0, 1, 1) belowSubview:view(0, 0, 1, 1)]; }),
            "NSInvalidArgumentException");
  [root addSubview:nil];
  EXPECT_EQ([[root subviews] count], 4u);
}

TEST_F(UIViewTests, AddingAViewBelowItselfRaises) {
  UIView *root = view(0, 0, 1, 1), *child = view(0, 0, 1, 1);
  [root addSubview:child];
  EXPECT_EQ(raisedBy([&] { [root addSubview:root]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [child addSubview:root]; }), "NSInvalidArgumentException");
  EXPECT_OBJC_EQ([root superview], nil);
}

TEST_F(UIViewTests, AViewHasOneSuperview) {
  UIView *first = view(0, 0, 1, 1), *second = view(0, 0, 1, 1), *child = view(0, 0, 1, 1);
  [first addSubview:child];
  [second addSubview:child];
  EXPECT_EQ([[first subviews] count], 0u);
  EXPECT_OBJC_EQ([child superview], second);
  EXPECT_TRUE([child isDescendantOfView:second]);
  EXPECT_TRUE([child isDescendantOfView:child]);
  EXPECT_FALSE([child isDescendantOfView:first]);
  EXPECT_OBJC_EQ([child nextResponder], second);
}

TEST_F(UIViewTests, HooksRunInOrder) {
  UIView *window = [[[RootView alloc] init] autorelease];
  RecordingView *parent = recorder();
  RecordingView *child = recorder();
  [parent addSubview:child];
  EXPECT_EQ(logOf(child), "willMove didMove ");
  EXPECT_EQ(logOf(parent), "didAdd ");
  [window addSubview:parent];
  EXPECT_EQ(logOf(parent), "willMove willMoveToWindow didMoveToWindow didMove ");
  EXPECT_EQ(logOf(child), "willMoveToWindow didMoveToWindow ");
  [child removeFromSuperview];
  EXPECT_EQ(logOf(child), "willLeave willLeaveWindow didLeaveWindow didLeave ");
  EXPECT_EQ(logOf(parent), "willRemove ");
  [child removeFromSuperview];
  EXPECT_EQ(logOf(child), "");
}

TEST_F(UIViewTests, TreesDie) {
  int deaths = 0;
  {
    RecordingView *root = [[RecordingView alloc] init];
    RecordingView *child = [[RecordingView alloc] init];
    RecordingView *leaf = [[RecordingView alloc] init];
    root->_deaths = child->_deaths = leaf->_deaths = &deaths;
    [root addSubview:child];
    [child addSubview:leaf];
    [[root layer] setCornerRadius:3];
    [child release];
    [leaf release];
    (void)[root subviews];
    drainPool();
    EXPECT_EQ(deaths, 0);
    [root release];
  }
  drainPool();
  EXPECT_EQ(deaths, 3);
}

TEST_F(UIViewTests, ASubviewOutlivesItsSuperview) {
  UIView *child = [[UIView alloc] init];
  UIView *root = [[UIView alloc] init];
  [root addSubview:child];
  CALayer *layer = [[root layer] retain];
  [root release];
  drainPool();
  EXPECT_OBJC_EQ([child superview], nil);
  EXPECT_OBJC_EQ([child nextResponder], nil);
  EXPECT_OBJC_EQ([layer delegate], nil);
  [child removeFromSuperview];
  [layer release];
  [child release];
}

TEST_F(UIViewTests, FindsTags) {
  UIView *root = view(0, 0, 1, 1), *child = view(0, 0, 1, 1), *leaf = view(0, 0, 1, 1);
  [root addSubview:child];
  [child addSubview:leaf];
  [leaf setTag:7];
  EXPECT_OBJC_EQ([root viewWithTag:7], leaf);
  EXPECT_OBJC_EQ([root viewWithTag:0], root);
  EXPECT_OBJC_EQ([root viewWithTag:8], nil);
}

TEST_F(UIViewTests, LaysOutOnceWhenNeeded) {
  RecordingView *root = recorder();
  RecordingView *child = recorder();
  [root addSubview:child];
  logOf(root), logOf(child);
  [child layoutIfNeeded];
  EXPECT_EQ(logOf(root), "layout ") << "from the top that needs it";
  EXPECT_EQ(logOf(child), "layout ");
  [root layoutIfNeeded];
  EXPECT_EQ(logOf(root), "");
  [root setFrame:CGRectMake(5, 5, 0, 0)];
  [root layoutIfNeeded];
  EXPECT_EQ(logOf(root), "") << "moved, not resized";
  [root setFrame:CGRectMake(5, 5, 10, 10)];
  [root layoutIfNeeded];
  EXPECT_EQ(logOf(root), "layout ");
  EXPECT_EQ(logOf(child), "");
  [child setNeedsLayout];
  [child layoutIfNeeded];
  EXPECT_EQ(logOf(child), "layout ");
}

TEST_F(UIViewTests, TintIsInherited) {
  UIView *root = view(0, 0, 1, 1);
  RecordingView *child = recorder();
  RecordingView *leaf = recorder();
  [root addSubview:child];
  [child addSubview:leaf];
  EXPECT_OBJC_EQ([leaf tintColor], [UIColor systemBlueColor]);
  logOf(child), logOf(leaf);
  [root setTintColor:[UIColor redColor]];
  EXPECT_OBJC_EQ([leaf tintColor], [UIColor redColor]);
  EXPECT_EQ(logOf(leaf), "tint ");
  [child setTintColor:[UIColor greenColor]];
  logOf(child), logOf(leaf);
  [root setTintColor:nil];
  EXPECT_EQ(logOf(child), "");
  EXPECT_OBJC_EQ([leaf tintColor], [UIColor greenColor]);
  EXPECT_OBJC_EQ([root tintColor], [UIColor systemBlueColor]);
}

TEST_F(UIViewTests, AlphaIsClamped) {
  UIView *box = view(0, 0, 1, 1);
  [box setAlpha:3];
  EXPECT_EQ([box alpha], 1);
  [box setAlpha:-3];
  EXPECT_EQ([box alpha], 0);
  [box setAlpha:NAN];
  EXPECT_EQ([box alpha], 0);
}

TEST_F(UIViewTests, TouchesNeedEveryAncestor) {
  UIView *root = view(0, 0, 1, 1), *child = view(0, 0, 1, 1);
  [root addSubview:child];
  EXPECT_TRUE([child sim_acceptsTouches]);
  [root setHidden:YES];
  EXPECT_FALSE([child sim_acceptsTouches]);
  [root setHidden:NO];
  [root setAlpha:0];
  EXPECT_FALSE([child sim_acceptsTouches]);
  [root setAlpha:1];
  [root setUserInteractionEnabled:NO];
  EXPECT_FALSE([child sim_acceptsTouches]);
}

TEST_F(UIViewTests, AnimationsRunAtOnceAndCompleteOnTheMainQueue) {
  UIView *box = view(0, 0, 1, 1);
  __block int finished = 0;
  [UIView animateWithDuration:5
      animations:^{
        [box setAlpha:0.5];
      }
      completion:^(BOOL done) {
        finished += done ? 1 : 100;
      }];
  EXPECT_EQ([box alpha], 0.5);
  EXPECT_EQ(finished, 0);
  SIMDrainMainQueue();
  EXPECT_EQ(finished, 1);
  [UIView animateWithDuration:1 animations:nil completion:nil];
  [UIView performWithoutAnimation:^{
    [box setAlpha:1];
  }];
  EXPECT_EQ([box alpha], 1);
}

TEST_F(UIViewTests, ARepeatedAnimationHasNoEnd) {
  UIView *box = view(0, 0, 1, 1);
  __block int ends = 0;
  [UIView animateWithDuration:1
      delay:0
      options:UIViewAnimationOptionRepeat | UIViewAnimationOptionAutoreverse
      animations:^{
        [box setAlpha:0.5];
      }
      completion:^(BOOL) {
        ++ends;
      }];
  SIMDrainMainQueue();
  EXPECT_EQ([box alpha], 0.5);
  EXPECT_EQ(ends, 0);
  [UIView transitionWithView:box
                    duration:1
                     options:UIViewAnimationOptionTransitionFlipFromLeft
                  animations:nil
                  completion:^(BOOL) {
                    ++ends;
                  }];
  SIMDrainMainQueue();
  EXPECT_EQ(ends, 1);
}

TEST_F(UIViewTests, WhetherAnimationsAreEnabledIsKept) {
  EXPECT_TRUE([UIView areAnimationsEnabled]);
  [UIView setAnimationsEnabled:NO];
  EXPECT_FALSE([UIView areAnimationsEnabled]);
  [UIView setAnimationsEnabled:YES];
  EXPECT_TRUE([UIView areAnimationsEnabled]);
}

TEST_F(UIViewTests, TraitChangesReachTheWholeTree) {
  RecordingView *root = recorder(), *child = recorder();
  [root addSubview:child];
  logOf(root), logOf(child);
  [root
      sim_traitCollectionDidChange:[UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleDark]];
  EXPECT_EQ(logOf(root), "traits ");
  EXPECT_EQ(logOf(child), "traits ");
}

TEST_F(UIViewTests, NumbersAreUnique) {
  UIView *one = view(0, 0, 1, 1), *other = view(0, 0, 1, 1);
  EXPECT_NE([one sim_number], [other sim_number]);
  EXPECT_NE([one sim_number], 0u);
}

TEST_F(UIViewTests, AccessibilityTextIsCopied) {
  UIView *box = view(0, 0, 1, 1);
  NSMutableString *label = [NSMutableString stringWithString:@"one"];
  [box setAccessibilityLabel:label];
  [label setString:@"two"];
  EXPECT_OBJC_EQ([box accessibilityLabel], @"one");
  [box setAccessibilityIdentifier:@"id"];
  EXPECT_OBJC_EQ([box accessibilityIdentifier], @"id");
}

}  // namespace
