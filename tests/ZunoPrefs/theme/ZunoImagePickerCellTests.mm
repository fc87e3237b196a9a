#import "theme/ZunoImagePickerCell.h"

#import <Preferences/PSSpecifier.h>
#import <dispatch/MainQueue+Sim.h>

#import "theme/ZunoCustomiseRootListController.h"

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
    return [[(ZunoImagePickerCell *)[classNamed("ZunoImagePickerCell") alloc]
        initWithStyle:UITableViewCellStyleDefault
      reuseIdentifier:@"Image"
            specifier:row] autorelease];
  }
  ZunoCustomiseRootListController *showPage() {
    id page = [[(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
    (void)show(page);
    return page;
  }
  void storeImage(NSString *text) { writePreferences(kThemeFile, @{@"backgroundImage" : text, @"spacing" : @1}); }
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
  [cell openImagePicker];
  EXPECT_TRUE(logged("[Zuno] openImagePicker"));
  auto *picker = (UIImagePickerController *)[page presentedViewController];
  ASSERT_TRUE([picker isKindOfClass:[UIImagePickerController class]]);
  EXPECT_EQ((id)[picker delegate], cell);
  [cell imagePickerController:picker didFinishPickingMediaWithInfo:picked(picture(16, [UIColor greenColor]))];
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([page presentedViewController], nil);
  EXPECT_EQ(colourOf([[cell imageView] image]), "0,255,0");
  EXPECT_OBJC_EQ([preferences(kThemeFile) objectForKey:@"spacing"], @1);
  EXPECT_EQ([page specifiers], rows) << "only the cell is refreshed";
  EXPECT_TRUE(notifications.empty());
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
}

}  // namespace
