#include "simulator/AppList/AppListTest.h"

#import <dispatch/MainQueue+Sim.h>

namespace testing_support {

void AppListTest::install(NSString *folder, NSDictionary *info) {
  NSString *made = makeFolder(folder);
  ASSERT_TRUE([info writeToFile:[made stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
}

void AppListTest::installNamed(NSString *name, NSString *identifier) {
  install([NSString stringWithFormat:@"/Applications/%@.app", name],
          @{@"CFBundleIdentifier" : identifier, @"CFBundleDisplayName" : name});
}

NSData *AppListTest::png(NSUInteger side) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(side, side), YES, 1);
  [[UIColor redColor] setFill];
  CGContextFillRect(UIGraphicsGetCurrentContext(), CGRectMake(0, 0, side, side));
  NSData *data = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  return data;
}

NSArray *AppListTest::apps() {
  __block NSArray *delivered = nil;
  @autoreleasepool {
    NorvikAppList *list = [[NorvikAppList alloc] init];
    [list getAppList:^(NSArray *apps) {
      delivered = [apps retain];
    }];
    [list release];
  }
  EXPECT_EQ(delivered, nil);
  SIMDrainMainQueue();
  return [delivered autorelease];
}

std::string AppListTest::names(NSArray *apps) {
  std::string result;
  for (NorvikAppRecord *app in apps) result += (result.empty() ? "" : ",") + text([app displayName]);
  return result;
}

}  // namespace testing_support
