// The preview above the theme page's rows: what each key of the theme file does to it, and when it follows.
#import "theme/ZunoThemePreview.h"

#import <CoreGraphics/CGImage+Sim.h>
#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>
#import <UIKit/UIScreen+Sim.h>
#import <UIKit/UITraitCollection+Sim.h>
#import <UIKit/UIWindow+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import "theme/ZunoCustomiseRootListController.h"
#import "theme/ZunoImagePickerCell.h"
#import "theme/ZunoPresets.h"

#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ZunoPrefs/support/Replaced.h"
#include "ZunoPrefs/theme/ThemeTest.h"

namespace {

int decodings = 0;
id (*originalImageWithData)(id, SEL, NSData *) = nullptr;

id countedImageWithData(id receiver, SEL selector, NSData *data) {
  ++decodings;
  return originalImageWithData(receiver, selector, data);
}

std::string text(UIColor *colour) {
  if (!colour) return "none";
  CGFloat parts[4] = {};
  [colour getRed:&parts[0] green:&parts[1] blue:&parts[2] alpha:&parts[3]];
  std::string result;
  for (const CGFloat part : parts) result += (result.empty() ? "" : ",") + std::to_string(std::lround(part * 255));
  return result;
}

std::string text(CGRect frame) {
  std::ostringstream out;
  out << std::lround(frame.origin.x * 100) << " " << std::lround(frame.origin.y * 100) << " "
      << std::lround(frame.size.width * 100) << " " << std::lround(frame.size.height * 100);
  return out.str();
}

std::string text(double number) {
  std::ostringstream out;
  out << std::lround(number * 1000) / 1000.0;
  return out.str();
}

class ThemePreviewTest : public ThemeTest {
 protected:
  using Parts = std::map<std::string, std::string>;

  void TearDown() override {
    page_ = nullptr;
    ThemeTest::TearDown();
    SIMSetUserInterfaceStyle(UIUserInterfaceStyleLight);
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
  }

  ZunoCustomiseRootListController *page() {
    if (!page_) {
      page_ = objcxx::adopt(
          [(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init]);
      (void)show(page_.get());
    }
    return page_.get();
  }
  void lay() {
    [[[page() view] window] layoutIfNeeded];
    SIMDrainMainQueue();
    [[[page() view] window] layoutIfNeeded];
  }
  ZunoThemePreview *preview() {
    lay();
    id view = [[[page() specifiers] objectAtIndex:0] propertyForKey:@"headerView"];
    EXPECT_TRUE([view isKindOfClass:classNamed("ZunoThemePreview")]);
    return view;
  }
  template <typename Part = UIView>
  Part *part(NSString *name) {
    return (Part *)[preview() valueForKey:name];
  }
  UIView *card(NSUInteger number) { return [(NSArray *)[preview() valueForKey:@"cards"] objectAtIndex:number]; }
  UIImage *picture() { return [part<UIImageView>(@"picture") image]; }
  using ThemeTest::picture;

  void write(NSDictionary *theme) { writePreferences(kThemeFile, theme); }
  void writeOn(NSDictionary *theme) {
    NSMutableDictionary *whole =
        [NSMutableDictionary dictionaryWithObjectsAndKeys:@1, @"enabled", @1, @"useCustom", nil];
    [whole addEntriesFromDictionary:theme];
    write(whole);
    if (page_) [page_.get() reloadSpecifiers];
  }

  /// Everything that can be seen.
  Parts shown() {
    Parts parts;
    parts["picture"] = colourOf(picture());
    if (picture())
      parts["picture"] += " " + std::to_string(red(int(CGImageGetWidth([picture() CGImage]) * 45 / 100), 100));
    parts["dimming"] = text([part(@"dimming") alpha]);
    parts["background"] = text([part(@"screen") backgroundColor]);
    parts["cards"] = text([card(2) backgroundColor]);
    parts["corners"] = text([[card(2) layer] cornerRadius]);
    for (NSUInteger number = 0; number < 3; ++number) parts["frames"] += text([card(number) frame]) + "; ";
    parts["title"] = text([part<UILabel>(@"title") textColor]);
    parts["badge"] = text([part(@"badge") backgroundColor]);
    return parts;
  }
  /// The parts that differ.
  static std::string differences(const Parts &one, const Parts &other) {
    std::string names;
    for (const auto &[name, value] : one) {
      if (other.at(name) != value) names += (names.empty() ? "" : " ") + name;
    }
    return names;
  }

  static NSString *stored(UIImage *image) {
    return [UIImagePNGRepresentation(image) base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
  }
  /// Black on the left, white on the right.
  static UIImage *halves(CGFloat width, CGFloat height) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(width, height), YES, 1);
    [[UIColor blackColor] setFill];
    UIRectFill(CGRectMake(0, 0, width / 2, height));
    [[UIColor whiteColor] setFill];
    UIRectFill(CGRectMake(width / 2, 0, width / 2, height));
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
  }
  static void expectSize(CGSize size, CGSize expected) {
    EXPECT_NEAR(size.width, expected.width, 1e-9);
    EXPECT_NEAR(size.height, expected.height, 1e-9);
  }
  /// The red of the picture's pixel at (x, y).
  int red(int x, int y) { return sim::sourceOf([picture() CGImage])->bitmap()->row(y)[std::size_t(x) * 4]; }

  PSSpecifier *row(NSString *key) {
    for (PSSpecifier *row in [page() specifiers]) {
      if ([[row propertyForKey:@"key"] isEqual:key]) return row;
    }
    return nil;
  }
  void set(id value, NSString *key) { [page() setPreferenceValue:value specifier:row(key)]; }
  void turn(CGSize size, CGFloat scale) {
    [[[page() view] window] sim_changeScreenToSize:size scale:scale safeArea:UIEdgeInsetsZero];
  }

 private:
  objcxx::Retained<ZunoCustomiseRootListController> page_;
};

TEST_F(ThemePreviewTest, StandsAboveTheFirstRowsInTheProportionsOfTheScreen) {
  EXPECT_TRUE([[[[page() specifiers] objectAtIndex:0] propertyForKey:@"headerCellClass"] isEqual:@"ZunoThemePreview"]);
  const CGRect screen = [part(@"screen") frame];
  EXPECT_NEAR(screen.size.width, 0.3 * 390, 0.34);
  EXPECT_NEAR(screen.size.height, 0.3 * 844, 0.34);
  EXPECT_NEAR(CGRectGetMidX(screen), [preview() bounds].size.width / 2, 0.34);
  EXPECT_NEAR([preview() frame].size.height, screen.size.height + 32, 0.01);
  EXPECT_TRUE([part(@"screen") clipsToBounds]);
  // The middle card stands in front, between two that are as large.
  EXPECT_EQ([[part(@"screen") subviews] indexOfObject:card(2)], [[part(@"screen") subviews] indexOfObject:card(1)] + 1);
  EXPECT_NEAR(CGRectGetMidX([card(2) frame]), screen.size.width / 2, 0.34);
  EXPECT_EQ([card(0) frame].size.height, [card(2) frame].size.height);
  EXPECT_LT(CGRectGetMaxY([part(@"title") frame]), CGRectGetMinY([card(2) frame]));
  EXPECT_GT(CGRectGetMinY([part(@"title") frame]), 0);
  EXPECT_TRUE(CGRectContainsPoint([part(@"badge") frame],
                                  CGPointMake(CGRectGetMaxX([card(2) frame]), CGRectGetMinY([card(2) frame]))));
}

TEST_F(ThemePreviewTest, ATooNarrowPageMakesItSmaller) {
  ZunoThemePreview *view = preview();
  EXPECT_NEAR([view preferredHeightForWidth:390], 32 + 253.2, 0.34);
  EXPECT_NEAR([view preferredHeightForWidth:110], 32 + 78.0 / 390 * 844, 0.34);
  EXPECT_EQ([view preferredHeightForWidth:110], [view preferredHeightForWidth:110 inTableView:nil]);
  for (const CGFloat width : {32.0, 0.0, -5.0}) EXPECT_EQ([view preferredHeightForWidth:width], 32) << width;
  [view setFrame:CGRectMake(0, 0, 20, 100)];
  [view layoutIfNeeded];
  EXPECT_EQ([[view valueForKey:@"screen"] frame].size.width, 0);
}

TEST_F(ThemePreviewTest, EachKeyChangesItsPartAndNoOther) {
  writeOn(@{@"backgroundImage" : stored(halves(60, 120))});
  const Parts before = shown();
  EXPECT_EQ(before.at("dimming"), "0.25");
  EXPECT_EQ(before.at("corners"), "6");
  const std::map<std::string, std::pair<id, std::string>> changes = {
      {"blurRadius", {@0, "picture"}},
      {"dimming", {@60, "dimming"}},
      {"cornerRadius", {@44, "corners"}},
      {"spacing", {@50, "frames"}},
      {"appearance", {@2, "background badge cards"}},
      {"backgroundColour", {@"112233", "background"}},
      {"titleColour", {@"44556680", "title"}},
      {"badgeColour", {@"00FF00", "badge"}},
      {"backgroundImage", {stored(picture(20, [UIColor redColor])), "picture"}},
  };
  for (const auto &[key, change] : changes) {
    NSString *name = [NSString stringWithUTF8String:key.c_str()];
    NSMutableDictionary *theme = [NSMutableDictionary dictionaryWithObject:stored(halves(60, 120))
                                                                    forKey:@"backgroundImage"];
    [theme setObject:change.first forKey:name];
    writeOn(theme);
    EXPECT_EQ(differences(before, shown()), change.second) << key;
  }
}

TEST_F(ThemePreviewTest, LengthsShrinkWithTheScreen) {
  writeOn(@{@"cornerRadius" : @60, @"spacing" : @50, @"dimming" : @60});
  EXPECT_NEAR([[card(2) layer] cornerRadius], 18, 1e-9);
  EXPECT_NEAR(CGRectGetMinX([card(2) frame]) - CGRectGetMaxX([card(0) frame]), 15, 0.34);
  EXPECT_NEAR(CGRectGetMinX([card(1) frame]) - CGRectGetMaxX([card(2) frame]), 15, 0.34);
  EXPECT_NEAR([part(@"dimming") alpha], 0.6, 1e-9);
  EXPECT_EQ(text([part(@"dimming") backgroundColor]), "0,0,0,255");
}

TEST_F(ThemePreviewTest, ColoursAreThoseOfTheFile) {
  writeOn(@{@"backgroundColour" : @"11223344", @"titleColour" : @"445566", @"badgeColour" : @"00FF00"});
  const Parts parts = shown();
  EXPECT_EQ(parts.at("background"), "17,34,51,68");
  EXPECT_EQ(parts.at("title"), "68,85,102,255");
  EXPECT_EQ(parts.at("badge"), "0,255,0,255");
}

TEST_F(ThemePreviewTest, AThemeThatIsOffShowsTheSystemsLookAndUseCustomTheCards) {
  const Parts system = shown();
  EXPECT_EQ(system.at("picture"), "none");
  EXPECT_EQ(system.at("dimming"), "0");
  NSDictionary *all = @{
    @"backgroundImage" : stored(picture(20, [UIColor redColor])),
    @"blurRadius" : @40,
    @"dimming" : @80,
    @"cornerRadius" : @50,
    @"spacing" : @2,
    @"appearance" : @2,
    @"backgroundColour" : @"112233",
    @"titleColour" : @"445566",
    @"badgeColour" : @"00FF00",
    @"useCustom" : @1,
  };
  write(all);
  [page() reloadSpecifiers];
  EXPECT_EQ(differences(system, shown()), "");
  set([NSNumber numberWithBool:NO], @"useCustom");
  set([NSNumber numberWithBool:YES], @"enabled");
  EXPECT_EQ(differences(system, shown()), "dimming picture title") << "a title on a photo is white";
  set([NSNumber numberWithBool:YES], @"useCustom");
  EXPECT_EQ(differences(system, shown()), "background badge cards corners dimming frames picture title");
  set([NSNumber numberWithBool:NO], @"enabled");
  EXPECT_EQ(differences(system, shown()), "");
}

TEST_F(ThemePreviewTest, ThePictureFillsTheScreenCutInTheMiddle) {
  writeOn(@{@"backgroundImage" : stored(halves(400, 100)), @"blurRadius" : @0});
  const CGSize size = [part(@"picture") frame].size;
  expectSize([picture() size], size);
  EXPECT_EQ([picture() scale], 3);
  const int width = int(std::lround(size.width * 3)), height = int(std::lround(size.height * 3));
  EXPECT_EQ(CGImageGetWidth([picture() CGImage]), size_t(width));
  EXPECT_EQ(CGImageGetHeight([picture() CGImage]), size_t(height));
  for (const int y : {0, height / 2, height - 1}) {
    EXPECT_EQ(red(0, y), 0);
    EXPECT_EQ(red(width - 1, y), 255);
    EXPECT_EQ(red(width / 4, y), 0) << "cut at the sides, not squeezed";
  }
}

TEST_F(ThemePreviewTest, TheBlurIsAGaussianOfTheThemesPointsInTheProportionOfThePreview) {
  // The edge is as sharp as a pixel: it has the preview's own size.
  const CGSize size = [part(@"screen") frame].size;
  UIImage *edge = halves(size.width * 3 - std::fmod(size.width * 3, 2), size.height * 3);
  for (const double radius : {6.0, 12.0, 60.0}) {
    writeOn(@{@"backgroundImage" : stored(edge), @"blurRadius" : [NSNumber numberWithDouble:radius]});
    const double sigma = radius * 0.3 * 3;
    const int width = int(CGImageGetWidth([picture() CGImage]));
    for (const double at : {-0.5, -0.25, 0.25, 0.5}) {
      const int x = int(std::lround(width / 2.0 + at * sigma));
      const double distance = (x + 0.5 - width / 2.0) / sigma;
      EXPECT_NEAR(red(x, 100), 255 * 0.5 * std::erfc(-distance / std::sqrt(2)), 255 * 0.02 + 255 / sigma * 0.3)
          << radius << " points, at " << at;
    }
  }
}

TEST_F(ThemePreviewTest, TheEdgesOfABlurredPictureKeepTheirColour) {
  writeOn(@{@"backgroundImage" : stored(picture(50, [UIColor redColor])), @"blurRadius" : @60});
  const auto pixels = sim::sourceOf([picture() CGImage])->bitmap();
  for (const int y : {0, pixels->height() - 1}) {
    for (const int x : {0, pixels->width() - 1}) {
      const std::uint8_t *pixel = pixels->row(y) + std::size_t(x) * 4;
      EXPECT_EQ(pixel[0], 255);
      EXPECT_EQ(pixel[3], 255);
    }
  }
}

TEST_F(ThemePreviewTest, AppearanceIsTheThemesOrTheSystems) {
  const auto cards = [&](id appearance) {
    writeOn(@{@"appearance" : appearance});
    return shown().at("cards");
  };
  const std::string light = cards(@1), dark = cards(@2);
  EXPECT_NE(light, dark);
  EXPECT_EQ(cards(@0), light);
  const auto change = [&](UIUserInterfaceStyle style) {
    [[[page() view] window] sim_changeUserInterfaceStyle:style];
    return shown().at("cards");
  };
  EXPECT_EQ(change(UIUserInterfaceStyleDark), dark) << "at once";
  EXPECT_EQ(change(UIUserInterfaceStyleLight), light);
  (void)cards(@1);
  EXPECT_EQ(change(UIUserInterfaceStyleDark), light);
}

TEST_F(ThemePreviewTest, OddValuesShowAsTheDefault) {
  writeOn(@{});
  const Parts defaults = shown();
  for (id odd in @[ @"much", @[], @{}, [NSData data], [NSNumber numberWithDouble:NAN] ]) {
    NSMutableDictionary *theme = [NSMutableDictionary dictionary];
    for (NSString *key in @[
           @"blurRadius", @"dimming", @"cornerRadius", @"spacing", @"appearance", @"backgroundColour", @"titleColour",
           @"badgeColour", @"backgroundImage"
         ]) {
      [theme setObject:odd forKey:key];
    }
    writeOn(theme);
    EXPECT_EQ(differences(defaults, shown()), "") << [[odd description] UTF8String];
  }
  writeOn(@{@"cornerRadius" : @1e9, @"spacing" : @-7, @"dimming" : @1000});
  EXPECT_EQ(shown().at("corners"), "18");
  EXPECT_EQ(shown().at("dimming"), "1");
  EXPECT_NEAR(CGRectGetMaxX([card(0) frame]), CGRectGetMinX([card(2) frame]), 1e-9);
  DeviceTest::write(kThemeFile, "damaged");
  [page() reloadSpecifiers];
  EXPECT_EQ(shown().at("corners"), "6") << "of a theme that is off";
}

TEST_F(ThemePreviewTest, PicturesThatCannotBeDecodedShowNone) {
  NSData *whole = UIImagePNGRepresentation(halves(300, 300));
  NSMutableData *large = [NSMutableData dataWithLength:20'000'000];
  for (NSData *data in @[
         [NSData data], [@"no image" dataUsingEncoding:NSUTF8StringEncoding],
         [whole subdataWithRange:NSMakeRange(0, [whole length] / 2)], large
       ]) {
    writeOn(@{
      @"backgroundImage" : [data base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength],
      @"dimming" : @50
    });
    EXPECT_OBJC_EQ(picture(), nil) << [data length];
    EXPECT_EQ(shown().at("dimming"), "0.5");
  }
  writeOn(@{@"backgroundImage" : @"%%%"});
  EXPECT_OBJC_EQ(picture(), nil);
}

TEST_F(ThemePreviewTest, PicturesOfExtremeShapesAreShownAndSoAreTransparentOnes) {
  for (const auto &[width, height] : {std::pair{4000, 1}, {1, 4000}, {1, 1}}) {
    writeOn(@{@"backgroundImage" : stored(halves(width, height))});
    SCOPED_TRACE(testing::Message() << width << " by " << height);
    expectSize([picture() size], [part(@"picture") frame].size);
  }
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(8, 8), NO, 1);
  UIImage *clear = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  writeOn(@{@"backgroundImage" : stored(clear)});
  EXPECT_EQ(sim::sourceOf([picture() CGImage])->bitmap()->row(50)[3], 0) << "the background shows through";
}

TEST_F(ThemePreviewTest, FollowsEveryRowAtOnceWithoutRebuildingThePage) {
  writeOn(@{});
  (void)shown();
  NSArray *rows = [page() specifiers];
  const std::map<std::string, std::pair<id, std::string>> changes = {{"dimming", {@60, "dimming"}},
                                                                     {"cornerRadius", {@44, "corners"}},
                                                                     {"spacing", {@50, "frames"}},
                                                                     {"titleColour", {@"445566", "title"}}};
  for (const auto &[key, change] : changes) {
    const Parts before = shown();
    set(change.first, [NSString stringWithUTF8String:key.c_str()]);
    EXPECT_EQ(differences(before, shown()), change.second) << key;
  }
  EXPECT_EQ([page() specifiers], rows);
  EXPECT_EQ(notifications, std::vector<std::string>(changes.size(), "com.norvik.Zuno.theme"));
}

TEST_F(ThemePreviewTest, FollowsAPickedPhotoByEitherWay) {
  makePhotoLibrary();
  writeOn(@{@"blurRadius" : @0});
  EXPECT_OBJC_EQ(picture(), nil);
  [page() imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
      didFinishPickingMediaWithInfo:picked(picture(30, [UIColor blueColor]))];
  EXPECT_EQ(colourOf(picture()), "0,0,255");
  NSArray *rows = [page() specifiers];
  auto *cell = (ZunoImagePickerCell *)[page() cachedCellForSpecifierID:@"backgroundImage"];
  ASSERT_TRUE([cell isKindOfClass:classNamed("ZunoImagePickerCell")]);
  [cell imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
      didFinishPickingMediaWithInfo:picked(picture(30, [UIColor redColor]))];
  EXPECT_EQ(colourOf(picture()), "255,0,0");
  EXPECT_EQ([page() specifiers], rows) << "only the cell and the preview are refreshed";
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ThemePreviewTest, FollowsClearing) {
  const Parts system = shown();
  writeOn(@{@"backgroundImage" : stored(picture(30, [UIColor blueColor])), @"cornerRadius" : @3});
  EXPECT_NE(differences(system, shown()), "");
  [page() clearSettings];
  tapAction(page(), "Yes");
  EXPECT_EQ(differences(system, shown()), "");
}

TEST_F(ThemePreviewTest, FollowsAnAppliedPreset) {
  writeOn(@{});
  const Parts before = shown();
  NSString *preset = path(@"/var/jb/Library/Zuno/Presets/Round.plist");
  makeFolder(@"/var/jb/Library/Zuno/Presets");
  NSDictionary *contents = @{@"enabled" : @1, @"useCustom" : @1, @"cornerRadius" : @60, @"ZunoPresetVersion" : @1};
  ASSERT_TRUE([contents writeToFile:preset atomically:YES]);
  ZunoPresets *presets = [[(ZunoPresets *)[classNamed("ZunoPresets") alloc] init] autorelease];
  [[page() navigationController] pushViewController:presets animated:NO];
  SIMDrainMainQueue();
  [presets applyPreset:preset];
  [[page() navigationController] popViewControllerAnimated:NO];
  SIMDrainMainQueue();
  EXPECT_EQ(differences(before, shown()), "corners");
}

TEST_F(ThemePreviewTest, FollowsTheTurnedDeviceAndAnotherWidth) {
  writeOn(@{@"backgroundImage" : stored(halves(300, 300)), @"cornerRadius" : @60});
  EXPECT_EQ(CGImageGetHeight([picture() CGImage]), 760u);
  turn(CGSizeMake(844, 390), 3);
  ZunoThemePreview *lying = preview();
  EXPECT_NEAR([part(@"screen") frame].size.width, 0.3 * 844, 0.34);
  EXPECT_NEAR([part(@"screen") frame].size.height, 0.3 * 390, 0.34);
  EXPECT_NEAR([lying frame].size.height, [part(@"screen") frame].size.height + 32, 0.01);
  EXPECT_NEAR(CGRectGetMidX([part(@"screen") frame]), [lying bounds].size.width / 2, 0.34);
  EXPECT_EQ(CGImageGetWidth([picture() CGImage]), 760u);
  EXPECT_EQ(CGImageGetHeight([picture() CGImage]), 351u);
  turn(CGSizeMake(820, 1180), 2);
  EXPECT_NEAR([part(@"screen") frame].size.height, 0.3 * 1180, 0.5);
  EXPECT_EQ(CGImageGetHeight([picture() CGImage]), 708u);
}

TEST_F(ThemePreviewTest, ShowsWhatAnotherProgramWroteWhenTheAppearanceOrTheScreenChanges) {
  writeOn(@{});
  (void)shown();
  const auto rewrite = [&](NSString *colour, NSString *photo) {
    write(@{@"enabled" : @1, @"useCustom" : @1, @"badgeColour" : colour, @"backgroundImage" : photo});
  };
  rewrite(@"0000FF", stored(picture(30, [UIColor blueColor])));
  [[[page() view] window] sim_changeUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(text([part(@"badge") backgroundColor]), "0,0,255,255");
  EXPECT_EQ(colourOf(picture()), "0,0,255");
  rewrite(@"00FF00", stored(picture(30, [UIColor redColor])));
  turn(CGSizeMake(844, 390), 3);
  EXPECT_EQ(text([part(@"badge") backgroundColor]), "0,255,0,255");
  EXPECT_EQ(colourOf(picture()), "255,0,0");
}

TEST_F(ThemePreviewTest, IsDescribedInWords) {
  ZunoThemePreview *view = preview();
  EXPECT_TRUE([view isAccessibilityElement]);
  EXPECT_OBJC_EQ([view accessibilityLabel], @"Preview of the switcher");
  EXPECT_OBJC_EQ([view accessibilityValue],
                 @"background of the system, cards with corners of 20 points, 16 points apart, light");
  writeOn(@{
    @"backgroundImage" : stored(halves(30, 30)),
    @"titleColour" : @"445566",
    @"badgeColour" : @"00FF00",
    @"appearance" : @2,
    @"cornerRadius" : @3.6
  });
  EXPECT_OBJC_EQ(
      [preview() accessibilityValue],
      @"photo blurred by 12 points, darkened by 25 percent, cards with corners of 4 points, 16 points apart, "
      @"titles in a colour of their own, badges in a colour of their own, dark");
  writeOn(@{@"backgroundImage" : stored(halves(30, 30)), @"blurRadius" : @0, @"dimming" : @0});
  EXPECT_OBJC_EQ([preview() accessibilityValue],
                 @"sharp photo, cards with corners of 20 points, 16 points apart, light");
  writeOn(@{@"backgroundImage" : stored(halves(30, 30)), @"blurRadius" : @0.4, @"dimming" : @0.4});
  EXPECT_OBJC_EQ([preview() accessibilityValue],
                 @"sharp photo, cards with corners of 20 points, 16 points apart, light");
  writeOn(@{@"backgroundColour" : @"112233", @"dimming" : @0});
  EXPECT_OBJC_EQ([preview() accessibilityValue],
                 @"background in a colour of its own, cards with corners of 20 points, 16 points apart, light");
}

TEST_F(ThemePreviewTest, AChangedSliderDoesNotDecodeThePhotoAgain) {
  writeOn(@{@"backgroundImage" : stored(halves(300, 300))});
  const std::string soft = colourOf(picture());
  const Replaced<id(id, SEL, NSData *)> counting(object_getClass([UIImage class]), @selector(imageWithData:),
                                                 countedImageWithData);
  originalImageWithData = counting.original();
  decodings = 0;
  set(@60, @"dimming");
  set(@0, @"blurRadius");
  EXPECT_NE(picture(), nil);
  EXPECT_EQ(red(0, 50), 0);
  EXPECT_EQ(decodings, 0);
  set(@"112233", @"backgroundColour");
  EXPECT_EQ(text([part(@"screen") backgroundColor]), "17,34,51,255");
  EXPECT_EQ(decodings, 0);
  NSMutableDictionary *theme = [NSMutableDictionary dictionaryWithDictionary:preferences(kThemeFile)];
  [theme setObject:stored(picture(30, [UIColor redColor])) forKey:@"backgroundImage"];
  write(theme);
  set(@50, @"dimming");
  EXPECT_EQ(colourOf(picture()), "255,0,0") << "another photo, which another program stored";
  EXPECT_EQ(decodings, 1);
}

TEST_F(ThemePreviewTest, APageThatHasGoneIsForgotten) {
  ZunoThemePreview *view = [[preview() retain] autorelease];
  UILabel *badge = [view valueForKey:@"badge"];
  writeOn(@{});
  [view removeFromSuperview];
  [view layoutIfNeeded];
  const std::string before = text([badge backgroundColor]);
  set(@"0000FF", @"badgeColour");  // Reaches no view that is off screen.
  [view layoutIfNeeded];
  EXPECT_EQ(text([badge backgroundColor]), before);
}

}  // namespace
