#import "AutoLayoutSupport.h"

#include <cstdio>

extern "C" void (*_NSLog_printf_handler)(NSString *);

namespace testing_support {
namespace {

std::string logged;
void (*formerHandler)(NSString *);

void keep(NSString *line) { logged += [line UTF8String]; }

}  // namespace

void AutoLayoutTest::SetUp() {
  ObjCTest::SetUp();
  SIMSetMainScreen(CGSizeMake(390, 844), 3);
  logged.clear();
  formerHandler = _NSLog_printf_handler;
  _NSLog_printf_handler = keep;
}

void AutoLayoutTest::TearDown() {
  _NSLog_printf_handler = formerHandler;
  EXPECT_EQ(logged, "") << "No test leaves lines in the log that it does not look at.";
  SIMSetMainScreen(CGSizeMake(390, 844), 3);
  ObjCTest::TearDown();
}

std::string AutoLayoutTest::takeLog() { return std::exchange(logged, {}); }

objcxx::Retained<UIView> AutoLayoutTest::makeHost() {
  return objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 300, 400)]);
}

UIView *AutoLayoutTest::addView(UIView *superview) {
  UIView *view = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [view setTranslatesAutoresizingMaskIntoConstraints:NO];
  [superview addSubview:view];
  return view;
}

UILabel *AutoLayoutTest::addLabel(UIView *superview, NSString *text) {
  UILabel *label = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  [label setTranslatesAutoresizingMaskIntoConstraints:NO];
  [label setText:text];
  [superview addSubview:label];
  return label;
}

void AutoLayoutTest::pin(UIView *view, CGFloat distance) {
  UIView *superview = [view superview];
  activate(@[
    [view.leadingAnchor constraintEqualToAnchor:superview.leadingAnchor constant:distance],
    [view.topAnchor constraintEqualToAnchor:superview.topAnchor constant:distance],
    [view.trailingAnchor constraintEqualToAnchor:superview.trailingAnchor constant:-distance],
    [view.bottomAnchor constraintEqualToAnchor:superview.bottomAnchor constant:-distance],
  ]);
}

std::string frameOf(UIView *view) {
  const CGRect frame = [view frame];
  char text[128];
  std::snprintf(text, sizeof text, "%g %g %g %g", double(frame.origin.x), double(frame.origin.y),
                double(frame.size.width), double(frame.size.height));
  return text;
}

}  // namespace testing_support
