#import "theme/ZunoCustomiseRootListController.h"

#import <Preferences/PSSpecifier.h>
#import <Preferences/PSTableCell.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include <sys/stat.h>
#include <unistd.h>

#include "ZunoPrefs/support/Replaced.h"
#include "ZunoPrefs/theme/ThemeTest.h"

namespace {

class ThemePageTest : public ThemeTest {
 protected:
  ZunoCustomiseRootListController *newPage() {
    return
        [[(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
  }
  Class pageClass() { return classNamed("ZunoCustomiseRootListController"); }
  static PSSpecifier *rowKeyed(PSListController *page, NSString *key) {
    for (PSSpecifier *row in [page specifiers]) {
      if ([[row propertyForKey:@"key"] isEqual:key]) return row;
    }
    return nil;
  }
  static std::string shown(PSListController *page, NSString *identifier) {
    PSTableCell *cell = [page cachedCellForSpecifierID:identifier];
    return [[[cell detailTextLabel] text] UTF8String] ?: "none";
  }
  static void scrollToUserAgent(PSListController *page) {
    [[page table] scrollToRowAtIndexPath:[page indexPathForSpecifier:[page specifierForID:@"User-Agent"]]
                        atScrollPosition:UITableViewScrollPositionMiddle
                                animated:NO];
    [[page table] layoutIfNeeded];
  }
};

TEST_F(ThemePageTest, RowsComeFromCustomiseAndAreCached) {
  ZunoCustomiseRootListController *page = newPage();
  NSArray *rows = [page specifiers];
  EXPECT_GT([rows count], 20u);
  EXPECT_FALSE([rows isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ([page specifiers], rows);
  for (NSString *key in @[ @"enabled", @"useCustom", @"device", @"iosVersion", @"presetUserAgent" ]) {
    EXPECT_TRUE(rowKeyed(page, key) != nil) << [key UTF8String];
  }
  EXPECT_OBJC_EQ([rowKeyed(page, @"presetUserAgent") identifier], @"User-Agent");
}

TEST_F(ThemePageTest, WithoutAFileRowsShowTheirDefaults) {
  ZunoCustomiseRootListController *page = newPage();
  EXPECT_OBJC_EQ([page readPreferenceValue:rowKeyed(page, @"blurRadius")], @12.0);
  EXPECT_OBJC_EQ([page readPreferenceValue:rowKeyed(page, @"titleColour")], nil) << "a row without a default reads nil";
  EXPECT_OBJC_EQ([page readPreferenceValue:rowKeyed(page, @"presetUserAgent")], @"(null)/(null)");
}

TEST_F(ThemePageTest, ValuesAreStoredInTheThemeFileOnly) {
  ZunoCustomiseRootListController *page = newPage();
  writePreferences(kThemeFile, @{@"unknown" : @"kept"});
  [page setPreferenceValue:@12.0 specifier:rowKeyed(page, @"blurRadius")];
  EXPECT_OBJC_EQ(preferences(kThemeFile), (
                                              @{@"unknown" : @"kept",
                                                @"blurRadius" : @12.0}))
      << "a value is stored even when it equals the default";
  EXPECT_FALSE(exists(kMainFile));
  EXPECT_EQ(notifications.size(), 1u);
  EXPECT_EQ(notifications[0].rfind("com.norvik.Zuno", 0), 0u);
}

TEST_F(ThemePageTest, OnlyTheLayoutSwitchesRebuildThePage) {
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  for (NSString *key in @[ @"useCustom", @"enabled" ]) {
    NSArray *before = [page specifiers];
    [page setValue:@0 forKey:@"shouldReload"];
    int reloads = 0;
    const MethodSpy<> reload([PSListController class], @selector(reloadSpecifiers), [&](id receiver) {
      if (receiver != page) return;
      ++reloads;
      EXPECT_TRUE([[page valueForKey:@"shouldReload"] boolValue]) << "it is said before";
    });
    [page setPreferenceValue:@1 specifier:rowKeyed(page, key)];
    EXPECT_EQ(reloads, 1);
    EXPECT_NE([page specifiers], before) << [key UTF8String];
  }
  NSArray *before = [page specifiers];
  [page setPreferenceValue:@3.0 specifier:rowKeyed(page, @"spacing")];
  EXPECT_EQ([page specifiers], before);
}

TEST_F(ThemePageTest, AValueIsStoredAsTheRowGivesIt) {
  ZunoCustomiseRootListController *page = newPage();
  [page setPreferenceValue:@(YES) specifier:rowKeyed(page, @"useCustom")];
  EXPECT_NE(read(kThemeFile).find("<true/>"), std::string::npos) << "1 would be equal";
  [page setPreferenceValue:@1 specifier:rowKeyed(page, @"useCustom")];
  EXPECT_NE(read(kThemeFile).find("<integer>1</integer>"), std::string::npos);
}

TEST_F(ThemePageTest, TheUserAgentRowInSightFollowsItsPartsAtOnce) {
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  scrollToUserAgent(page);
  ASSERT_TRUE([[[page table] visibleCells] containsObject:[page cachedCellForSpecifierID:@"User-Agent"]]);
  EXPECT_EQ(shown(page, @"User-Agent"), "(null)/(null)");
  [page setPreferenceValue:@"iPhone15,2" specifier:rowKeyed(page, @"device")];
  EXPECT_EQ(shown(page, @"User-Agent"), "iPhone15,2/(null)");
  [page setPreferenceValue:@"16.5" specifier:rowKeyed(page, @"iosVersion")];
  EXPECT_EQ(shown(page, @"User-Agent"), "iPhone15,2/16.5");
}

TEST_F(ThemePageTest, ReadingAPartReloadsTheUserAgentRow) {
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  scrollToUserAgent(page);
  for (NSString *key in @[ @"device", @"iosVersion" ]) {
    writePreferences(kThemeFile, @{key : @"new"});
    const std::string before = shown(page, @"User-Agent");
    EXPECT_OBJC_EQ([page readPreferenceValue:rowKeyed(page, key)], @"new");
    EXPECT_NE(shown(page, @"User-Agent"), before) << [key UTF8String];
  }
}

TEST_F(ThemePageTest, TheRespringButtonStartsTheTool) {
  NSString *tool = write(@"/var/jb/usr/bin/killall", "#!/bin/sh\necho \"$@\" > \"$(dirname \"$0\")/arguments\"\n");
  ASSERT_EQ(chmod([tool fileSystemRepresentation], 0755), 0);
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  UIBarButtonItem *button = [[page navigationItem] rightBarButtonItem];
  EXPECT_OBJC_EQ([button title], @"Respring");
  EXPECT_EQ(static_cast<int>([button style]), 1);
  EXPECT_TRUE([button sim_tap]);
  for (int tries = 0; tries < 500 && read(@"/var/jb/usr/bin/arguments").empty(); ++tries) usleep(10'000);
  EXPECT_EQ(read(@"/var/jb/usr/bin/arguments"), "-9 backboardd\n");
}

TEST_F(ThemePageTest, ClearAsksFirst) {
  writePreferences(kThemeFile, @{@"spacing" : @1});
  writePreferences(kMainFile, @{@"Enabled" : @1});
  write([kThemeFile stringByAppendingString:@".bak"], "backup");
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  [page clearSettings];
  EXPECT_EQ(describe(alertOf(page)),
            "Clear|Are you sure you would like to clear all settings?|Yes:destructive|No:cancel");
  tapAction(page, "No");
  EXPECT_TRUE(exists(kThemeFile));

  [page clearSettings];
  NSArray *before = [page specifiers];
  tapAction(page, "Yes");
  EXPECT_FALSE(exists(kThemeFile));
  EXPECT_NE([page specifiers], before);
  EXPECT_TRUE(exists(kMainFile));
  EXPECT_EQ(read([kThemeFile stringByAppendingString:@".bak"]), "backup");
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ThemePageTest, ClearWithoutAFileStillReloads) {
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  NSArray *before = [page specifiers];
  [page clearSettings];
  tapAction(page, "Yes");
  EXPECT_NE([page specifiers], before);
}

TEST_F(ThemePageTest, ThePageIsCurrentOnlyWhileItIsOnScreen) {
  ZunoCustomiseRootListController *page = newPage();
  EXPECT_OBJC_EQ([pageClass() currentPage], nil);
  UINavigationController *navigation = show([[[UIViewController alloc] init] autorelease]);
  [navigation pushViewController:page animated:YES];
  EXPECT_EQ([pageClass() currentPage], page);
  [navigation popViewControllerAnimated:YES];
  EXPECT_OBJC_EQ([pageClass() currentPage], nil);
}

TEST_F(ThemePageTest, TheFrameworkHearsOfTheAppearance) {
  for (SEL moment : { @selector(viewDidLoad), @selector(viewWillAppear:), @selector(viewWillDisappear:) }) {
    CallCounter framework([PSListController class], moment);
    UINavigationController *navigation = show([[[UIViewController alloc] init] autorelease]);
    [navigation pushViewController:newPage() animated:YES];
    [navigation popViewControllerAnimated:YES];
    EXPECT_EQ(framework.calls(), 1) << sel_getName(moment);
  }
}

TEST_F(ThemePageTest, ThePageIsCurrentWhenTheFrameworkHearsThatItAppearsAndNoLongerWhenItGoes) {
  std::string moments;
  const auto note = [&](id receiver, const char *moment) {
    if ([receiver class] != pageClass()) return;
    moments += std::string(moment) + ([pageClass() currentPage] == receiver ? " current " : " not current ");
  };
  const MethodSpy<> reloads([PSListController class], @selector(reloadSpecifiers),
                            [&](id receiver) { note(receiver, "reloads"); });
  const MethodSpy<BOOL> appears([PSListController class], @selector(viewWillAppear:),
                                [&](id receiver, BOOL) { note(receiver, "appears"); });
  const MethodSpy<BOOL> goes([PSListController class], @selector(viewWillDisappear:),
                             [&](id receiver, BOOL) { note(receiver, "goes"); });
  UINavigationController *navigation = show([[[UIViewController alloc] init] autorelease]);
  [navigation pushViewController:newPage() animated:YES];
  [navigation popViewControllerAnimated:YES];
  EXPECT_EQ(moments, "appears current reloads current goes not current ");
}

TEST_F(ThemePageTest, APageThatWasLeftIsNotKept) {
  CallCounter ends([PSListController class], @selector(dealloc));
  UINavigationController *navigation = show([[[UIViewController alloc] init] autorelease]);
  [navigation pushViewController:newPage() animated:YES];
  [navigation popViewControllerAnimated:YES];
  SIMDrainMainQueue();
  drainPool();
  EXPECT_EQ(ends.calls(), 1);
}

TEST_F(ThemePageTest, WhatIsPresentedComesWithAnimation) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  const Presentations presentations;
  [page clearSettings];
  tapAction(page, "No");
  [page selectImage];
  EXPECT_EQ(presentations.take(), "UIAlertController with No animated, UIImagePickerController animated");
}

TEST_F(ThemePageTest, ReappearingShowsWhatChangedElsewhere) {
  ZunoCustomiseRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  NSArray *before = [page specifiers];
  [navigation pushViewController:[[[UIViewController alloc] init] autorelease] animated:YES];
  [navigation popViewControllerAnimated:YES];
  EXPECT_NE([page specifiers], before);
}

TEST_F(ThemePageTest, WithoutAPhotoLibraryNothingIsPresented) {
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  [page selectImage];
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(ThemePageTest, APickedPhotoIsStoredInLinesOf64) {
  makePhotoLibrary();
  writePreferences(kThemeFile, @{@"spacing" : @1});
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  [page selectImage];
  auto *picker = (UIImagePickerController *)[page presentedViewController];
  ASSERT_TRUE([picker isKindOfClass:[UIImagePickerController class]]);
  NSArray *before = [page specifiers];
  {
    const MethodSpy<> reload([PSListController class], @selector(reloadSpecifiers), [&](id) {
      EXPECT_EQ(colourOf(storedPicture()), "0,255,0") << "the rows show what is stored";
    });
    [page imagePickerController:picker didFinishPickingMediaWithInfo:picked(picture(64, [UIColor greenColor]))];
  }
  EXPECT_OBJC_EQ([page presentedViewController], nil) << "dismissed without animation";
  SIMDrainMainQueue();
  EXPECT_NE([page specifiers], before);
  EXPECT_TRUE(notifications.empty());

  NSDictionary *stored = preferences(kThemeFile);
  EXPECT_OBJC_EQ([stored objectForKey:@"spacing"], @1);
  const std::string text = [[stored objectForKey:@"backgroundImage"] UTF8String];
  ASSERT_GT(text.size(), 2 * 66u);
  for (std::size_t line = 0; line < text.size(); line += 66) {
    EXPECT_EQ(text.find_first_of("\r\n", line), line + 64 < text.size() ? line + 64 : text.npos) << line;
    if (line + 64 < text.size()) {
      EXPECT_EQ(text.substr(line + 64, 2), "\r\n") << line;
    }
  }
  EXPECT_NE(text.back(), '\n');
  NSData *png = [[[NSData alloc] initWithBase64EncodedString:[stored objectForKey:@"backgroundImage"]
                                                     options:NSDataBase64DecodingIgnoreUnknownCharacters] autorelease];
  EXPECT_EQ(colourOf([UIImage imageWithData:png]), "0,255,0");
}

TEST_F(ThemePageTest, APortraitPhotoIsStoredUpright) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  for (const CGFloat scale : {1.0, 2.0}) {
    [page selectImage];
    auto *picker = (UIImagePickerController *)[page presentedViewController];
    [page imagePickerController:picker didFinishPickingMediaWithInfo:picked(portraitPhoto(40, scale))];
    EXPECT_EQ(look(storedPicture()), "20x40 red above blue") << scale;
    EXPECT_EQ([storedPicture() imageOrientation], UIImageOrientationUp);
    EXPECT_EQ(CGImageGetAlphaInfo([storedPicture() CGImage]), kCGImageAlphaNoneSkipLast)
        << "a photo lets nothing through";
    SIMDrainMainQueue();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  }
  EXPECT_EQ(look([UIImage imageWithData:UIImagePNGRepresentation(portraitPhoto(40))]).substr(0, 5), "40x20");
}

TEST_F(ThemePageTest, APhotoThatIsUprightIsEncodedAsItIs) {
  static UIImage *encoded = nil;
  const auto encode = +[](id, SEL, UIImage *image) -> NSString * {
    encoded = image;
    return nil;
  };
  const Replaced encoding(pageClass(), @selector(encodeToBase64String:), encode);
  UIImage *photo = picture(8, [UIColor greenColor]);
  [newPage() imagePickerController:(UIImagePickerController *)nil didFinishPickingMediaWithInfo:picked(photo)];
  EXPECT_EQ(encoded, photo);
  encoded = nil;
}

TEST_F(ThemePageTest, APhotoThatStandsOnItsHeadIsTurned) {
  UIImage *lying = portraitPhoto(40);  // Its pixels have red on the left.
  UIImage *headlong = [UIImage imageWithCGImage:[lying CGImage] scale:1 orientation:UIImageOrientationDown];
  [newPage() imagePickerController:(UIImagePickerController *)nil didFinishPickingMediaWithInfo:picked(headlong)];
  EXPECT_EQ(look(storedPicture()), "40x20 blue beside red above blue beside red");
}

TEST_F(ThemePageTest, APictureThatLetsNothingThroughStaysSoInEveryLayout) {
  const UInt8 pixels[2 * 4] = {};
  CFDataRef bytes = CFDataCreate(nullptr, pixels, sizeof pixels);
  CGDataProviderRef provider = CGDataProviderCreateWithCFData(bytes);
  CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
  for (const CGBitmapInfo layout : {kCGImageAlphaNoneSkipFirst, kCGImageAlphaNoneSkipLast}) {
    CGImageRef image =
        CGImageCreate(2, 1, 8, 32, 8, space, layout, provider, nullptr, false, kCGRenderingIntentDefault);
    [newPage() imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
        didFinishPickingMediaWithInfo:picked([UIImage imageWithCGImage:image
                                                                 scale:1
                                                           orientation:UIImageOrientationLeft])];
    CGImageRelease(image);
    EXPECT_TRUE(CGSizeEqualToSize([storedPicture() size], CGSizeMake(1, 2)));
    EXPECT_EQ(CGImageGetAlphaInfo([storedPicture() CGImage]), kCGImageAlphaNoneSkipLast) << layout;
  }
  CGColorSpaceRelease(space);
  CGDataProviderRelease(provider);
  CFRelease(bytes);
}

TEST_F(ThemePageTest, ATurnedPictureKeepsWhatShinesThrough) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(6, 4), NO, 1);
  UIImage *clear = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  [page imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
      didFinishPickingMediaWithInfo:picked([UIImage imageWithCGImage:[clear CGImage]
                                                               scale:1
                                                         orientation:UIImageOrientationLeftMirrored])];
  EXPECT_TRUE(CGSizeEqualToSize([storedPicture() size], CGSizeMake(4, 6)));
  EXPECT_NE(CGImageGetAlphaInfo([storedPicture() CGImage]), kCGImageAlphaNoneSkipLast);
}

TEST_F(ThemePageTest, EncodingAPictureLeavesItAsItIsStored) {
  NSString *text = [newPage() encodeToBase64String:portraitPhoto(40)];
  writePreferences(kThemeFile, @{@"backgroundImage" : text});
  EXPECT_EQ(look(storedPicture()).substr(0, 5), "40x20");
  EXPECT_OBJC_EQ([newPage() encodeToBase64String:nil], nil);
}

TEST_F(ThemePageTest, AResultWithoutAPictureChangesNothing) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = newPage();
  (void)show(page);
  [page selectImage];
  auto *picker = (UIImagePickerController *)[page presentedViewController];
  [page imagePickerController:picker didFinishPickingMediaWithInfo:picked(nil)];
  SIMDrainMainQueue();
  EXPECT_FALSE(exists(kThemeFile));
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(ThemePageTest, ABrokenFileReadsAsEmptyAndIsKeptWhenAValueIsWritten) {
  for (const char *content : {"<plist><dict>", "bplist00", "<plist><array/></plist>"}) {
    write(kThemeFile, content);
    ZunoCustomiseRootListController *page = newPage();
    EXPECT_OBJC_EQ([page readPreferenceValue:rowKeyed(page, @"spacing")], @16.0) << content;
  }
  ZunoCustomiseRootListController *page = newPage();
  [page setPreferenceValue:@1.0 specifier:rowKeyed(page, @"spacing")];
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{@"spacing" : @1.0});
  EXPECT_EQ(read([kThemeFile stringByAppendingString:@".damaged"]), "<plist><array/></plist>");
}

}  // namespace
