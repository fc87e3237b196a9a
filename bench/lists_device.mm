#include "lists_device.h"

#import <Foundation/SIMDevice.h>
#import <UIKit/UIKit.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

namespace bench {

void require(bool condition, const std::string &what) {
  if (condition) return;
  std::printf("benchmark: %s\n", what.c_str());
  std::exit(1);
}

Class bundleClass(NSString *name) {
  static NSBundle *const bundle =
      [[NSBundle bundleWithPath:@BUILD_FOLDER "/device-root/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle"] retain];
  Class found = [bundle classNamed:name];
  require(found, "the settings bundle cannot be loaded");
  return found;
}

namespace {

namespace fs = std::filesystem;

constexpr CGFloat kIconSide = 60;

NSString *text(const fs::path &path) { return [NSString stringWithUTF8String:path.c_str()]; }

void makeFolder(const fs::path &path) {
  std::error_code error;
  fs::create_directories(path, error);
  require(!error, "cannot make " + path.string());
}

void link(const fs::path &target, const fs::path &place) {
  std::error_code error;
  fs::create_symlink(target, place, error);
  require(!error, "cannot link " + place.string());
}

void writeList(NSDictionary *list, const fs::path &path) {
  require([list writeToFile:text(path) atomically:NO], "cannot write " + path.string());
}

void writeIcon(const fs::path &path) {
  UIGraphicsBeginImageContext(CGSizeMake(kIconSide, kIconSide));
  [[UIColor blueColor] set];
  UIRectFill(CGRectMake(0, 0, kIconSide, kIconSide));
  NSData *png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  require([png writeToFile:text(path) atomically:NO], "cannot write " + path.string());
}

}  // namespace

NSString *const kDomain = @"com.norvik.Zunoprefs";

DeviceFolder::DeviceFolder() {
  std::string pattern = (fs::temp_directory_path() / "bench-lists-XXXXXX").string();
  require(mkdtemp(pattern.data()) != nullptr, "cannot make a temporary folder");
  root_ = pattern;
  SIMSetDeviceFolder(text(root_));
  makeFolder(root_ / "var/jb/var/mobile/Library/Preferences");
}

DeviceFolder::~DeviceFolder() {
  SIMSetDeviceFolder(nil);
  std::error_code error;
  fs::remove_all(root_, error);
}

NSArray *DeviceFolder::addApps(int count) {
  const fs::path icon = root_ / "icon.png";
  writeIcon(icon);
  NSMutableArray *identifiers = [NSMutableArray array];
  for (int number = 0; number < count; ++number) {
    @autoreleasepool {
      NSString *identifier = [NSString stringWithFormat:@"bench.app.%d", number];
      const fs::path folder = root_ / "Applications" / ("Bench" + std::to_string(number) + ".app");
      makeFolder(folder);
      NSString *name = [NSString stringWithFormat:@"Bench App %d", number];
      writeList([NSDictionary
                    dictionaryWithObjectsAndKeys:identifier, @"CFBundleIdentifier", name, @"CFBundleDisplayName", nil],
                folder / "Info.plist");
      link(icon, folder / "AppIcon60x60.png");
      [identifiers addObject:identifier];
    }
  }
  return identifiers;
}

void DeviceFolder::addWidgets(int count, const fs::path &code, NSString *className) {
  const fs::path executable = code.filename();
  for (int number = 0; number < count; ++number) {
    @autoreleasepool {
      const fs::path folder = root_ / "var/jb/Library/Zuno/Widgets" / (std::to_string(number) + ".bundle");
      makeFolder(folder);
      NSString *identifier = [NSString stringWithFormat:@"bench.widget.%d", number];
      writeList(
          [NSDictionary dictionaryWithObjectsAndKeys:identifier, @"CFBundleIdentifier", identifier,
                                                     @"CFBundleDisplayName", text(executable), @"CFBundleExecutable",
                                                     className, @"ZunoWidgetClass", @1, @"ZunoWidgetsVersion", nil],
          folder / "Info.plist");
      link(code, folder / executable);
    }
  }
}

void DeviceFolder::setPreference(NSString *key, id value) {
  const fs::path file =
      root_ / "var/jb/var/mobile/Library/Preferences" / ([kDomain UTF8String] + std::string(".plist"));
  std::error_code error;
  fs::remove(file, error);
  if (value) writeList([NSDictionary dictionaryWithObject:value forKey:key], file);
}

}  // namespace bench
