// Theme files and background images that are damaged: the page and its cell go on, and nothing that was stored is lost.
#import <Preferences/PSSpecifier.h>
#import <dispatch/MainQueue+Sim.h>

#import "theme/ZunoCustomiseRootListController.h"
#import "theme/ZunoImagePickerCell.h"

#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "ZunoPrefs/theme/ThemeTest.h"

namespace {

NSString *base64(NSData *data) {
  return [data base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
}

NSData *firstHalf(NSData *data) { return [data subdataWithRange:NSMakeRange(0, [data length] / 2)]; }

/// A PNG whose header says another size than its pixels have.
NSData *pngOfSize(NSData *png, std::uint32_t width, std::uint32_t height) {
  NSMutableData *changed = [NSMutableData dataWithData:png];
  auto *bytes = static_cast<std::uint8_t *>([changed mutableBytes]);
  for (int i = 0; i < 4; ++i) {
    bytes[16 + i] = static_cast<std::uint8_t>(width >> (24 - 8 * i));
    bytes[20 + i] = static_cast<std::uint8_t>(height >> (24 - 8 * i));
  }
  return changed;
}

NSString *longText(char first, char last) {
  constexpr NSUInteger length = 20'000'000;
  NSMutableData *text = [NSMutableData dataWithLength:length];
  auto *characters = static_cast<char *>([text mutableBytes]);
  for (NSUInteger i = 0; i < length; ++i) characters[i] = static_cast<char>(first + i * 7 % (last - first + 1));
  return [[[NSString alloc] initWithData:text encoding:NSASCIIStringEncoding] autorelease];
}

class BadThemeTest : public ThemeTest {
 protected:
  void SetUp() override {
    ThemeTest::SetUp();
    page_ =
        objcxx::adopt([(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init]);
    (void)show(page_.get());
    PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:@"Image"
                                                      target:nil
                                                         set:nullptr
                                                         get:nullptr
                                                      detail:Nil
                                                        cell:PSButtonCell
                                                        edit:Nil];
    cell_ = objcxx::adopt([(ZunoImagePickerCell *)[classNamed("ZunoImagePickerCell") alloc]
          initWithStyle:UITableViewCellStyleDefault
        reuseIdentifier:@"Image"
              specifier:row]);
    [cell_.get() setCurrentImage:picture(8, [UIColor redColor])];
  }
  void TearDown() override {
    cell_ = nullptr;
    page_ = nullptr;
    ThemeTest::TearDown();
  }

  ZunoCustomiseRootListController *page() { return page_.get(); }
  ZunoImagePickerCell *cell() { return cell_.get(); }

  PSSpecifier *row(NSString *key) {
    for (PSSpecifier *row in [page() specifiers]) {
      if ([[row propertyForKey:@"key"] isEqual:key]) return row;
    }
    return nil;
  }
  id shown(NSString *key) { return [page() readPreferenceValue:row(key)]; }

  /// The cell shows what it showed, also when it comes to the screen anew, and the page can be rebuilt.
  void expectThePictureToStay(const std::string &fault) {
    [cell() loadImageFromDict];
    EXPECT_EQ(colourOf([[cell() imageView] image]), "255,0,0") << fault;
    UIView *parent = [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
    [parent addSubview:cell()];
    [cell() removeFromSuperview];
    EXPECT_EQ(colourOf([[cell() imageView] image]), "255,0,0") << fault;
    [page() reloadSpecifiers];
    [[page() table] layoutIfNeeded];
    SIMDrainMainQueue();
  }

  /// The picker's result as the page and as the cell take it.
  void pickThroughPage(UIImage *image) {
    [page() imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
        didFinishPickingMediaWithInfo:picked(image)];
    SIMDrainMainQueue();
  }
  void pickThroughCell(UIImage *image) {
    [cell() imagePickerController:[[[UIImagePickerController alloc] init] autorelease]
        didFinishPickingMediaWithInfo:picked(image)];
    SIMDrainMainQueue();
  }

 private:
  objcxx::Retained<ZunoCustomiseRootListController> page_;
  objcxx::Retained<ZunoImagePickerCell> cell_;
};

TEST_F(BadThemeTest, AStoredValueThatIsNoPictureLeavesThePictureAndStaysStored) {
  NSData *png = UIImagePNGRepresentation(picture(64, [UIColor blueColor]));
  NSData *jpeg = UIImageJPEGRepresentation(picture(64, [UIColor blueColor]), 0.9);
  struct Fault {
    const char *name;
    id value;
  };
  const Fault faults[] = {
      {"a number", @7},
      {"a truth value", [NSNumber numberWithBool:YES]},
      {"a dictionary", @{@"image" : base64(png)}},
      {"an array", @[ base64(png) ]},
      {"data", png},
      {"a date", [NSDate dateWithTimeIntervalSince1970:0]},
      {"an empty text", @""},
      {"line breaks alone", @"\r\n\r\n"},
      {"no base64", @"%%% not base64 %%%"},
      {"beyond ASCII", @"ｂａｓｅ６４ 😀"},
      {"no image", base64([NSData dataWithBytes:"hello" length:5])},
      {"half a PNG", base64(firstHalf(png))},
      {"half a JPEG", base64(firstHalf(jpeg))},
      {"half the text", [base64(png) substringToIndex:[base64(png) length] / 2]},
      {"a PNG of no size", base64(pngOfSize(png, 0, 0))},
      {"a PNG of no height", base64(pngOfSize(png, 64, 0))},
      {"a PNG of 100,000 pixels square", base64(pngOfSize(png, 100'000, 100'000))},
      {"20 MB of base64", longText('a', 'z')},
      {"20 MB of something else", longText('!', '*')},
  };
  for (const Fault &fault : faults) {
    @autoreleasepool {
      writePreferences(kThemeFile, @{@"backgroundImage" : fault.value, @"spacing" : @1});
      expectThePictureToStay(fault.name);
      EXPECT_OBJC_EQ(shown(@"spacing"), @1) << fault.name;
      [page() setPreferenceValue:@2 specifier:row(@"spacing")];
      EXPECT_OBJC_EQ(preferences(kThemeFile), (@{@"backgroundImage" : fault.value, @"spacing" : @2})) << fault.name;
      pickThroughCell(picture(8, [UIColor redColor]));
      EXPECT_EQ(colourOf([cell() decodeBase64ToImage:[preferences(kThemeFile) objectForKey:@"backgroundImage"]]),
                "255,0,0")
          << fault.name;
      EXPECT_OBJC_EQ([preferences(kThemeFile) objectForKey:@"spacing"], @2) << fault.name;
    }
  }
}

// The damage of such a file is found only when its pixels are decoded, after the cell has taken it.
TEST_F(BadThemeTest, APictureWhosePixelsAreDamagedEndsNothing) {
  NSMutableData *png = [NSMutableData dataWithData:UIImagePNGRepresentation(picture(64, [UIColor blueColor]))];
  auto *bytes = static_cast<std::uint8_t *>([png mutableBytes]);
  std::fill(bytes + 43, bytes + [png length] - 16, 0xA5);
  writePreferences(kThemeFile, @{@"backgroundImage" : base64(png)});
  [cell() loadImageFromDict];
  UIImage *damaged = [[cell() imageView] image];
  EXPECT_OBJC_EQ(UIImagePNGRepresentation(damaged), nil);
  EXPECT_OBJC_EQ([cell() encodeToBase64String:damaged], nil);
  pickThroughPage(damaged);
  pickThroughCell(damaged);
  UIImage *turned = [UIImage imageWithCGImage:[damaged CGImage] scale:1 orientation:UIImageOrientationRight];
  pickThroughPage(turned);
  pickThroughCell(turned);
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{@"backgroundImage" : base64(png)})
      << "what cannot be encoded is not stored";
}

TEST_F(BadThemeTest, ADamagedThemeFileShowsDefaultsAndTakesANewPicture) {
  NSString *sound = @"<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>spacing</key><integer>1</integer>";
  struct Fault {
    const char *name;
    std::string content;
  };
  const Fault faults[] = {
      {"empty", ""},
      {"white space", " \n"},
      {"cut short", [sound UTF8String]},
      {"an array at its top", "<plist version=\"1.0\"><array><string>a</string></array></plist>"},
      {"a text at its top", "<plist version=\"1.0\"><string>a</string></plist>"},
      {"the start of a binary list", "bplist00"},
      {"a binary list of garbage", "bplist00" + std::string(300, '\x5a')},
      {"garbage", std::string(5000, '\xfe')},
      {"zeros", std::string(5000, '\0')},
      {"no UTF-8", "<plist version=\"1.0\"><dict><key>spacing</key><string>\xff\xfe</string></dict></plist>"},
  };
  for (const Fault &fault : faults) {
    write(kThemeFile, fault.content);
    expectThePictureToStay(fault.name);
    EXPECT_OBJC_EQ(shown(@"spacing"), @16.0) << fault.name;
    EXPECT_OBJC_EQ(shown(@"presetUserAgent"), @"(null)/(null)") << fault.name;
    EXPECT_EQ(read(kThemeFile), fault.content) << fault.name << ": looking changes nothing";
    pickThroughPage(picture(8, [UIColor redColor]));
    EXPECT_EQ([preferences(kThemeFile) count], 1u) << fault.name;
    EXPECT_EQ(colourOf([cell() decodeBase64ToImage:[preferences(kThemeFile) objectForKey:@"backgroundImage"]]),
              "255,0,0")
        << fault.name;
  }
}

TEST_F(BadThemeTest, WhatIsNoFileAtAllIsLeftAlone) {
  NSString *place = write(kThemeFile, "");
  const std::filesystem::path file = [place fileSystemRepresentation];
  const std::pair<const char *, std::function<void()>> faults[] = {
      {"a folder", [&] { std::filesystem::create_directories(file / "inside"); }},
      {"a link to itself", [&] { std::filesystem::create_symlink(file, file); }},
      {"a link to nothing", [&] { std::filesystem::create_symlink(file.string() + ".missing", file); }},
      {"a pipe", [&] { ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); }},
  };
  for (const auto &[name, make] : faults) {
    std::filesystem::remove_all(file);
    make();
    expectThePictureToStay(name);
    EXPECT_OBJC_EQ(shown(@"spacing"), @16.0) << name;
    pickThroughPage(picture(8, [UIColor redColor]));
    pickThroughCell(picture(8, [UIColor redColor]));
    EXPECT_OBJC_EQ([page() presentedViewController], nil) << name;
  }
  std::filesystem::remove_all(file);
}

}  // namespace
