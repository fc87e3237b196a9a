#import "theme/ZunoImagePickerCell.h"

#import <Foundation/SIMDevice.h>
#import <Preferences/PSSpecifier.h>
#import <dispatch/MainQueue+Sim.h>

#import "theme/ZunoCustomiseRootListController.h"

#include <fstream>
#include <string>

#include "ZunoPrefs/theme/ThemeTest.h"

namespace {

class ImageCellTest : public ThemeTest {
 protected:
  PSSpecifier *newRow() {
    return [PSSpecifier preferenceSpecifierNamed:@"Image"
                                          target:nil
                                             set:nullptr
                                             get:nullptr
                                          detail:Nil
                                            cell:PSButtonCell
                                            edit:Nil];
  }
  ZunoImagePickerCell *newCell(PSSpecifier *row) {
    return [[(ZunoImagePickerCell *)[classNamed("ZunoImagePickerCell") alloc] initWithStyle:UITableViewCellStyleDefault
                                                                            reuseIdentifier:@"Image"
                                                                                  specifier:row] autorelease];
  }
  ZunoCustomiseRootListController *showPage() {
    id page =
        [[(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
    (void)show(page);
    return page;
  }
  void storeImage(NSString *text) {
    writePreferences(kThemeFile, @{@"backgroundImage" : text, @"spacing" : @1});
  }
};

TEST_F(ImageCellTest, TheTapGoesToTheCellItself) {
  PSSpecifier *row = newRow();
  ZunoImagePickerCell *cell = newCell(row);
  EXPECT_OBJC_EQ(NSStringFromSelector([cell action]), @"openImagePicker");
  EXPECT_OBJC_EQ(NSStringFromSelector([cell cellAction]), @"openImagePicker");
  EXPECT_EQ([cell target], cell);
  EXPECT_EQ([cell cellTarget], cell);
  EXPECT_EQ([cell specifier], row);
  UIView *parent = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  [parent addSubview:cell];
  EXPECT_EQ([row target], cell);
  EXPECT_OBJC_EQ(NSStringFromSelector([row buttonAction]), @"openImagePicker");
}

TEST_F(ImageCellTest, ShowsTheStoredImageWhenItGetsASuperview) {
  NSString *text = [newCell(newRow()) encodeToBase64String:picture(32, [UIColor blueColor])];
  ASSERT_NE([text rangeOfString:@"\r\n"].location, NSNotFound);
  NSString *oneLine = [text stringByReplacingOccurrencesOfString:@"\r\n" withString:@""];
  for (NSString *stored in @[ text, oneLine ]) {
    storeImage(stored);
    ZunoImagePickerCell *cell = newCell(newRow());
    EXPECT_OBJC_EQ([[cell imageView] image], nil);
    [[[[UIView alloc] initWithFrame:CGRectZero] autorelease] addSubview:cell];
    EXPECT_EQ(colourOf([[cell imageView] image]), "0,0,255");
  }
}

TEST_F(ImageCellTest, WhatIsNoImageLeavesTheCellAsItIs) {
  ZunoImagePickerCell *cell = newCell(newRow());
  [cell setCurrentImage:picture(8, [UIColor redColor])];
  const auto expectUnchanged = [&] {
    [cell loadImageFromDict];
    EXPECT_EQ(colourOf([[cell imageView] image]), "255,0,0");
  };
  expectUnchanged();
  for (id odd in @[ @"", @"not base64 at all!", @"aGVsbG8=", @7, @[ @"x" ], @{} ]) {
    writePreferences(kThemeFile, @{@"backgroundImage" : odd});
    expectUnchanged();
  }
  write(kThemeFile, "damaged");
  expectUnchanged();
  NSString *whole = [cell encodeToBase64String:picture(32, [UIColor blueColor])];
  writePreferences(kThemeFile, @{@"backgroundImage" : [whole substringToIndex:[whole length] / 2]});
  expectUnchanged();
}

TEST_F(ImageCellTest, WithoutAFileThereIsNoImageAndATapOpensThePicker) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = showPage();
  ZunoImagePickerCell *cell = newCell(newRow());
  [[[[UIView alloc] initWithFrame:CGRectZero] autorelease] addSubview:cell];
  EXPECT_FALSE(exists(kThemeFile));
  EXPECT_OBJC_EQ([[cell imageView] image], nil);
  [(id)[cell cellTarget] performSelector:[cell cellAction]];
  EXPECT_TRUE([[page presentedViewController] isKindOfClass:[UIImagePickerController class]]);
}

TEST_F(ImageCellTest, PickingReplacesTheImageAndKeepsEveryOtherKey) {
  makePhotoLibrary();
  storeImage(@"old");
  ZunoCustomiseRootListController *page = showPage();
  NSArray *rows = [page specifiers];
  ZunoImagePickerCell *cell = newCell(newRow());
  const Presentations presentations;
  [cell openImagePicker];
  EXPECT_EQ(presentations.take(), "UIImagePickerController animated");
  EXPECT_EQ(log, std::vector<std::string>{"[Zuno] openImagePicker"});
  auto *picker = (UIImagePickerController *)[page presentedViewController];
  ASSERT_TRUE([picker isKindOfClass:[UIImagePickerController class]]);
  EXPECT_EQ((id)[picker delegate], cell);
  {
    const MethodSpy<BOOL, void (^)(void)> dismissal(
        [UIViewController class], @selector(dismissViewControllerAnimated:completion:),
        [&](id, BOOL, void (^)(void)) { EXPECT_OBJC_EQ([[cell imageView] image], nil) << "it changes afterwards"; });
    [cell imagePickerController:picker didFinishPickingMediaWithInfo:picked(picture(16, [UIColor greenColor]))];
  }
  EXPECT_OBJC_EQ([page presentedViewController], nil) << "dismissed without animation";
  SIMDrainMainQueue();
  EXPECT_EQ(colourOf([[cell imageView] image]), "0,255,0");
  EXPECT_OBJC_EQ([preferences(kThemeFile) objectForKey:@"spacing"], @1);
  EXPECT_EQ([page specifiers], rows) << "only the cell is refreshed";
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ImageCellTest, APortraitPhotoIsStoredUpright) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = showPage();
  ZunoImagePickerCell *cell = newCell(newRow());
  [cell openImagePicker];
  [cell imagePickerController:(UIImagePickerController *)[page presentedViewController]
      didFinishPickingMediaWithInfo:picked(portraitPhoto(40))];
  EXPECT_EQ(look(storedPicture()), "20x40 red above blue");
  EXPECT_EQ(look([[cell imageView] image]), "20x40 red above blue");
  EXPECT_TRUE([[cell encodeToBase64String:portraitPhoto(40)] length] > 0);
  EXPECT_EQ(look([cell decodeBase64ToImage:[cell encodeToBase64String:portraitPhoto(40)]]).substr(0, 5), "40x20");
}

TEST_F(ImageCellTest, APhotoIsDecodedAgainOnlyWhenItIsAnother) {
  PSSpecifier *row = newRow();
  ZunoImagePickerCell *cell = newCell(row);
  UIView *parent = [[[UIView alloc] initWithFrame:CGRectMake(0, 0, 100, 100)] autorelease];
  const auto imageAfter = [&](NSDictionary *theme) {
    writePreferences(kThemeFile, theme);
    [cell refreshCellContentsWithSpecifier:row];
    return [[cell imageView] image];
  };
  NSString *red = [cell encodeToBase64String:picture(32, [UIColor redColor])];
  NSString *blue = [cell encodeToBase64String:picture(48, [UIColor blueColor])];
  EXPECT_OBJC_EQ(imageAfter(@{@"backgroundImage" : red}), nil) << "it is in no table";
  [parent addSubview:cell];
  UIImage *shown = [[cell imageView] image];
  EXPECT_EQ(colourOf(shown), "255,0,0");
  EXPECT_EQ(imageAfter(@{@"backgroundImage" : red, @"spacing" : @3}), shown);
  EXPECT_EQ(colourOf(imageAfter(@{@"backgroundImage" : blue})), "0,0,255");
  EXPECT_OBJC_EQ(imageAfter(@{@"spacing" : @3}), nil) << "none is stored any more";
  EXPECT_EQ(colourOf(imageAfter(@{@"backgroundImage" : red})), "255,0,0");
  EXPECT_OBJC_EQ(imageAfter(@{@"backgroundImage" : @"no picture"}), nil);
  EXPECT_EQ(colourOf(imageAfter(@{@"backgroundImage" : red})), "255,0,0") << "the same one after none";
  [[cell imageView] setImage:nil];
  EXPECT_EQ(colourOf(imageAfter(@{@"backgroundImage" : red})), "255,0,0") << "as a device clears a cell that waits";
  [cell setCurrentImage:picture(8, [UIColor greenColor])];
  EXPECT_EQ(colourOf(imageAfter(@{@"backgroundImage" : red})), "255,0,0") << "what was set is not what is stored";
  shown = [[cell imageView] image];
  [row setProperty:picture(8, [UIColor greenColor]) forKey:@"iconImage"];
  EXPECT_EQ(imageAfter(@{@"backgroundImage" : red, @"spacing" : @4}), shown) << "the row's icon gives way";
}

TEST_F(ImageCellTest, ACellThatIsUsedAgainShowsWhatIsStoredNowAndTakesItsRowsTaps) {
  storeImage(@"no picture");
  ZunoCustomiseRootListController *page = showPage();
  ZunoImagePickerCell *cell = (ZunoImagePickerCell *)[page cachedCellForSpecifierID:@"backgroundImage"];
  ASSERT_TRUE([cell isKindOfClass:classNamed("ZunoImagePickerCell")]);
  EXPECT_OBJC_EQ([[cell imageView] image], nil);
  for (UIColor *colour in @[ [UIColor blueColor], [UIColor greenColor] ]) {
    storeImage([cell encodeToBase64String:picture(32, colour)]);
    PSSpecifier *before = [page specifierForID:@"backgroundImage"];
    [page reloadSpecifiers];
    [[page table] layoutIfNeeded];
    PSSpecifier *row = [page specifierForID:@"backgroundImage"];
    ASSERT_NE(row, before);
    ASSERT_EQ([page cachedCellForSpecifierID:@"backgroundImage"], cell) << "the cell came out of the queue";
    EXPECT_EQ(colourOf([[cell imageView] image]), [colour isEqual:[UIColor blueColor]] ? "0,0,255" : "0,255,0");
    EXPECT_EQ([row target], cell);
    EXPECT_OBJC_EQ(NSStringFromSelector([row buttonAction]), @"openImagePicker");
    EXPECT_OBJC_EQ([[cell textLabel] text], @"Background Image");
  }
}

/// Many of these changes fall into one tick of the file system's clock, on systems that do not tell finer.
TEST_F(ImageCellTest, APhotoThatIsChangedInPlaceRightAfterItWasReadIsShown) {
  ZunoImagePickerCell *cell = newCell(newRow());
  UIView *parent = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [parent addSubview:cell];
  // Of one length: spaces at the end do not count.
  const auto file = [&](UIColor *colour) {
    NSString *photo = [[cell encodeToBase64String:picture(8, colour)] stringByPaddingToLength:400
                                                                                   withString:@" "
                                                                              startingAtIndex:0];
    return "<plist><dict><key>backgroundImage</key><string>" + std::string([photo UTF8String]) +
           "</string></dict></plist>";
  };
  const std::string blue = file([UIColor blueColor]), red = file([UIColor redColor]);
  ASSERT_EQ(blue.size(), red.size());
  storeImage(@"");
  const std::string path = [SIMDevicePath(kThemeFile) fileSystemRepresentation];
  const auto write = [&](const std::string &content, std::ios::openmode mode = {}) {
    std::fstream(path, std::ios::in | std::ios::out | std::ios::binary | mode) << content;
  };
  const auto shown = [&] {
    [cell refreshCellContentsWithSpecifier:[cell specifier]];
    return [[cell imageView] image];
  };
  for (int attempt = 0; attempt < 200; ++attempt) {
    write(blue, std::ios::trunc);
    (void)shown();
    write(blue);
    UIImage *before = shown();
    write(red);
    UIImage *after = shown();
    ASSERT_EQ(colourOf(before), "0,0,255") << attempt;
    ASSERT_EQ(colourOf(after), "255,0,0") << attempt;
  }
}

TEST_F(ImageCellTest, TheFrameworkHearsOfTheMove) {
  ZunoImagePickerCell *cell = newCell(newRow());
  UIView *parent = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  CallCounter framework([UIView class], @selector(didMoveToSuperview));
  [parent addSubview:cell];
  EXPECT_EQ(framework.calls(), 1);
}

TEST_F(ImageCellTest, ACellThatIsInNoTableIsNotFilledIn) {
  storeImage([newCell(newRow()) encodeToBase64String:picture(32, [UIColor blueColor])]);
  PSSpecifier *row = newRow();
  ZunoImagePickerCell *cell = newCell(row);
  [cell refreshCellContentsWithSpecifier:row];
  EXPECT_OBJC_EQ([[cell imageView] image], nil);
  UIView *parent = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
  [parent addSubview:cell];
  [cell setCurrentImage:nil];
  [row setTarget:nil];
  [cell removeFromSuperview];
  EXPECT_OBJC_EQ([[cell imageView] image], nil);
  EXPECT_OBJC_EQ([row target], nil);
}

TEST_F(ImageCellTest, WithoutAPageOrALibraryNothingIsPresented) {
  makePhotoLibrary();
  [newCell(newRow()) openImagePicker];
  [[NSFileManager defaultManager] removeItemAtPath:path(@"/var/mobile/Media/DCIM") error:nullptr];
  ZunoCustomiseRootListController *page = showPage();
  [newCell(newRow()) openImagePicker];
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(ImageCellTest, OptionsAreKept) {
  ZunoImagePickerCell *cell = newCell(newRow());
  [cell setOptions:@"kept"];
  EXPECT_OBJC_EQ([cell options], @"kept");
  int deaths = 0;
  auto *other =
      [(ZunoImagePickerCell *)[classNamed("ZunoImagePickerCell") alloc] initWithStyle:UITableViewCellStyleDefault
                                                                      reuseIdentifier:@"Image"
                                                                            specifier:newRow()];
  [other setOptions:[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
  [other release];
  drainPool();
  EXPECT_EQ(deaths, 1);
}

}  // namespace
