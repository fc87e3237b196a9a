#include "ZunoPrefs/theme/ThemeTest.h"

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIAlertController+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include <cmath>

namespace testing_support {

UIImage *ThemeTest::picture(CGFloat side, UIColor *colour) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(side, side), YES, 1);
  [colour setFill];
  [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, side, side)] fill];
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image;
}

NSDictionary *ThemeTest::picked(UIImage *image) {
  return image ? @{UIImagePickerControllerOriginalImage : image} : @{};
}

UIImage *ThemeTest::portraitPhoto(NSInteger pixels, CGFloat scale) {
  const CGFloat half = static_cast<CGFloat>(pixels) / 2;
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(2 * half, half), YES, 1);
  [[UIColor redColor] setFill];  // The stored left is the top of the scene.
  UIRectFill(CGRectMake(0, 0, half, half));
  [[UIColor blueColor] setFill];
  UIRectFill(CGRectMake(half, 0, half, half));
  UIImage *stored = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return [UIImage imageWithCGImage:[stored CGImage] scale:scale orientation:UIImageOrientationRight];
}

std::string ThemeTest::look(UIImage *image) {
  if (!image) return "none";
  const CGSize size = CGSizeMake([image size].width * [image scale], [image size].height * [image scale]);
  const auto colourAt = [&](CGFloat x, CGFloat y) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(1, 1), NO, 1);
    [image drawInRect:CGRectMake(-x, -y, size.width, size.height)];
    const std::string colour = colourOf(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    return colour == "255,0,0" ? "red" : colour == "0,0,255" ? "blue" : colour;
  };
  const auto row = [&](CGFloat y) {
    const std::string left = colourAt(0, y), right = colourAt(size.width - 1, y);
    return left == right ? left : left + " beside " + right;
  };
  return std::to_string(std::lround(size.width)) + "x" + std::to_string(std::lround(size.height)) + " " + row(0) +
         " above " + row(size.height - 1);
}

UIImage *ThemeTest::storedPicture() {
  NSString *text = [preferences(kThemeFile) objectForKey:@"backgroundImage"];
  if (!text) return nil;
  return
      [UIImage imageWithData:[[[NSData alloc] initWithBase64EncodedString:text
                                                                  options:NSDataBase64DecodingIgnoreUnknownCharacters]
                                 autorelease]];
}

std::string ThemeTest::colourOf(UIImage *image) {
  if (!image) return "none";
  CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider([image CGImage]));
  const size_t middle = (CGImageGetHeight([image CGImage]) / 2 * CGImageGetWidth([image CGImage]) +
                         CGImageGetWidth([image CGImage]) / 2) *
                        4;
  const UInt8 *bytes = CFDataGetBytePtr(data) + middle;
  const std::string colour = std::to_string(bytes[0]) + "," + std::to_string(bytes[1]) + "," + std::to_string(bytes[2]);
  CFRelease(data);
  return colour;
}

UIAlertController *ThemeTest::alertOf(UIViewController *page) {
  UIViewController *presented = [page presentedViewController];
  EXPECT_TRUE([presented isKindOfClass:[UIAlertController class]]) << "no alert is presented";
  return [presented isKindOfClass:[UIAlertController class]] ? (UIAlertController *)presented : nil;
}

std::string ThemeTest::describe(UIAlertController *alert) {
  if (!alert) return "none";
  const char *const styles[] = {"default", "cancel", "destructive"};
  std::string text = std::string([[alert title] UTF8String] ?: "") + "|" + ([[alert message] UTF8String] ?: "");
  for (UITextField *field in [alert textFields]) {
    text += std::string("|[") + ([[field placeholder] UTF8String] ?: "") +
            ([field clearButtonMode] == UITextFieldViewModeWhileEditing ? "]" : "] without clear button");
  }
  for (UIAlertAction *action in [alert actions]) {
    text += std::string("|") + [[action title] UTF8String] + ":" + styles[[action style]];
  }
  if ([alert preferredStyle] != UIAlertControllerStyleAlert) text += "|sheet";
  return text;
}

void ThemeTest::tapAction(UIViewController *page, const char *title) {
  UIAlertController *alert = alertOf(page);
  for (UIAlertAction *action in [alert actions]) {
    if (std::string([[action title] UTF8String]) != title) continue;
    EXPECT_TRUE([alert sim_tapAction:action]);
    SIMDrainMainQueue();
    return;
  }
  ADD_FAILURE() << "the alert has no action " << title;
}

void ThemeTest::enter(UIViewController *page, NSUInteger index, NSString *text) {
  NSArray *fields = [alertOf(page) textFields];
  ASSERT_LT(index, [fields count]);
  [(UITextField *)[fields objectAtIndex:index] setText:text];
}

}  // namespace testing_support
