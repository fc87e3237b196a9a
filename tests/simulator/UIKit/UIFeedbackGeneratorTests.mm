#import <Foundation/SIMLog.h>
#import <UIKit/UIKit.h>

#include <string>
#include <vector>

#include "support/objc/ObjCTest.h"

namespace {

void collect(NSString *line, void *context) {
  static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String]);
}

TEST(UIFeedbackGeneratorTests, TheFirstTapIsALineInTheLog) {
  @autoreleasepool {
    std::vector<std::string> lines;
    SIMSetLogHandler(collect, &lines);
    UIImpactFeedbackGenerator *impact =
        [[[UIImpactFeedbackGenerator alloc] initWithStyle:UIImpactFeedbackStyleLight] autorelease];
    [impact prepare];
    EXPECT_EQ(lines.size(), 0u);
    [impact impactOccurred];
    [impact impactOccurredWithIntensity:0.5];
    [[[[UISelectionFeedbackGenerator alloc] init] autorelease] selectionChanged];
    [[[[UINotificationFeedbackGenerator alloc] init] autorelease]
        notificationOccurred:UINotificationFeedbackTypeSuccess];
    SIMSetLogHandler(nullptr, nullptr);
    EXPECT_EQ(lines.size(), 1u);
  }
}

}  // namespace
