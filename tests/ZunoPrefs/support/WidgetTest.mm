#include "ZunoPrefs/support/WidgetTest.h"

#include <filesystem>
#include <system_error>

namespace testing_support {

NSString *const kWidgetsFolder = @"/var/jb/Library/Zuno/Widgets";

NSString *WidgetTest::installWidget(NSString *name, NSString *code, NSDictionary *changes) {
  NSString *folder = makeFolder([NSString stringWithFormat:@"%@/%@.bundle", kWidgetsFolder, name]);
  NSMutableDictionary *info = [NSMutableDictionary
      dictionaryWithObjectsAndKeys:code, @"CFBundleExecutable", [@"test." stringByAppendingString:name],
                                   @"CFBundleIdentifier", [@"Widget " stringByAppendingString:name],
                                   @"CFBundleDisplayName", code, @"ZunoWidgetClass", @1, @"ZunoWidgetsVersion", nil];
  for (NSString *key in changes) {
    id value = [changes objectForKey:key];
    if (value == [NSNull null]) {
      [info removeObjectForKey:key];
    } else {
      [info setObject:value forKey:key];
    }
  }
  EXPECT_TRUE([info writeToFile:[folder stringByAppendingPathComponent:@"Info.plist"] atomically:YES]);
  // A link, so that the code is loaded once in this process whatever the number of bundles around it.
  std::error_code error;
  std::filesystem::create_symlink(std::filesystem::path(BUILD_FOLDER "/fixtures/widgets") / [code UTF8String],
                                  std::filesystem::path([folder UTF8String]) / [code UTF8String], error);
  EXPECT_FALSE(error) << error.message();
  return folder;
}

NSString *WidgetTest::installWidgetCopy(NSString *name, NSString *code, NSDictionary *changes) {
  NSString *folder = installWidget(name, code, changes);
  const auto place = std::filesystem::path([folder UTF8String]) / [code UTF8String];
  std::error_code error;
  const auto original = std::filesystem::canonical(place, error);
  std::filesystem::remove(place, error);
  std::filesystem::copy_file(original, place, error);
  EXPECT_FALSE(error) << error.message();
  return folder;
}

std::string WidgetTest::line(const char *format, NSString *path) {
  return [[NSString stringWithFormat:[NSString stringWithUTF8String:format], [path UTF8String]] UTF8String];
}

}  // namespace testing_support
